#pragma once

#include <windows.h>

#include <ole2.h>

#include <utility>

namespace nux {

/// A VARIANT as callers of the component hold one, of any type, also a wrong one; what it holds goes with it.
struct RawVariant : VARIANT {
    RawVariant() noexcept { VariantInit(this); }
    RawVariant(const RawVariant&) = delete;
    RawVariant& operator=(const RawVariant&) = delete;
    ~RawVariant() { VariantClear(this); }

    /// For out arguments: what was held is cleared first.
    VARIANT* Receive() noexcept {
        VariantClear(this);
        return this;
    }
    void Swap(RawVariant& other) noexcept { std::swap<VARIANT>(*this, other); }
    bool IsString() const noexcept { return vt == VT_BSTR; }
};

}  // namespace nux
