#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/ComObject.h"
#include "framework/HResult.h"
#include "framework/Implements.h"
#include "framework/Module.h"
#include "framework/TypeLibrary.h"

namespace nux {

/// Class factory of `Class`. Its objects can't be aggregated.
template <class Class>
class ClassFactory : public Implements<IClassFactory> {
public:
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        return Guarded([&] { return MakeObject<Class>()->QueryInterface(iid, object); });
    }

    STDMETHODIMP LockServer(BOOL lock) override {
        CountLiveObject(lock != FALSE);
        return S_OK;
    }
};

/// What a module with one creatable class answers to DllGetClassObject.
/// @param own    the identifier of `Class`
/// @param asked  of the class whose factory is asked for
template <class Class>
HRESULT GetClassObject(REFCLSID own, REFCLSID asked, REFIID iid, void** object) noexcept {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (asked != own)
        return CLASS_E_CLASSNOTAVAILABLE;
    return Guarded([&] { return MakeObject<ClassFactory<Class>>()->QueryInterface(iid, object); });
}

/// What a module answers to DllCanUnloadNow. Type descriptions keep nothing loaded: they go with the last
/// object.
inline HRESULT CanUnloadNow() noexcept {
    if (LiveObjects() != 0)
        return S_FALSE;
    ReleaseTypeInfos();
    return S_OK;
}

}  // namespace nux
