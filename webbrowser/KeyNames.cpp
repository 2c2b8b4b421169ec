#include "webbrowser/KeyNames.h"

#include <algorithm>
#include <iterator>

namespace nux::webbrowser {
namespace {

struct Row {
    unsigned virtualKey;
    const char* code;
    const char* key;
};

constexpr Row rows[] = {
    {0x08, "Backspace", "Backspace"},
    {0x09, "Tab", "Tab"},
    {0x0d, "Enter", "Enter"},
    {0x10, "Shift", "Shift"},
    {0x11, "Control", "Control"},
    {0x12, "Alt", "Alt"},
    {0x13, "Pause", "Pause"},
    {0x14, "CapsLock", "CapsLock"},
    {0x1b, "Escape", "Escape"},
    {0x20, "Space", ""},
    {0x21, "PageUp", "PageUp"},
    {0x22, "PageDown", "PageDown"},
    {0x23, "End", "End"},
    {0x24, "Home", "Home"},
    {0x25, "ArrowLeft", "ArrowLeft"},
    {0x26, "ArrowUp", "ArrowUp"},
    {0x27, "ArrowRight", "ArrowRight"},
    {0x28, "ArrowDown", "ArrowDown"},
    {0x2c, "PrintScreen", "PrintScreen"},
    {0x2d, "Insert", "Insert"},
    {0x2e, "Delete", "Delete"},
    {0x5b, "MetaLeft", "Meta"},
    {0x5c, "MetaRight", "Meta"},
    {0x5d, "ContextMenu", "ContextMenu"},
    {0x6a, "NumpadMultiply", ""},
    {0x6b, "NumpadAdd", ""},
    {0x6d, "NumpadSubtract", ""},
    {0x6e, "NumpadDecimal", ""},
    {0x6f, "NumpadDivide", ""},
    {0x90, "NumLock", "NumLock"},
    {0x91, "ScrollLock", "ScrollLock"},
    {0xba, "Semicolon", ""},
    {0xbb, "Equal", ""},
    {0xbc, "Comma", ""},
    {0xbd, "Minus", ""},
    {0xbe, "Period", ""},
    {0xbf, "Slash", ""},
    {0xc0, "Backquote", ""},
    {0xdb, "BracketLeft", ""},
    {0xdc, "Backslash", ""},
    {0xdd, "BracketRight", ""},
    {0xde, "Quote", ""},
    {0xe2, "IntlBackslash", ""},
};

bool IsModifier(unsigned virtualKey) {
    return virtualKey >= 0x10 && virtualKey <= 0x12;
}

/// Whether the same key lies on the number pad when the message lacks the flag.
bool IsAlsoOnPad(unsigned virtualKey) {
    return (virtualKey >= 0x21 && virtualKey <= 0x28) || virtualKey == 0x2d || virtualKey == 0x2e;
}

}  // namespace

KeyName KeyNameOf(unsigned virtualKey, bool extended) {
    if (virtualKey >= 'A' && virtualKey <= 'Z')
        return {std::string("Key") + static_cast<char>(virtualKey), "", 0};
    if (virtualKey >= '0' && virtualKey <= '9')
        return {std::string("Digit") + static_cast<char>(virtualKey), "", 0};
    if (virtualKey >= 0x60 && virtualKey <= 0x69)
        return {std::string("Numpad") + static_cast<char>('0' + virtualKey - 0x60), "", 3};
    if (virtualKey >= 0x70 && virtualKey <= 0x87) {
        const std::string name = "F" + std::to_string(virtualKey - 0x6f);
        return {name, name, 0};
    }
    const Row* const row = std::find_if(std::begin(rows), std::end(rows),
                                        [&](const Row& each) { return each.virtualKey == virtualKey; });
    if (row == std::end(rows))
        return {};
    KeyName name{row->code, row->key, 0};
    if (IsModifier(virtualKey)) {
        name.code += extended ? "Right" : "Left";
        name.location = extended ? 2 : 1;
    } else if (virtualKey == 0x0d && extended) {
        name = {"NumpadEnter", "Enter", 3};
    } else if ((virtualKey >= 0x6a && virtualKey <= 0x6f) || (IsAlsoOnPad(virtualKey) && !extended)) {
        name.location = 3;
    }
    return name;
}

}  // namespace nux::webbrowser
