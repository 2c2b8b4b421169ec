#include "webbrowser/DispatchMembers.h"

#include <algorithm>
#include <optional>

#include "framework/ComPtr.h"
#include "framework/ErrorInfo.h"
#include "framework/HResult.h"
#include "framework/Text.h"

namespace nux::webbrowser {
namespace {

// No such property or method, as script engines say it.
constexpr HRESULT unsupportedMember = static_cast<HRESULT>(0x800a01b6);

/// The number of a member, none for a name that the object doesn't have.
std::optional<DISPID> NumberOf(IDispatch* object, const std::wstring& name) {
    if (name.empty())
        return DISPID_VALUE;
    LPOLESTR text = const_cast<LPOLESTR>(name.c_str());
    DISPID id = DISPID_UNKNOWN;
    const HRESULT result = object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
    if (SUCCEEDED(result))
        return id;
    // Objects that are gone say so; all others mean that they don't know the name.
    if (result == RPC_E_DISCONNECTED || HRESULT_FACILITY(result) == FACILITY_RPC)
        throw HResultError(result);
    return std::nullopt;
}

std::optional<int> ElementNumber(const std::wstring& name) {
    if (name.empty() || name.size() > 9 || (name.size() > 1 && name[0] == L'0'))
        return std::nullopt;
    int number = 0;
    for (const wchar_t digit : name) {
        if (digit < L'0' || digit > L'9')
            return std::nullopt;
        number = number * 10 + (digit - L'0');
    }
    return number;
}

HRESULT Invoke(IDispatch* object, DISPID id, WORD flags, const std::vector<Variant>& arguments,
               const VARIANT* put, Variant* result, std::wstring* words) {
    std::vector<VARIANT> reversed;
    reversed.reserve(arguments.size() + 1);
    if (put)
        reversed.push_back(*put);
    for (const Variant& argument : arguments)
        reversed.push_back(argument.Get());
    std::reverse(reversed.begin() + (put ? 1 : 0), reversed.end());
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), put ? &named : nullptr, static_cast<UINT>(reversed.size()),
                          put ? 1U : 0U};
    EXCEPINFO exception{};
    UINT argumentError = 0;
    HRESULT code = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                  result ? result->Receive() : nullptr, &exception, &argumentError);
    if (code == DISP_E_EXCEPTION) {
        if (exception.pfnDeferredFillIn)
            exception.pfnDeferredFillIn(&exception);
        // A code of the older kind is a number of its own.
        code = FAILED(exception.scode) ? exception.scode
               : exception.wCode != 0  ? MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, exception.wCode)
                                       : E_FAIL;
    }
    Bstr source;
    Bstr description;
    Bstr helpFile;
    *source.Receive() = exception.bstrSource;
    *description.Receive() = exception.bstrDescription;
    *helpFile.Receive() = exception.bstrHelpFile;
    words->assign(description.View());
    return code;
}

[[noreturn]] void Fail(HRESULT code, std::wstring words) {
    if (words.empty())
        words = SystemMessage(static_cast<DWORD>(code));
    throw HResultError(code, std::move(words));
}

/// What the object's description tells of a member: whether it wants arguments, none without a description.
std::optional<bool> WantsCall(IDispatch* object, DISPID id) {
    UINT count = 0;
    ComPtr<ITypeInfo> type;
    if (FAILED(object->GetTypeInfoCount(&count)) || count == 0 ||
        FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive())) || !type)
        return std::nullopt;
    TYPEATTR* attributes = nullptr;
    if (FAILED(type->GetTypeAttr(&attributes)))
        return std::nullopt;
    const UINT functions = attributes->cFuncs;
    const UINT variables = attributes->cVars;
    type->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < variables; ++i) {
        VARDESC* variable = nullptr;
        if (FAILED(type->GetVarDesc(i, &variable)))
            continue;
        const bool found = variable->memid == id;
        type->ReleaseVarDesc(variable);
        if (found)
            return false;
    }
    std::optional<bool> wanted;
    for (UINT i = 0; i < functions && !wanted; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(type->GetFuncDesc(i, &function)))
            continue;
        if (function->memid == id && function->invkind == INVOKE_FUNC) {
            wanted = true;
        } else if (function->memid == id && function->invkind == INVOKE_PROPERTYGET) {
            int needed = function->cParams - std::max<int>(function->cParamsOpt, 0);
            for (int parameter = 0; parameter < function->cParams; ++parameter) {
                const USHORT flags = function->lprgelemdescParam[parameter].paramdesc.wParamFlags;
                if (flags & (PARAMFLAG_FRETVAL | PARAMFLAG_FLCID))
                    --needed;
            }
            wanted = needed > 0;
        }
        type->ReleaseFuncDesc(function);
    }
    return wanted;
}

