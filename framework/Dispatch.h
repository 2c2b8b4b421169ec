#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/ComPtr.h"
#include "framework/ErrorInfo.h"
#include "framework/Implements.h"
#include "framework/TypeLibrary.h"

namespace nux {

/// IDispatch of a dual interface, by its description in the module's type library or in a registered one.
/// Operations of the interface run in Operation, and so say why they fail.
template <class Interface, const RegisteredLibrary* library = nullptr>
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
            *typeInfo = TypeInfoOf(IdOf<Interface>(), library).Detach();
            return S_OK;
        });
    }

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (!names || !ids)
            return E_POINTER;
        return Guarded([&] { return FindMembers(IdOf<Interface>(), names, count, ids, library); });
    }

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* argumentError) override {
        return Guarded([&] {
            return InvokeMember(TypeInfoOf(IdOf<Interface>(), library).Get(), static_cast<Interface*>(this),
                                id, locale, flags, parameters, result, exception, argumentError);
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
