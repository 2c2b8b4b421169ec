#include "webbrowser/ChannelMessage.h"

namespace nux::webbrowser {
namespace {

/// Deeper ones are none of the browser's.
constexpr int deepest = 256;

const Json* Member(const Json& object, const char* name) {
    if (!object.is_object())
        return nullptr;
    const auto found = object.find(name);
    return found == object.end() ? nullptr : &*found;
}

/// Made with the module: two threads ask for it.
const Json none = Json::object();

}  // namespace

std::optional<ChannelMessage> ReadChannelMessage(std::string_view text) {
    bool tooDeep = false;
    Json json = Json::parse(
        text,
        [&](int depth, Json::parse_event_t, Json&) {
            tooDeep = tooDeep || depth > deepest;
            return !tooDeep;
        },
        false);
    if (tooDeep || !json.is_object())
        return std::nullopt;
    ChannelMessage message;
    message.id = NumberMember(json, "id");
    message.method = TextMember(json, "method");
    message.session = TextMember(json, "sessionId");
    if ((message.id == 0) == message.method.empty())
        return std::nullopt;
    message.failed = message.id != 0 && !json.contains("result");
    message.content = ObjectMember(json, message.id == 0 ? "params" : message.failed ? "error" : "result");
    return message;
}

std::string TextMember(const Json& object, const char* name) {
    const Json* const member = Member(object, name);
    return member && member->is_string() ? member->get<std::string>() : std::string();
}

std::int64_t NumberMember(const Json& object, const char* name) {
    const Json* const member = Member(object, name);
    if (!member || !member->is_number())
        return 0;
    if (!member->is_number_float())
        return member->get<std::int64_t>();
    const double number = member->get<double>();
    constexpr double largest = 9007199254740991.0;
    return number >= -largest && number <= largest ? static_cast<std::int64_t>(number) : 0;
}

bool TruthMember(const Json& object, const char* name) {
    const Json* const member = Member(object, name);
    return member && member->is_boolean() && member->get<bool>();
}

const Json& ObjectMember(const Json& object, const char* name) {
    const Json* const member = Member(object, name);
    return member && member->is_object() ? *member : none;
}

}  // namespace nux::webbrowser
