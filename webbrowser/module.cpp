// The functions through which COM reaches the module.

#include "framework/Module.h"
#include "framework/TypeLibrary.h"
#include "webbrowser/Browser.h"

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH)
        nux::SetThisModule(module);
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID, REFIID, LPVOID* object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    if (nux::LiveObjects() != 0)
        return S_FALSE;
    // Its thread is of this module.
    nux::webbrowser::Browser::End();
    nux::ReleaseTypeInfos();
    return S_OK;
}
