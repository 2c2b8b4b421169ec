#include "control/OleControl.h"
#include "framework/TypeLibrary.h"

namespace nux {
namespace {

constexpr DWORD supportedSafety = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;

}  // namespace

void* ControlInformation::FindInformation(REFIID iid) noexcept {
    if (iid == IID_ISpecifyPropertyPages)
        return static_cast<ISpecifyPropertyPages*>(this);
    if (iid == IID_ISupportErrorInfo)
        return static_cast<ISupportErrorInfo*>(this);
    if (iid == IID_IProvideClassInfo2 || iid == IID_IProvideClassInfo)
        return static_cast<IProvideClassInfo2*>(this);
    if (iid == IID_IObjectSafety)
        return static_cast<IObjectSafety*>(this);
    return nullptr;
}

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
    ComPtr<IUnknown> offered;
    const HRESULT result = static_cast<IObjectSafety*>(this)->QueryInterface(iid, offered.ReceiveVoid());
    *supported = SUCCEEDED(result) ? supportedSafety : 0;
    *enabled = SUCCEEDED(result) ? safety_ : 0;
    return result;
}

STDMETHODIMP ControlInformation::SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) {
    ComPtr<IUnknown> offered;
    const HRESULT result = static_cast<IObjectSafety*>(this)->QueryInterface(iid, offered.ReceiveVoid());
    if (FAILED(result))
        return result;
    if (mask & ~supportedSafety)
        return E_FAIL;
    safety_ = (safety_ & ~mask) | (enabled & mask);
    return S_OK;
}

}  // namespace nux
