#include "webbrowser/VariantValue.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "framework/ComPtr.h"
#include "framework/HResult.h"

namespace nux::webbrowser {
namespace {

constexpr double millisecondsOfDay = 86400000.0;
/// 1970-01-01 as a file time, in units of 100 ns.
constexpr std::uint64_t epochOfScripts = 116444736000000000ULL;

double MillisecondsOf(const SYSTEMTIME& universal) {
    FILETIME file{};
    if (!SystemTimeToFileTime(&universal, &file))
        return std::numeric_limits<double>::quiet_NaN();
    const std::uint64_t units = std::uint64_t{file.dwHighDateTime} << 32 | file.dwLowDateTime;
    return (static_cast<double>(units) - static_cast<double>(epochOfScripts)) / 10000.0;
}

/// Automation's dates tell the local time, scripts' the universal one.
double ScriptDateOf(DATE date) {
    SYSTEMTIME local{};
    SYSTEMTIME universal{};
    // The platform's conversion drops parts of a second.
    if (!VariantTimeToSystemTime(date, &local) ||
        !TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal))
        return std::numeric_limits<double>::quiet_NaN();
    const double milliseconds = MillisecondsOf(universal);
    const double ofDay = std::abs(date - std::trunc(date)) * millisecondsOfDay;
    const double rest = ofDay - ((local.wHour * 60.0 + local.wMinute) * 60.0 + local.wSecond) * 1000.0;
    return std::round(milliseconds + (std::abs(rest) < 1000 ? rest : 0));
}

DATE DateOf(double milliseconds) {
    const double units = std::floor(milliseconds) * 10000.0 + static_cast<double>(epochOfScripts);
    if (!(units >= 0 && units < 9e18))
        throw HResultError(DISP_E_OVERFLOW);
    const auto whole = static_cast<std::uint64_t>(units);
    const FILETIME file{static_cast<DWORD>(whole), static_cast<DWORD>(whole >> 32)};
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    DATE date = 0;
    if (!FileTimeToSystemTime(&file, &universal) ||
        !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local) ||
        !SystemTimeToVariantTime(&local, &date))
        throw HResultError(DISP_E_OVERFLOW);
    const double rest = local.wMilliseconds / millisecondsOfDay;
    return date < 0 ? date - rest : date + rest;
}

ScriptValue ArrayElements(SAFEARRAY* array, UINT dimension, std::vector<LONG>& indices, VARTYPE type,
                          const std::function<ScriptValue(IUnknown*)>& objectValue) {
    LONG low = 0;
    LONG high = -1;
    ThrowIfFailed(SafeArrayGetLBound(array, dimension, &low));
    ThrowIfFailed(SafeArrayGetUBound(array, dimension, &high));
    ScriptArray elements;
    for (LONG index = low; index <= high; ++index) {
        indices[dimension - 1] = index;
        if (dimension < SafeArrayGetDim(array)) {
            elements.push_back(ArrayElements(array, dimension + 1, indices, type, objectValue));
            continue;
        }
        void* element = nullptr;
        ThrowIfFailed(SafeArrayPtrOfIndex(array, indices.data(), &element));
        VARIANT reference{};
        reference.vt = static_cast<VARTYPE>(type | VT_BYREF);
        reference.byref = element;
        elements.push_back(ScriptFromVariant(reference, objectValue));
        if (index == std::numeric_limits<LONG>::max())
            break;
    }
    return {std::move(elements)};
}

}  // namespace

