#include "webbrowser/Utf.h"

#include <cstdint>

namespace nux::webbrowser {
namespace {

bool IsFirstHalf(char16_t unit) noexcept {
    return unit >= 0xd800 && unit < 0xdc00;
}
bool IsSecondHalf(char16_t unit) noexcept {
    return unit >= 0xdc00 && unit < 0xe000;
}
bool IsPairAt(std::u16string_view text, std::size_t at) noexcept {
    return IsFirstHalf(text[at]) && at + 1 < text.size() && IsSecondHalf(text[at + 1]);
}

constexpr char32_t replacement = 0xfffd;

/// Reads one character and moves `at` behind it; of bytes that are none, one byte.
char32_t ReadCharacter(std::string_view text, std::size_t& at) noexcept {
    const auto first = static_cast<unsigned char>(text[at++]);
    if (first < 0x80)
        return first;
    const std::size_t following = first >= 0xf0 && first < 0xf8   ? 3
                                  : first >= 0xe0 && first < 0xf0 ? 2
                                  : first >= 0xc2 && first < 0xe0 ? 1
                                                                  : 0;
    if (following == 0 || text.size() - at < following)
        return replacement;
    char32_t character = first & (0x3fU >> following);
    for (std::size_t i = 0; i < following; ++i) {
        const auto next = static_cast<unsigned char>(text[at + i]);
        if ((next & 0xc0U) != 0x80)
            return replacement;
        character = character << 6 | (next & 0x3fU);
    }
    constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    if (character < smallest[following] || character > 0x10ffff ||
        (character >= 0xd800 && character < 0xe000))
        return replacement;
    at += following;
    return character;
}

}  // namespace

bool IsWellFormed(std::u16string_view text) noexcept {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (IsPairAt(text, at))
            ++at;
        else if (IsFirstHalf(text[at]) || IsSecondHalf(text[at]))
            return false;
    }
    return true;
}

std::string ToUtf8(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        char32_t character = text[at];
        if (IsPairAt(text, at)) {
            character = 0x10000 + ((character - 0xd800) << 10) + (text[at + 1] - 0xdc00U);
            ++at;
        } else if (IsFirstHalf(text[at]) || IsSecondHalf(text[at])) {
            character = replacement;
        }
        if (character < 0x80) {
            result += static_cast<char>(character);
        } else if (character < 0x800) {
            result += static_cast<char>(0xc0 | character >> 6);
            result += static_cast<char>(0x80 | (character & 0x3f));
        } else if (character < 0x10000) {
            result += static_cast<char>(0xe0 | character >> 12);
            result += static_cast<char>(0x80 | (character >> 6 & 0x3f));
            result += static_cast<char>(0x80 | (character & 0x3f));
        } else {
            result += static_cast<char>(0xf0 | character >> 18);
            result += static_cast<char>(0x80 | (character >> 12 & 0x3f));
            result += static_cast<char>(0x80 | (character >> 6 & 0x3f));
            result += static_cast<char>(0x80 | (character & 0x3f));
        }
    }
    return result;
}

std::u16string FromUtf8(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = ReadCharacter(text, at);
        if (character < 0x10000) {
            result += static_cast<char16_t>(character);
        } else {
            result += static_cast<char16_t>(0xd800 + ((character - 0x10000) >> 10));
            result += static_cast<char16_t>(0xdc00 + ((character - 0x10000) & 0x3ff));
        }
    }
    return result;
}

}  // namespace nux::webbrowser
