// A host of the component: a program that does what a CAD application does for it, and shows what it asks.
//   SampleHost.exe [FOLDER]      FOLDER is the installation; without it the folder of the program

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>

#include <cstdlib>
#include <new>
#include <string>

#include "framework/Handles.h"
#include "framework/Module.h"
#include "framework/Text.h"
#include "framework/TypeLibrary.h"
#include "host/MainWindow.h"
#include "host/Texts.h"
#include "host/resource.h"

namespace nux::host {
namespace {

/// The arguments of a command line.
struct ArgumentsTraits {
    using Type = LPWSTR*;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type memory) noexcept { LocalFree(memory); }
};

/// The installation that the command line names, or the program's own folder. With a closing separator.
std::wstring InstallationFolder() {
    int count = 0;
    const UniqueHandle<ArgumentsTraits> arguments(CommandLineToArgvW(GetCommandLineW(), &count));
    std::wstring folder = ThisModulePath();
    folder.resize(folder.find_last_of(L'\\') + 1);
    if (arguments && count > 1) {
        const wchar_t* named = arguments.Get()[1];
        std::wstring full(GetFullPathNameW(named, 0, nullptr, nullptr), L'\0');
        full.resize(GetFullPathNameW(named, static_cast<DWORD>(full.size()), full.data(), nullptr));
        folder = full;
    }
    if (!folder.ends_with(L'\\'))
        folder += L'\\';
    return folder;
}

void Tell(const std::string& text) {
    MessageBoxA(nullptr, text.c_str(), Text(IDS_TITLE).c_str(), MB_OK | MB_ICONERROR);
}

int Run(int show) {
    const std::wstring folder = InstallationFolder();
    if (GetFileAttributesW((folder + L"catalogs").c_str()) == INVALID_FILE_ATTRIBUTES) {
        Tell(Text(IDS_NO_INSTALLATION, Narrow(folder.data(), folder.size(), CP_ACP)));
        return EXIT_FAILURE;
    }
    try {
        MainWindow window(folder);
        window.Open(show);
        MSG message{};
        while (GetMessageA(&message, nullptr, 0, 0) > 0) {
            if (window.TranslateKey(message))
                continue;
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        window.RethrowFailure();
        return EXIT_SUCCESS;
    } catch (const HResultError& error) {
        std::string reason = Narrow(error.Words().data(), error.Words().size(), CP_ACP);
        if (!reason.empty())
            reason += ": ";
        Tell(Text(IDS_NOT_STARTED) + "\n\n" + reason + TextOfResult(error.Code()));
    } catch (const std::bad_alloc&) {
        Tell(TextOfResult(E_OUTOFMEMORY));
    }
    return EXIT_FAILURE;
}

}  // namespace
}  // namespace nux::host

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE, LPSTR, int nShowCmd) {
    nux::SetThisModule(hInstance);
    if (FAILED(OleInitialize(nullptr)))
        return EXIT_FAILURE;
    const INITCOMMONCONTROLSEX controls{sizeof controls,
                                        ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&controls);
    const int code = nux::host::Run(nShowCmd);
    nux::ReleaseTypeInfos();
    OleUninitialize();
    return code;
}
