#pragma once

#include <windows.h>

#include <string>

namespace nux::host {

/// A text of the program in the user's language, empty if there is none.
std::string Text(UINT id);
/// The same with `value` in the place of its "%s".
std::string Text(UINT id, const std::string& value);
/// What an operation has answered, for people: "OK", or the code with the system's words.
std::string TextOfResult(HRESULT result);

}  // namespace nux::host
