#pragma once

#include <windows.h>

#include <oaidl.h>

#include <span>

#include "framework/Variant.h"

namespace nux {

// Calls of members of another's object, by name or by number.

/// The number of a member.
/// @return S_OK, or the object's failure with `id` DISPID_UNKNOWN
HRESULT FindMember(IDispatch* object, const wchar_t* name, DISPID* id,
                   LCID locale = LOCALE_SYSTEM_DEFAULT) noexcept;

/// Reads a property by its name.
/// @param result  cleared first
/// @return S_OK or the first failure, with `result` empty
HRESULT GetDispatchProperty(IDispatch* object, const wchar_t* name, Variant* result) noexcept;

/// Calls a method by its number.
/// @param arguments  in the order in which a script writes them; at most eight, or E_INVALIDARG
/// @param result     cleared first; null if it is not wanted
/// @return what the object answered
HRESULT CallMethod(IDispatch* object, DISPID id, std::span<const Variant> arguments, Variant* result,
                   LCID locale = LOCALE_SYSTEM_DEFAULT) noexcept;

}  // namespace nux
