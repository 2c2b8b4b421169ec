#include "framework/DispatchClient.h"

namespace nux {

HRESULT GetDispatchProperty(IDispatch* object, const wchar_t* name, VARIANT* result) noexcept {
    VariantClear(result);
    LPOLESTR names = const_cast<LPOLESTR>(name);  // the platform's declaration is not const, its contract is
    DISPID id = DISPID_UNKNOWN;
    const HRESULT found = object->GetIDsOfNames(GUID_NULL, &names, 1, LOCALE_SYSTEM_DEFAULT, &id);
    if (FAILED(found))
        return found;
    DISPPARAMS none{};
    const HRESULT read = object->Invoke(id, GUID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                        result, nullptr, nullptr);
    if (FAILED(read))
        VariantClear(result);
    return read;
}

}  // namespace nux
