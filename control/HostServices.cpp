// What scripts ask of the system and of the host beyond the component's own data: files with their
// applications, names of files, the target of an export.

#include <windows.h>

#include <shellapi.h>

#include <optional>

#include "control/FileDialogs.h"
#include "control/ShellCommand.h"
#include "control/nuxStdParts.h"
#include "environment/Localisation.h"
#include "environment/Paths.h"
#include "environment/Registry.h"
#include "framework/DispatchClient.h"

namespace nux {
namespace {

constexpr DISPID mainObjectOfApplication = 9;

bool IsLeadByteOfThread(unsigned char byte) noexcept {
    return IsDBCSLeadByteEx(CP_THREAD_ACP, byte) != FALSE;
}

/// The default value of a key below HKEY_CLASSES_ROOT; empty if there is none.
std::string ClassesValue(const std::string& key) {
    std::string text;
    CRegistry(HKEY_CLASSES_ROOT).GetStringValue(key, "", &text);
    return text;
}

/// The program that opens files of an extension, or nothing.
std::optional<std::string> ProgramFor(const std::string& extension) {
    const std::string fileClass = extension.empty() ? std::string() : ClassesValue(extension);
    if (fileClass.empty())
        return std::nullopt;
    return ProgramOfCommand(ClassesValue(fileClass + "\\shell\\open\\command"));
}

/// Whether the program is the browser that takes a relative path for an address.
bool IsBrowser(const std::string& program) {
    const auto parts = SplitPath(program, &IsLeadByteOfThread);
    if (!parts)
        return false;
    std::string name = parts->name + parts->extension;
    CharUpperA(name.data());
    return name == "IEXPLORE.EXE";
}

/// @return whether the program was started
bool OpenInBrowser(const std::string& program, const std::string& file, const PathParts& parts) {
    char current[260] = "";
    GetCurrentDirectoryA(sizeof current, current);
    const std::string command = program + " " + PathForBrowser(file, parts, current);
    return WinExec(command.c_str(), SW_SHOWNORMAL) > 31;
}

/// @return whether a program was started
bool OpenWithShell(const std::string& file) {
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteA(nullptr, "open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    if (result != SE_ERR_NOASSOC)
        return result > 32;
    const std::string parameters = "shell32.dll,OpenAs_RunDLL " + file;
    const auto asked = reinterpret_cast<INT_PTR>(
        ShellExecuteA(nullptr, nullptr, "rundll32.exe", parameters.c_str(), nullptr, SW_SHOWNORMAL));
    return asked > 32;
}

/// Each is made at its first use and stays: it shows what was chosen last, and keeps the parent of that first
/// use.
SaveFileDialog& ExportFileDialog(HWND parent) {
    static std::optional<SaveFileDialog> dialog;
    if (!dialog)
        dialog.emplace(parent, "igs", "moldbase.igs");
    return *dialog;
}

FolderDialog& ExportFolderDialog(HWND parent) {
    static std::optional<FolderDialog> dialog;
    if (!dialog)
        dialog.emplace(parent);
    return *dialog;
}

/// The folder that is meant below the one that the user has chosen.
std::string MoldbaseFolder(std::string folder) {
    if (!EndsInSeparator(folder))
        folder += '\\';
    return folder + "Moldbase";
}

}  // namespace

STDMETHODIMP nuxStdParts::ExecuteFileInShell(BSTR FileName) {
    return Operation([&] {
        const std::string file = Narrow(FileName);
        const auto parts = SplitPath(file, &IsLeadByteOfThread);
        const auto program = parts ? ProgramFor(parts->extension) : std::nullopt;
        const bool opened =
            program && IsBrowser(*program) ? OpenInBrowser(*program, file, *parts) : OpenWithShell(file);
        if (!opened)
            throw HResultError(E_FAIL, L"Nothing could be started that opens the file " + Widen(file) + L".");
    });
}

STDMETHODIMP nuxStdParts::GetSaveFileName(BSTR Title, BSTR Filter, BSTR DefFileName, BSTR DefExtension,
                                          BSTR* FileName) {
    return Operation([&] {
        Require(FileName, L"FileName", E_FAIL);
        SaveFileDialog dialog(Handle(), Narrow(DefExtension), Narrow(DefFileName));
        ReplaceString(FileName, dialog.Run(Narrow(Title), Narrow(Filter)).value_or(std::string()));
    });
}

ComPtr<IDispatch> nuxStdParts::MainObjectOfHost() const {
    ComPtr<IDispatch> application;
    if (FAILED(Received(Host3DOrFail()->GetApplication(application.Receive()), application)) || !application)
        throw HResultError(E_FAIL, L"The 3D side has no application object.");
    Variant mainObject;
    if (FAILED(CallMethod(application.Get(), mainObjectOfApplication, {}, &mainObject)) ||
        mainObject.Type() != VT_DISPATCH || !mainObject.Object())
        throw HResultError(E_FAIL, L"The application object gives no object by its member 9.");
    return mainObject.Object();
}

STDMETHODIMP nuxStdParts::TRNVExportDlg(long fSingleFile, BSTR* ExportPath) {
    return Operation([&] {
        Require(ExportPath, L"ExportPath");
        *ExportPath = nullptr;
        const ComPtr<IDispatch> mainObject = MainObjectOfHost();
        Variant window;
        if (!m_HostHWND && SUCCEEDED(GetDispatchProperty(mainObject.Get(), L"MainWindowHWND", &window)) &&
            window.Type() == VT_I4)
            m_HostHWND = static_cast<HWND>(LongToHandle(window.Number()));

        std::optional<std::string> target;
        if (fSingleFile) {
            target =
                ExportFileDialog(m_HostHWND)
                    .Run(GetLocalizedMessage("", "Choose a file to export the moldbase to"), "IGES|*.igs");
        } else {
            target = ExportFolderDialog(m_HostHWND)
                         .Run(GetLocalizedMessage("", "Choose a folder to export the moldbase to"));
            if (target)
                target = MoldbaseFolder(*target);
        }
        ReplaceString(ExportPath, target.value_or(std::string()));
    });
}

}  // namespace nux
