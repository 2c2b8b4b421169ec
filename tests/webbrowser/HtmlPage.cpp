#include "tests/webbrowser/HtmlPage.h"

#include <algorithm>
#include <vector>

#include "framework/DispatchClient.h"

namespace nux::webbrowser {

HRESULT ByName(IDispatch* object, const wchar_t* name, WORD flags, std::initializer_list<Variant> arguments,
               Variant* result) {
    DISPID id = DISPID_UNKNOWN;
    const HRESULT found = FindMember(object, name, &id);
    if (FAILED(found))
        return found;
    std::vector<VARIANT> raw;
    for (const Variant& each : arguments)
        raw.push_back(each.Get());
    std::reverse(raw.begin(), raw.end());
    DISPID put = DISPID_PROPERTYPUT;
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{raw.data(), isPut ? &put : nullptr, static_cast<UINT>(raw.size()), isPut ? 1u : 0u};
    return object->Invoke(id, IID_NULL, LOCALE_SYSTEM_DEFAULT, flags, &parameters,
                          result ? result->Receive() : nullptr, nullptr, nullptr);
}

std::wstring TextByName(IDispatch* object, const wchar_t* name) {
    Variant value;
    Variant text;
    if (FAILED(ByName(object, name, DISPATCH_PROPERTYGET, {}, &value)) ||
        FAILED(VariantChangeType(text.Receive(), const_cast<VARIANT*>(&value.Get()), VARIANT_ALPHABOOL,
                                 VT_BSTR)))
        return L"failed";
    return std::wstring(text.Text(), SysStringLen(text.Text()));
}

Variant TextValue(std::wstring_view text) {
    Variant value;
    value.SetText(Bstr(text));
    return value;
}

}  // namespace nux::webbrowser