/// What an object without a description answers to reading a method.
bool MeansMethod(HRESULT code) {
    return code == DISP_E_MEMBERNOTFOUND || code == DISP_E_BADPARAMCOUNT || code == DISP_E_PARAMNOTOPTIONAL ||
           code == DISP_E_TYPEMISMATCH;
}

std::vector<Variant> Elements(IEnumVARIANT* enumeration) {
    std::vector<Variant> elements;
    for (;;) {
        Variant element;
        ULONG fetched = 0;
        const HRESULT result = enumeration->Next(1, element.Receive(), &fetched);
        if (FAILED(result))
            Fail(result, {});
        if (fetched == 0)
            return elements;
        elements.push_back(std::move(element));
    }
}

}  // namespace

std::variant<Variant, CallableMember, UnknownMember> ReadMember(IDispatch* object, const std::wstring& name) {
    const std::optional<DISPID> id = NumberOf(object, name);
    if (!id) {
        const std::optional<int> number = ElementNumber(name);
        if (!number || !IsCallable(object))
            return UnknownMember();
        std::vector<Variant> arguments(1);
        arguments[0].SetNumber(*number);
        return CallMember(object, L"", arguments);
    }
    const std::optional<bool> wantsCall = WantsCall(object, *id);
    if (wantsCall == true)
        return CallableMember();
    Variant value;
    std::wstring words;
    const HRESULT result = Invoke(object, *id, DISPATCH_PROPERTYGET, {}, nullptr, &value, &words);
    if (FAILED(result)) {
        if (!wantsCall && MeansMethod(result))
            return name.empty() ? std::variant<Variant, CallableMember, UnknownMember>(UnknownMember())
                                : CallableMember();
        Fail(result, std::move(words));
    }
    return value;
}

void WriteMember(IDispatch* object, const std::wstring& name, const VARIANT& value) {
    const std::optional<DISPID> id = NumberOf(object, name);
    if (!id)
        Fail(unsupportedMember, L"Object doesn't support this property or method: " + name);
    std::wstring words;
    HRESULT result = Invoke(object, *id, DISPATCH_PROPERTYPUT, {}, &value, nullptr, &words);
    if (result == DISP_E_MEMBERNOTFOUND && (value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN))
        result = Invoke(object, *id, DISPATCH_PROPERTYPUTREF, {}, &value, nullptr, &words);
    if (FAILED(result))
        Fail(result, std::move(words));
}

Variant CallMember(IDispatch* object, const std::wstring& name, const std::vector<Variant>& arguments) {
    const std::optional<DISPID> id = NumberOf(object, name);
    if (!id)
        Fail(unsupportedMember, L"Object doesn't support this property or method: " + name);
    Variant value;
    std::wstring words;
    HRESULT result =
        Invoke(object, *id, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments, nullptr, &value, &words);
    if (FAILED(result))
        Fail(result, std::move(words));
    return value;
}

bool HasMember(IDispatch* object, const std::wstring& name) {
    return NumberOf(object, name).has_value();
}

bool IsCallable(IDispatch* object) noexcept {
    return WantsCall(object, DISPID_VALUE) == true;
}

int ElementCount(IDispatch* object) noexcept {
    for (const wchar_t* name : {L"length", L"Count"}) {
        try {
            const std::variant<Variant, CallableMember, UnknownMember> value = ReadMember(object, name);
            const Variant* const count = std::get_if<Variant>(&value);
            VARIANT number{};
            if (count && SUCCEEDED(VariantChangeType(&number, const_cast<VARIANT*>(&count->Get()), 0, VT_I4)))
                return std::max<int>(0, number.lVal);
        } catch (const HResultError&) {
            // It isn't a collection.
        }
    }
    return 0;
}

std::vector<Variant> ElementsOf(IDispatch* object) {
    Variant enumeration;
    std::wstring words;
    if (SUCCEEDED(Invoke(object, DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}, nullptr,
                         &enumeration, &words)) &&
        (enumeration.Type() == VT_UNKNOWN || enumeration.Type() == VT_DISPATCH)) {
        if (const ComPtr<IEnumVARIANT> elements = Query<IEnumVARIANT>(enumeration.Get().punkVal))
            return Elements(elements.Get());
    }
    std::vector<Variant> elements;
    const int count = ElementCount(object);
    for (int i = 0; i < count; ++i) {
        std::vector<Variant> index(1);
        index[0].SetNumber(i);
        elements.push_back(CallMember(object, L"", index));
    }
    return elements;
}

}  // namespace nux::webbrowser
