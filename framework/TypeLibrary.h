#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/ComPtr.h"
#include "framework/HResult.h"

namespace nux {

/// Type description of an interface or class, from the type library inside this module. It is loaded at
/// first use and kept, as loading costs far more than a call through it.
/// Throws HResultError if the module holds no description of `guid`.
ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid);

/// IDispatch::GetIDsOfNames by the type description of `guid`.
/// @param names  a member, or a member and behind it its arguments; `count` of them
/// @param ids    receives `count` numbers
/// @return S_OK, or DISP_E_UNKNOWNNAME; throws as TypeInfoOf does
HRESULT FindMembers(REFGUID guid, LPOLESTR* names, UINT count, DISPID* ids);

/// Drops the type descriptions that are kept. Called when the module may be unloaded.
void ReleaseTypeInfos() noexcept;

/// IDispatch of a dual interface, by its description in the module's type library.
template <class Interface, const IID* iid>
class Dispatch : public Interface {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (!count)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }

    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** typeInfo) override {
        if (!typeInfo)
            return E_POINTER;
        *typeInfo = nullptr;
        if (index != 0)
            return DISP_E_BADINDEX;
        return Guarded([&] {
            *typeInfo = TypeInfoOf(*iid).Detach();
            return S_OK;
        });
    }

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (!names || !ids)
            return E_POINTER;
        return Guarded([&] { return FindMembers(*iid, names, count, ids); });
    }

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* argumentError) override {
        // VBScript's `Set` asks for a put by reference alone. A property here takes an object either way.
        if (flags & DISPATCH_PROPERTYPUTREF)
            flags |= DISPATCH_PROPERTYPUT;
        return Guarded([&] {
            return TypeInfoOf(*iid)->Invoke(static_cast<Interface*>(this), id, flags, parameters, result,
                                            exception, argumentError);
        });
    }

protected:
    /// This interface or one of its bases, or null.
    void* FindDispatchInterface(REFIID wanted) noexcept {
        if (wanted == *iid || wanted == IID_IDispatch || wanted == IID_IUnknown)
            return static_cast<Interface*>(this);
        return nullptr;
    }
};

}  // namespace nux
