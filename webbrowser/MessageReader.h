#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace nux::webbrowser {

/// Cuts what the browser writes into its messages: each ends with a null byte.
class MessageReader {
public:
    /// A longer message is none that this project's pages cause.
    static constexpr std::size_t longest = 64U << 20;

    /// Adds what was read. @return false if a message gets longer than that; nothing more is read then
    bool Append(std::string_view bytes);

    /// The next complete message, without its end; none until more has been read.
    std::optional<std::string> Next();

private:
    std::string pending_;
    std::size_t begin_ = 0;     ///< of the next message
    std::size_t searched_ = 0;  ///< no end lies before
    bool overlong_ = false;
};

}  // namespace nux::webbrowser
