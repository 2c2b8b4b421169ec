#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nux::webbrowser {

/// How the channel carries bytes.
std::string EncodeBase64(std::string_view bytes);

/// @return none if the text holds anything else than whole groups of four characters
std::optional<std::vector<std::uint8_t>> DecodeBase64(std::string_view text);

}  // namespace nux::webbrowser
