#include "framework/DispatchClient.h"

#include <algorithm>
#include <array>

namespace nux {

HRESULT FindMember(IDispatch* object, const wchar_t* name, DISPID* id, LCID locale) noexcept {
    *id = DISPID_UNKNOWN;
    LPOLESTR names = const_cast<LPOLESTR>(name);  // the platform's declaration is not const, its contract is
    return object->GetIDsOfNames(GUID_NULL, &names, 1, locale, id);
}

HRESULT GetDispatchProperty(IDispatch* object, const wchar_t* name, Variant* result) noexcept {
    result->Receive();
    DISPID id = DISPID_UNKNOWN;
    const HRESULT found = FindMember(object, name, &id);
    if (FAILED(found))
        return found;
    DISPPARAMS none{};
    const HRESULT read = object->Invoke(id, GUID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                        result->Receive(), nullptr, nullptr);
    if (FAILED(read))
        result->Receive();
    return read;
}

HRESULT CallMethod(IDispatch* object, DISPID id, std::span<const Variant> arguments, Variant* result,
                   LCID locale) noexcept {
    std::array<VARIANT, 8> reversed;
    if (arguments.size() > reversed.size())
        return E_INVALIDARG;
    std::transform(arguments.rbegin(), arguments.rend(), reversed.begin(),
                   [](const Variant& argument) { return argument.Get(); });
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    return object->Invoke(id, GUID_NULL, locale, DISPATCH_METHOD, &parameters,
                          result ? result->Receive() : nullptr, nullptr, nullptr);
}

}  // namespace nux
