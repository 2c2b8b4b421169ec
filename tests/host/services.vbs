' What a page's script asks of its user and of the system, as the test of the services runs it: it prints what it gets.
'   cscript //nologo services.vbs FOLDER      FOLDER is an installation, with a closing backslash

Dim folder, host, parts
folder = WScript.Arguments(0)
Set host = CreateObject("Tarnvale.SampleHost")
Set parts = host.Start(folder & "catalogs\", folder & "data\", folder & "gui\", folder & "custom\")

WScript.Echo "saved: " & parts.GetSaveFileName("Where to?", "Texts|*.txt|All|*.*", "first.txt", "txt")
WScript.Echo "not saved: [" & parts.GetSaveFileName("Where to?", "Texts|*.txt|All|*.*", "first.txt", "txt") & "]"
WScript.Echo "file of an export: " & parts.TRNVExportDlg(1)
WScript.Echo "none: [" & parts.TRNVExportDlg(1) & "]"
WScript.Echo "no folder of an export: [" & parts.TRNVExportDlg(0) & "]"

parts.ExecuteFileInShell folder & "file.nuxtest"
On Error Resume Next
parts.ExecuteFileInShell folder & "none\file.nuxnone"
TellFailure "not opened: "
parts.AttachBrowser host.StatusBar
TellFailure "no browser: "
On Error GoTo 0
If parts.WebBrowser Is Nothing Then WScript.Echo "attached: null"
parts.AttachBrowser host.Browser
parts.Navigate "file://" & folder & "data\Tarnvale.htm"
WScript.Echo "page: " & Mid(host.Browser.LocationURL, 8 + Len(folder))

parts.UnLoadStatusBar
host.ClearCalls
parts.SetStatusMessage "nobody shows it"
WScript.Echo "asked: [" & host.Calls & "]"

Sub TellFailure(what)
    WScript.Echo what & LCase(Hex(Err.Number)) & " " & Err.Description
    Err.Clear
End Sub
