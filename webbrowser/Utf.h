#pragma once

#include <string>
#include <string_view>

namespace nux::webbrowser {

/// Whether each half of a surrogate pair has its other half.
bool IsWellFormed(std::u16string_view text) noexcept;

/// UTF-8 of a text; what is not well formed becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);

/// UTF-16 of a text; bytes that are no UTF-8 become U+FFFD.
std::u16string FromUtf8(std::string_view text);

/// The same for texts of the platform, which are UTF-16 on Windows.
inline std::string ToUtf8(std::wstring_view text) {
    return ToUtf8(std::u16string(text.begin(), text.end()));
}
inline std::wstring WideFromUtf8(std::string_view text) {
    const std::u16string wide = FromUtf8(text);
    return {wide.begin(), wide.end()};
}

}  // namespace nux::webbrowser
