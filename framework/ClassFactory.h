#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/ComObject.h"
#include "framework/HResult.h"
#include "framework/Implements.h"

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

}  // namespace nux
