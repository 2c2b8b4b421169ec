#include "control/nuxDataManager.h"

namespace nux {
namespace {

constexpr VARTYPE variantArray = VT_ARRAY | VT_VARIANT;

}  // namespace

HRESULT nuxDataManager::GetSizes(const Variant& sizes, VARIANT* pVal) noexcept {
    return Operation([&] {
        Require(pVal, L"pVal");
        if (sizes.Type() != variantArray)
            throw HResultError(E_FAIL, L"No sizes have been put.");
        return sizes.CopyTo(pVal);
    });
}

HRESULT nuxDataManager::PutSizes(Variant& sizes, const VARIANT& newVal) noexcept {
    return Operation([&] {
        if (newVal.vt != variantArray)
            throw HResultError(E_INVALIDARG,
                               L"Sizes are an array of VARIANT: a script's array has to go through "
                               L"JSArray2SafeArray, and no reference to a variable is taken.");
        return sizes.SetCopy(newVal);
    });
}

HRESULT nuxDataManager::GetText(const std::string& text, VARIANT* pVal) noexcept {
    return Operation([&] {
        Require(pVal, L"pVal");
        if (text.empty())
            throw HResultError(E_FAIL, L"No text has been put.");
        Variant value(text, CP_ACP);
        VariantClear(pVal);
        *pVal = value.Detach();
    });
}

HRESULT nuxDataManager::PutText(std::string& text, const VARIANT& newVal) noexcept {
    return Operation([&] {
        if (newVal.vt != VT_BSTR)
            throw HResultError(E_INVALIDARG,
                               L"The value has to be a string, and no reference to a variable is taken.");
        text = Narrow(newVal.bstrVal);
    });
}

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
    return Operation([&] {
        Variant cavity, core;  // what they take over goes last: the release of its elements may call back
        m_CavityPlateSizes.Swap(cavity);
        m_CorePlateSizes.Swap(core);
    });
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
