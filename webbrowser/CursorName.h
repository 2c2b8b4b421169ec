#pragma once

#include <windows.h>

#include <string_view>

namespace nux::webbrowser {

/// The system's cursor (IDC_) that is nearest to a shape of a page's style, such as "pointer".
LPSTR CursorOf(std::wstring_view shape) noexcept;

}  // namespace nux::webbrowser
