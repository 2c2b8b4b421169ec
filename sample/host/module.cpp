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
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (classId != CLSID_SampleHost)
        return CLASS_E_CLASSNOTAVAILABLE;
    return nux::Guarded([&] {
        return nux::MakeObject<nux::ClassFactory<nux::host::ScriptHost>>()->QueryInterface(iid, object);
    });
}

STDAPI DllCanUnloadNow() {
    if (nux::LiveObjects() != 0)
        return S_FALSE;
    nux::ReleaseTypeInfos();
    return S_OK;
}

STDAPI DllRegisterServer() {
    return nux::ApplyRegistryScript(IDR_REGISTRY, true);
}

STDAPI DllUnregisterServer() {
    return nux::ApplyRegistryScript(IDR_REGISTRY, false);
}
