#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/ComPtr.h"
#include "framework/ErrorInfo.h"
#include "framework/Implements.h"
#include "framework/TypeLibrary.h"
#include "framework/Variant.h"

namespace nux {

/// IDispatch of a dual interface, by its description in the module's type library. Operations of the
/// interface run in Operation, and so say why they fail.
template <class Interface>
class Dispatch : public Implements<AlsoAs<Interface, IDispatch>, ISupportErrorInfo> {
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
            *typeInfo = TypeInfoOf(IdOf<Interface>()).Detach();
            return S_OK;
        });
    }

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (!names || !ids)
            return E_POINTER;
        return Guarded([&] { return FindMembers(IdOf<Interface>(), names, count, ids); });
    }

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* argumentError) override {
        // VBScript's `Set` asks for a put by reference alone. A property here takes an object either way.
        if (flags & DISPATCH_PROPERTYPUTREF)
            flags |= DISPATCH_PROPERTYPUT;
        return Guarded([&] {
            const ComPtr<ITypeInfo> type = TypeInfoOf(IdOf<Interface>());
            Interface* const self = static_cast<Interface*>(this);
            if (!(flags & DISPATCH_PROPERTYGET) || !parameters || parameters->cArgs == 0 ||
                !IsReadableProperty(IdOf<Interface>(), id))
                return type->Invoke(self, id, flags, parameters, result, exception, argumentError);
            // No property takes arguments: they are for the default member of the object that it holds. The
            // platform would do the same, but Wine 8.0 does it also where the property holds null, and dies
            // of it (DispatchTest.ArgumentsOfAPropertyThatHoldsNoObject).
            Variant held;
            DISPPARAMS none{};
            const HRESULT read =
                type->Invoke(self, id, DISPATCH_PROPERTYGET, &none, held.Receive(), exception, argumentError);
            if (FAILED(read))
                return read;
            if (held.Type() != VT_DISPATCH || !held.Object())
                return DISP_E_NOTACOLLECTION;
            return held.Object()->Invoke(DISPID_VALUE, IID_NULL, locale, flags, parameters, result, exception,
                                         argumentError);
        });
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == IdOf<Interface>() ? S_OK : S_FALSE;
    }

protected:
    /// Runs the body of an operation as TellFailure does, and holds the object meanwhile: whatever the
    /// operation calls or lets go of may let go of the object.
    template <class Body>
    HRESULT Operation(Body&& body) noexcept {
        return TellFailure(IdOf<Interface>(), [&] {
            const ComPtr<Interface> self(this);
            return body();
        });
    }
};

}  // namespace nux
