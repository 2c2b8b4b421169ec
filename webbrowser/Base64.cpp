#include "webbrowser/Base64.h"

#include <array>

namespace nux::webbrowser {
namespace {

constexpr char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t none = 0xff;

constexpr std::array<std::uint8_t, 256> MakeValues() {
    std::array<std::uint8_t, 256> values{};
    values.fill(none);
    for (std::uint8_t value = 0; value < 64; ++value)
        values[static_cast<unsigned char>(digits[value])] = value;
    return values;
}
constexpr std::array<std::uint8_t, 256> values = MakeValues();

}  // namespace

std::string EncodeBase64(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = bytes.size() - at < 3 ? bytes.size() - at : 3;
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i)
            group = group << 8 | (i < count ? static_cast<unsigned char>(bytes[at + i]) : 0U);
        text += digits[group >> 18];
        text += digits[group >> 12 & 63];
        text += count > 1 ? digits[group >> 6 & 63] : '=';
        text += count > 2 ? digits[group & 63] : '=';
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> DecodeBase64(std::string_view text) {
    if (text.size() % 4 != 0)
        return std::nullopt;
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() / 4 * 3);
    for (std::size_t at = 0; at < text.size(); at += 4) {
        const bool last = at + 4 == text.size();
        const std::size_t padding = !last || text[at + 3] != '=' ? 0 : text[at + 2] != '=' ? 1 : 2;
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 4 - padding; ++i) {
            const std::uint8_t value = values[static_cast<unsigned char>(text[at + i])];
            if (value == none)
                return std::nullopt;
            group |= std::uint32_t{value} << (18 - 6 * i);
        }
        for (std::size_t i = 0; i < 3 - padding; ++i)
            bytes.push_back(static_cast<std::uint8_t>(group >> (16 - 8 * i)));
    }
    return bytes;
}

}  // namespace nux::webbrowser
