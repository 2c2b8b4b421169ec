#pragma once

#include <windows.h>

#include <string_view>

namespace nux::webbrowser {

/// A text of this module's resources (RCDATA). Throws HResultError without it.
std::string_view ResourceText(UINT resource);

}  // namespace nux::webbrowser
