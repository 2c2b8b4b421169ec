#pragma once

#include <windows.h>

#include <oaidl.h>

#include <functional>
#include <string>

#include "framework/Variant.h"
#include "webbrowser/ScriptValue.h"

namespace nux::webbrowser {

/// The value for a page of a VARIANT of any type.
/// @param objectValue  called for an object that isn't null
/// Throws HResultError for a type that scripts can't have (DISP_E_BADVARTYPE).
ScriptValue ScriptFromVariant(const VARIANT& value, const std::function<ScriptValue(IUnknown*)>& objectValue);

/// A value of a page that is no object, as a script engine gives it: whole numbers of 32 bits as VT_I4,
/// others as VT_R8, undefined as VT_EMPTY, an error as VT_ERROR.
Variant PlainFromScript(const ScriptValue& value);

/// Names the type of an object, if it has a description; empty otherwise.
std::string TypeKey(IDispatch* object);

}  // namespace nux::webbrowser
