#pragma once

#include <windows.h>

#include <oaidl.h>

#include "framework/ComPtr.h"
#include "framework/ErrorInfo.h"

namespace nux {

/// Hands out a reference of an object, or null and S_FALSE. Raises E_INVALIDARG for a null pointer.
template <class Interface>
HRESULT HandOut(const ComPtr<Interface>& object, IDispatch** pVal) {
    Require(pVal, L"pVal");
    object.CopyTo(pVal);
    return object ? S_OK : S_FALSE;
}

}  // namespace nux