ScriptValue ScriptFromVariant(const VARIANT& value,
                              const std::function<ScriptValue(IUnknown*)>& objectValue) {
    // A copy of what a reference refers to, without adding to what is counted.
    const VARIANT* referred = &value;
    // One step, as the platform allows no more.
    if (referred->vt == (VT_BYREF | VT_VARIANT))
        referred = referred->pvarVal;
    if (!referred || ((referred->vt & VT_BYREF) && !referred->byref) ||
        referred->vt == (VT_BYREF | VT_VARIANT))
        throw HResultError(E_INVALIDARG, L"A reference refers to nothing");
    if (referred->vt & VT_ARRAY) {
        SAFEARRAY* const array = referred->vt & VT_BYREF ? *referred->pparray : referred->parray;
        VARTYPE type = 0;
        if (!array)
            return {ScriptNull()};
        ThrowIfFailed(SafeArrayGetVartype(array, &type));
        std::vector<LONG> indices(SafeArrayGetDim(array));
        return ArrayElements(array, 1, indices, type, objectValue);
    }
    Variant copy;
    ThrowIfFailed(copy.SetCopy(*referred));
    const VARIANT& plain = copy.Get();
    switch (plain.vt) {
        case VT_EMPTY:
            return {ScriptUndefined()};
        case VT_NULL:
            return {ScriptNull()};
        case VT_BOOL:
            return {plain.boolVal != VARIANT_FALSE};
        case VT_BSTR: {
            const std::wstring_view text(plain.bstrVal ? plain.bstrVal : L"", SysStringLen(plain.bstrVal));
            return {std::u16string(text.begin(), text.end())};
        }
        case VT_DATE:
            return {ScriptDate{ScriptDateOf(plain.date)}};
        case VT_ERROR:
            // An argument that was left out.
            if (plain.scode == DISP_E_PARAMNOTFOUND)
                return {ScriptUndefined()};
            return {static_cast<double>(plain.scode)};
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return plain.punkVal ? objectValue(plain.punkVal) : ScriptValue{ScriptNull()};
        default: {
            VARIANT number{};
            if (FAILED(VariantChangeType(&number, const_cast<VARIANT*>(&plain), 0, VT_R8)))
                throw HResultError(DISP_E_BADVARTYPE, L"A value of this type has no form in a script");
            return {number.dblVal};
        }
    }
}

Variant PlainFromScript(const ScriptValue& value) {
    VARIANT result{};
    if (std::holds_alternative<ScriptNull>(value.content)) {
        result.vt = VT_NULL;
    } else if (const bool* const truth = std::get_if<bool>(&value.content)) {
        result.vt = VT_BOOL;
        result.boolVal = *truth ? VARIANT_TRUE : VARIANT_FALSE;
    } else if (const double* const number = std::get_if<double>(&value.content)) {
        const bool isWhole = *number >= -2147483648.0 && *number <= 2147483647.0 &&
                             *number == std::floor(*number) && !(*number == 0 && std::signbit(*number));
        result.vt = isWhole ? VT_I4 : VT_R8;
        if (isWhole)
            result.lVal = static_cast<LONG>(*number);
        else
            result.dblVal = *number;
    } else if (const auto* const text = std::get_if<std::u16string>(&value.content)) {
        result.vt = VT_BSTR;
        result.bstrVal = Bstr(std::wstring(text->begin(), text->end())).Detach();
    } else if (const auto* const date = std::get_if<ScriptDate>(&value.content)) {
        if (std::isfinite(date->milliseconds)) {
            result.date = DateOf(date->milliseconds);
            result.vt = VT_DATE;
        } else {
            result.vt = VT_NULL;
        }
    } else if (const auto* const error = std::get_if<ScriptError>(&value.content)) {
        result.vt = VT_ERROR;
        result.scode = error->number;
    }
    Variant owned;
    *owned.Receive() = result;
    return owned;
}

std::string TypeKey(IDispatch* object) {
    UINT count = 0;
    ComPtr<ITypeInfo> type;
    TYPEATTR* attributes = nullptr;
    if (FAILED(object->GetTypeInfoCount(&count)) || count == 0 ||
        FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive())) || !type ||
        FAILED(type->GetTypeAttr(&attributes)))
        return {};
    const GUID guid = attributes->guid;
    type->ReleaseTypeAttr(attributes);
    if (guid == GUID_NULL)
        return {};
    return {reinterpret_cast<const char*>(&guid), sizeof guid};
}

}  // namespace nux::webbrowser
