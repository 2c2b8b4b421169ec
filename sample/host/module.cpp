// The four functions through which COM and the registering programs reach the module of Tarnvale.SampleHost.

#include "framework/Module.h"
#include "framework/ClassFactory.h"
#include "framework/Registration.h"
#include "host/ScriptHost.h"
#include "host/resource.h"

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH)
        nux::SetThisModule(module);
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID* object) {
    return nux::GetClassObject<nux::host::ScriptHost>(CLSID_SampleHost, classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    return nux::CanUnloadNow();
}

STDAPI DllRegisterServer() {
    return nux::ApplyRegistryScript(IDR_REGISTRY, true);
}

STDAPI DllUnregisterServer() {
    return nux::ApplyRegistryScript(IDR_REGISTRY, false);
}
