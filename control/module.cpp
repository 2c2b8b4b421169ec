// The four functions through which COM and the registering programs reach the module.

#include "framework/Module.h"

#include "control/nuxStdParts.h"
#include "framework/ClassFactory.h"
#include "framework/Registration.h"
#include "resources/resource.h"

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH)
        nux::SetThisModule(module);
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID* object) {
    return nux::GetClassObject<nux::nuxStdParts>(CLSID_nuxStdParts, classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    return nux::CanUnloadNow();
}

STDAPI DllRegisterServer() {
    const HRESULT entered = nux::ApplyRegistryScript(IDR_REGISTRY, true);
    return FAILED(entered) ? entered : nux::RegisterTypeLibrary(true);
}

STDAPI DllUnregisterServer() {
    const HRESULT removed = nux::RegisterTypeLibrary(false);
    const HRESULT scriptUndone = nux::ApplyRegistryScript(IDR_REGISTRY, false);
    return FAILED(removed) ? removed : scriptUndone;
}
