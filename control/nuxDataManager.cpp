#include "control/nuxDataManager.h"

namespace nux {
namespace {

constexpr VARTYPE variantArray = VT_ARRAY | VT_VARIANT;

HRESULT GetSizes(const Variant& sizes, VARIANT* pVal) noexcept {
    if (!pVal)
        return E_INVALIDARG;
    return sizes.Type() == variantArray ? sizes.CopyTo(pVal) : E_FAIL;
}

HRESULT PutSizes(Variant& sizes, const VARIANT& newVal) noexcept {
    return newVal.vt == variantArray ? sizes.SetCopy(newVal) : E_INVALIDARG;
}

HRESULT GetText(const std::string& text, VARIANT* pVal) noexcept {
    if (!pVal)
        return E_INVALIDARG;
    if (text.empty())
        return E_FAIL;
    return Guarded([&] {
        Variant value(text, CP_ACP);
        VariantClear(pVal);
        *pVal = value.Detach();
        return S_OK;
    });
}

HRESULT PutText(std::string& text, const VARIANT& newVal) noexcept {
    if (newVal.vt != VT_BSTR)
        return E_INVALIDARG;
    return Guarded([&] {
        text = Narrow(newVal.bstrVal);
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
