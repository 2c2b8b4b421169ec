#include "framework/ControlInformation.h"

#include "framework/TypeLibrary.h"

namespace nux {

STDMETHODIMP ControlInformation::GetPages(CAUUID* pages) {
    if (!pages)
        return E_POINTER;
    *pages = {};
    return S_OK;
}

STDMETHODIMP ControlInformation::GetClassInfo(ITypeInfo** typeInfo) {
    if (!typeInfo)
        return E_POINTER;
    *typeInfo = nullptr;
    return Guarded([&] {
        *typeInfo = TypeInfoOf(GetIdentity().classId).Detach();
        return S_OK;
    });
}

STDMETHODIMP ControlInformation::GetGUID(DWORD kind, GUID* guid) {
    if (!guid)
        return E_POINTER;
    *guid = {};
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID)
        return E_INVALIDARG;
    *guid = GetIdentity().eventInterface;
    return S_OK;
}

STDMETHODIMP ControlInformation::GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) {
    if (!supported || !enabled)
        return E_POINTER;
    *supported = *enabled = 0;
    return Guarded([&] {
        const ComPtr<IObjectSafety> self(this);
        ComPtr<IUnknown> offered;
        const HRESULT result = self->QueryInterface(iid, offered.ReceiveVoid());
        if (SUCCEEDED(result)) {
            *supported = SupportedSafety();
            *enabled = safety_ & *supported;
        }
        return result;
    });
}

STDMETHODIMP ControlInformation::SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) {
    return Guarded([&]() -> HRESULT {
        const ComPtr<IObjectSafety> self(this);
        ComPtr<IUnknown> offered;
        const HRESULT result = self->QueryInterface(iid, offered.ReceiveVoid());
        if (FAILED(result))
            return result;
        if (mask & ~SupportedSafety())
            return E_FAIL;
        safety_ = (safety_ & ~mask) | (enabled & mask);
        return S_OK;
    });
}

}  // namespace nux
