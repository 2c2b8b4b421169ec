// The four functions through which COM and the registering programs reach the module.

#include "framework/Module.h"

#include "framework/ClassFactory.h"
#include "framework/ErrorInfo.h"
#include "framework/TypeLibrary.h"
#include "webbrowser/Browser.h"
#include "webbrowser/ServerReplacement.h"
#include "webbrowser/WebBrowser.h"

namespace {

/// As it is registered.
std::wstring ClassText() {
    wchar_t text[64] = L"";
    StringFromGUID2(CLSID_WebBrowser, text, sizeof text / sizeof *text);
    return text;
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        nux::SetThisModule(module);
        nux::SetErrorSource(L"Shell.Explorer.2");
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID* object) {
    return nux::GetClassObject<nux::webbrowser::WebBrowser>(CLSID_WebBrowser, classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    if (nux::LiveObjects() != 0)
        return S_FALSE;
    // Its thread is of this module.
    nux::webbrowser::Browser::End();
    nux::ReleaseTypeInfos();
    return S_OK;
}

STDAPI DllRegisterServer() {
    return nux::Guarded([] { return nux::webbrowser::TakeServerPlace(ClassText(), nux::ThisModulePath()); });
}

STDAPI DllUnregisterServer() {
    return nux::Guarded([] { return nux::webbrowser::GiveServerPlaceBack(ClassText()); });
}
