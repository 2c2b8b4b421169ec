#pragma once

#include <windows.h>

#include <oaidl.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "framework/HResult.h"
#include "framework/Implements.h"
#include "framework/Variant.h"

namespace nux::webbrowser {

/// An object of C++ with whatever members a test gives it. It has no type description: what is a method shows
/// from how it may be invoked.
class ExternalDouble : public Implements<IDispatch> {
public:
    using Arguments = std::vector<Variant>;
    using Method = std::function<Variant(const Arguments&)>;

    virtual ~ExternalDouble() = default;

    std::map<std::wstring, Method> methods;
    std::map<std::wstring, Variant> properties;
    std::map<std::wstring, Method> getters;
    HRESULT failure = S_OK;  ///< of the next call, told by an exception record
    std::wstring failureWords;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const std::wstring name = names[0];
        *ids = DISPID_UNKNOWN;
        if (!methods.contains(name) && !properties.contains(name) && !getters.contains(name))
            return DISP_E_UNKNOWNNAME;
        auto known = std::find(names_.begin(), names_.end(), name);
        if (known == names_.end())
            known = names_.insert(names_.end(), name);
        *ids = static_cast<DISPID>(known - names_.begin()) + 1;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override {
        if (id < 1 || id > static_cast<DISPID>(names_.size()))
            return DISP_E_MEMBERNOTFOUND;
        const std::wstring name = names_[id - 1];
        try {
            if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF))
                return properties[name].SetCopy(parameters->rgvarg[0]);
            Arguments arguments;
            for (UINT i = parameters->cArgs; i > 0; --i) {
                arguments.emplace_back();
                arguments.back().SetCopy(parameters->rgvarg[i - 1]);
            }
            if (FAILED(failure)) {
                exception->scode = std::exchange(failure, S_OK);
                exception->bstrDescription = SysAllocString(failureWords.c_str());
                return DISP_E_EXCEPTION;
            }
            Variant value;
            if (const auto method = methods.find(name); method != methods.end()) {
                if (!(flags & DISPATCH_METHOD))
                    return DISP_E_MEMBERNOTFOUND;
                value = Method(method->second)(arguments);
            } else if (const auto getter = getters.find(name); getter != getters.end()) {
                value = getter->second(arguments);
            } else {
                value.SetCopy(properties[name].Get());
            }
            if (result)
                *result = value.Detach();
            return S_OK;
        } catch (const HResultError& error) {
            exception->scode = error.Code();
            exception->bstrDescription = SysAllocString(error.Words().c_str());
            return DISP_E_EXCEPTION;
        }
    }

private:
    std::vector<std::wstring> names_;
};

inline Variant Number(LONG number) {
    Variant value;
    value.SetNumber(number);
    return value;
}
inline Variant Words(const wchar_t* text) {
    Variant value;
    value.SetText(Bstr(text));
    return value;
}
inline Variant Object(ComPtr<IDispatch> object) {
    Variant value;
    value.SetObject(std::move(object));
    return value;
}
inline Variant CopyOf(const Variant& value) {
    Variant copy;
    copy.SetCopy(value.Get());
    return copy;
}

}  // namespace nux::webbrowser
