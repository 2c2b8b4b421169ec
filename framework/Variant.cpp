#include "framework/Variant.h"

namespace nux {

HRESULT Variant::SetCopy(const VARIANT& source) noexcept {
    VARIANT copy{};
    // The platform's declaration is not const, its contract is.
    const HRESULT copied = VariantCopyInd(&copy, const_cast<VARIANT*>(&source));
    if (SUCCEEDED(copied))
        Take(copy);
    return copied;
}

}  // namespace nux
