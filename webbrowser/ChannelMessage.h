#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

namespace nux::webbrowser {

using Json = nlohmann::json;

/// What the browser says: the answer to a command, or an event.
// NOLINTNEXTLINE(bugprone-exception-escape): moving a Json throws nothing, which its own functions don't say
struct ChannelMessage {
    std::int64_t id = 0;  ///< of the command that is answered; 0 for an event
    std::string method;   ///< of an event
    std::string session;  ///< empty for the browser itself
    Json content;         ///< an object: the result, or the event's arguments
    bool failed = false;  ///< the command has; `content` holds "message"
};

/// @return none for a text that is no message
std::optional<ChannelMessage> ReadChannelMessage(std::string_view text);

// Members of what was read, where anything may be missing or of another type.

/// Empty for none.
std::string TextMember(const Json& object, const char* name);
/// 0 for none.
std::int64_t NumberMember(const Json& object, const char* name);
bool TruthMember(const Json& object, const char* name);
/// An empty object for none.
const Json& ObjectMember(const Json& object, const char* name);

}  // namespace nux::webbrowser
