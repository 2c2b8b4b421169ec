// What a browser and a page's script write: any bytes are cut into messages, read, and written again as they
// were understood.

#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "webbrowser/Base64.h"
#include "webbrowser/ChannelMessage.h"
#include "webbrowser/MessageReader.h"
#include "webbrowser/ScriptValue.h"

using namespace nux::webbrowser;

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

void ReadValue(const std::string& text) {
    std::string once;
    try {
        once = EncodeScriptValue(DecodeScriptValue(text));
    } catch (const std::invalid_argument&) {
        return;
    }
    Require(EncodeScriptValue(DecodeScriptValue(once)) == once);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    MessageReader whole;
    MessageReader pieces;
    Require(whole.Append(bytes));
    std::string together;
    for (const char byte : bytes) {
        Require(pieces.Append({&byte, 1}));
        while (const auto message = pieces.Next())
            together += *message + '\0';
    }
    std::string read;
    while (const auto message = whole.Next()) {
        read += *message + '\0';
        ReadValue(*message);
        if (const auto understood = ReadChannelMessage(*message)) {
            Require(understood->content.is_object());
            Require((understood->id != 0) == understood->method.empty());
            TextMember(understood->content, "data");
            NumberMember(understood->content, "currentIndex");
        }
    }
    Require(read == together);
    ReadValue(bytes);
    if (const auto decoded = DecodeBase64(bytes)) {
        const auto again =
            DecodeBase64(EncodeBase64({reinterpret_cast<const char*>(decoded->data()), decoded->size()}));
        Require(again && *again == *decoded);
    }
    return 0;
}
