#pragma once

#include <windows.h>

#include <oaidl.h>

namespace nux {

/// Reads a property of an object by its name.
/// @param result  an initialised VARIANT, cleared first; the caller owns what it receives
/// @return S_OK or the first failure, with `result` empty
HRESULT GetDispatchProperty(IDispatch* object, const wchar_t* name, VARIANT* result) noexcept;

}  // namespace nux
