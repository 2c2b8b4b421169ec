#pragma once

#include <windows.h>

#include <ole2.h>

#include <string_view>
#include <utility>

#include "framework/ComPtr.h"
#include "framework/Text.h"

namespace nux {

/// Owns a VARIANT and its content.
class Variant {
public:
    Variant() noexcept { VariantInit(&value_); }
    /// A text, widened from the code page. Throws std::bad_alloc.
    explicit Variant(std::string_view text, UINT codePage = CP_THREAD_ACP) : Variant() {
        SetText(Bstr(text, codePage));
    }
    Variant(Variant&& other) noexcept : Variant() { Swap(other); }
    Variant& operator=(Variant&& other) noexcept {
        Swap(other);
        return *this;
    }
    ~Variant() { VariantClear(&value_); }

    // What was held goes last in each setter: its release may call back.

    void SetText(Bstr text) noexcept {
        VARIANT value{};
        value.vt = VT_BSTR;
        value.bstrVal = text.Detach();
        Take(value);
    }
    void SetNumber(LONG number) noexcept {
        VARIANT value{};
        value.vt = VT_I4;
        value.lVal = number;
        Take(value);
    }
    /// An object, or null.
    void SetObject(ComPtr<IDispatch> object) noexcept {
        VARIANT value{};
        value.vt = VT_DISPATCH;
        value.pdispVal = object.Detach();
        Take(value);
    }
    void SetError(SCODE code) noexcept {
        VARIANT value{};
        value.vt = VT_ERROR;
        value.scode = code;
        Take(value);
    }
    /// Takes over an array of VARIANT that the caller owns.
    void SetArray(SAFEARRAY* array) noexcept {
        VARIANT value{};
        value.vt = VT_ARRAY | VT_VARIANT;
        value.parray = array;
        Take(value);
    }
    /// Keeps a copy of the value, or of the one that it refers to; a copy never points into a caller's
    /// variable.
    /// @return what VariantCopyInd returned; on failure nothing has changed
    HRESULT SetCopy(const VARIANT& source) noexcept;

    VARTYPE Type() const noexcept { return value_.vt; }
    bool IsString() const noexcept { return value_.vt == VT_BSTR; }
    /// The text of a VT_BSTR, which stays the variant's; null may stand for an empty one.
    BSTR Text() const noexcept { return value_.bstrVal; }
    /// The number of a VT_I4.
    LONG Number() const noexcept { return value_.lVal; }
    /// The object of a VT_DISPATCH, which may be null.
    IDispatch* Object() const noexcept { return value_.pdispVal; }
    /// The value as arguments of other modules take it; its content stays the variant's.
    const VARIANT& Get() const noexcept { return value_; }

    /// Replaces a caller's initialised VARIANT by a copy. @return what VariantCopy returned
    HRESULT CopyTo(VARIANT* target) const noexcept {
        return VariantCopy(target, const_cast<VARIANT*>(&value_));
    }
    /// Gives the value to the caller.
    [[nodiscard]] VARIANT Detach() noexcept { return std::exchange(value_, VARIANT{}); }
    /// For out arguments: what was held is cleared first.
    VARIANT* Receive() noexcept {
        VariantClear(&value_);
        return &value_;
    }
    /// Exchanges the contents of two variants.
    void Swap(Variant& other) noexcept { std::swap(value_, other.value_); }

private:
    void Take(const VARIANT& value) noexcept {
        VARIANT old = std::exchange(value_, value);
        VariantClear(&old);
    }

    VARIANT value_;
};

}  // namespace nux
