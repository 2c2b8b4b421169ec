#include "control/nuxDataManager.h"

namespace nux {
namespace {

constexpr VARTYPE variantArray = VT_ARRAY | VT_VARIANT;

/// The value that is put. VBScript hands over a reference to the variable that it stands in.
VARIANT& ValueOf(VARIANT& given) noexcept {
    return given.vt == (VT_BYREF | VT_VARIANT) && given.pvarVal ? *given.pvarVal : given;
}

HRESULT GetSizes(VARIANT& sizes, VARIANT* pVal) noexcept {
    if (!pVal)
        return E_INVALIDARG;
    if (sizes.vt != variantArray)
        return E_FAIL;
    return VariantCopy(pVal, &sizes);
}

HRESULT PutSizes(Variant& sizes, VARIANT& newVal) noexcept {
    VARIANT& value = ValueOf(newVal);
    if (value.vt != variantArray)
        return E_INVALIDARG;
    Variant copy;
    const HRESULT copied = VariantCopy(&copy, &value);
    if (SUCCEEDED(copied))
        sizes.Swap(copy);  // the old value goes last: the release of its elements may call back
    return copied;
}

HRESULT GetText(const std::string& text, VARIANT* pVal) noexcept {
    if (!pVal)
        return E_INVALIDARG;
    if (text.empty())
        return E_FAIL;
    return Guarded([&] {
        BSTR copy = Bstr(text, CP_ACP).Detach();
        VariantClear(pVal);
        pVal->vt = VT_BSTR;
        pVal->bstrVal = copy;
        return S_OK;
    });
}

HRESULT PutText(std::string& text, VARIANT& newVal) noexcept {
    const VARIANT& value = ValueOf(newVal);
    if (value.vt != VT_BSTR)
        return E_INVALIDARG;
    return Guarded([&] {
        text = Narrow(value.bstrVal);
        return S_OK;
    });
}

}  // namespace

STDMETHODIMP nuxDataManager::get_CavityPlateSizes(VARIANT* pVal) {
    return GetSizes(m_CavityPlateSizes, pVal);
}

STDMETHODIMP nuxDataManager::put_CavityPlateSizes(VARIANT newVal) {
    return PutSizes(m_CavityPlateSizes, newVal);
}

STDMETHODIMP nuxDataManager::get_CorePlateSizes(VARIANT* pVal) {
    return GetSizes(m_CorePlateSizes, pVal);
}

STDMETHODIMP nuxDataManager::put_CorePlateSizes(VARIANT newVal) {
    return PutSizes(m_CorePlateSizes, newVal);
}

STDMETHODIMP nuxDataManager::ClearData() {
    Variant cavity, core;  // what they take over goes last: the release of its elements may call back
    m_CavityPlateSizes.Swap(cavity);
    m_CorePlateSizes.Swap(core);
    return S_OK;
}

STDMETHODIMP nuxDataManager::get_CatalogName(VARIANT* pVal) {
    return GetText(m_CatalogName, pVal);
}

STDMETHODIMP nuxDataManager::put_CatalogName(VARIANT newVal) {
    return PutText(m_CatalogName, newVal);
}

STDMETHODIMP nuxDataManager::get_Units(VARIANT* pVal) {
    return GetText(m_Units, pVal);
}

STDMETHODIMP nuxDataManager::put_Units(VARIANT newVal) {
    return PutText(m_Units, newVal);
}

}  // namespace nux
