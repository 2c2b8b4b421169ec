#pragma once

#include <string>

namespace nux::webbrowser {

/// A key as pages know it.
struct KeyName {
    std::string code;  ///< where it lies: "KeyA", "Digit1", "Tab"; empty if nobody asks
    std::string key;   ///< what it means; empty for a key that writes a character
    int location = 0;  ///< 1 left, 2 right, 3 number pad
};

/// @param virtualKey  the platform's number
/// @param extended    the flag of its message: right Ctrl, the arrows beside the number pad and so on
KeyName KeyNameOf(unsigned virtualKey, bool extended);

}  // namespace nux::webbrowser
