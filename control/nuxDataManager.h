#pragma once

#include <string>

#include "framework/Dispatch.h"
#include "framework/Variant.h"
#include "nuxStdPartsAX.h"

namespace nux {

/// Values that pages hand to one another while the host runs: sizes of the cavity and core plates, name of
/// the catalogue, units. A value's type is taken as it comes: a reference to a variable, as VBScript passes
/// one, is no value of the type wanted; a page there puts an expression (`CStr(name)`).
class nuxDataManager : public Dispatch<InuxDataManager> {
public:
    // What a getter gives replaces the caller's initialised VARIANT; a failure leaves it alone.

    /// Get: E_INVALIDARG for a null pointer, E_FAIL unless an array was put.
    /// Put: E_INVALIDARG unless the value is an array of VARIANT.
    STDMETHODIMP get_CavityPlateSizes(VARIANT* pVal) override;
    STDMETHODIMP put_CavityPlateSizes(VARIANT newVal) override;
    STDMETHODIMP get_CorePlateSizes(VARIANT* pVal) override;
    STDMETHODIMP put_CorePlateSizes(VARIANT newVal) override;

    /// Forgets the sizes only: pages rely on the catalogue's name and the units outliving it.
    STDMETHODIMP ClearData() override;

    /// Get: E_INVALIDARG for a null pointer, E_FAIL while the text is empty.
    /// Put: E_INVALIDARG unless the value is a string.
    STDMETHODIMP get_CatalogName(VARIANT* pVal) override;
    STDMETHODIMP put_CatalogName(VARIANT newVal) override;
    STDMETHODIMP get_Units(VARIANT* pVal) override;
    STDMETHODIMP put_Units(VARIANT newVal) override;

private:
    HRESULT GetSizes(const Variant& sizes, VARIANT* pVal) noexcept;
    HRESULT PutSizes(Variant& sizes, const VARIANT& newVal) noexcept;
    HRESULT GetText(const std::string& text, VARIANT* pVal) noexcept;
    HRESULT PutText(std::string& text, const VARIANT& newVal) noexcept;

    Variant m_CavityPlateSizes;
    Variant m_CorePlateSizes;
    std::string m_CatalogName;
    std::string m_Units;
};

}  // namespace nux
