@echo off
rem Registers the component, has smoke.js try it, and takes the registration back. README.txt tells more.
rem   smoke.cmd [x64 | x86] [/nodialog]
rem Without a word size it takes the one of the system. The exit code is 0 if all went well.
setlocal

set "bits=x86"
if "%PROCESSOR_ARCHITECTURE%"=="AMD64" set "bits=x64"
if "%PROCESSOR_ARCHITEW6432%"=="AMD64" set "bits=x64"
if /i "%~1"=="x64" set "bits=x64"
if /i "%~1"=="x86" set "bits=x86"
set "dialog="
if /i "%~1"=="/nodialog" set "dialog=/nodialog"
if /i "%~2"=="/nodialog" set "dialog=/nodialog"

rem Where the programs of that word size lie, as seen from this command prompt.
set "system=%SystemRoot%\System32"
if "%bits%"=="x86" if exist "%SystemRoot%\SysWOW64\cscript.exe" set "system=%SystemRoot%\SysWOW64"
if "%bits%"=="x64" if exist "%SystemRoot%\Sysnative\cscript.exe" set "system=%SystemRoot%\Sysnative"
set "module=%~dp0%bits%\nuxStdPartsAX.dll"

"%system%\reg.exe" query HKCR\Tarnvale.nuxStdParts >nul 2>&1
if not errorlevel 1 goto registered

echo Registering %module%
start "" /wait "%system%\regsvr32.exe" /s "%module%"
set "result=%errorlevel%"
if not "%result%"=="0" goto refused

"%system%\cscript.exe" //nologo "%~dp0smoke.js" "%~dp0installation\\" %dialog%
set "result=%errorlevel%"

echo Taking the registration back
start "" /wait "%system%\regsvr32.exe" /s /u "%module%"
if errorlevel 1 goto left
"%system%\reg.exe" query HKCR\Tarnvale.nuxStdParts >nul 2>&1
if not errorlevel 1 goto left
exit /b %result%

:registered
echo The component is registered on this machine already, perhaps by an application that needs it.
echo Nothing was done: the registration would be lost at the end.
exit /b 2

:refused
echo The module could not be registered: regsvr32 answers %result% (3 if the module does not load here, 5 if it may not
echo register: the command prompt has to run as administrator).
exit /b 2

:left
echo FAILED: the registration could not be taken back
exit /b 1
