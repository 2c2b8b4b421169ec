#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace nux::webbrowser {

// The text that programs share. Lines end as pages have them, with a line feed alone.

/// @param window  whose the clipboard is meanwhile; may be null
/// @return empty if there is no text, or another program doesn't let go of the clipboard
std::wstring ClipboardText(HWND window);
/// Takes the place of all that is there. @return whether it is there now
bool SetClipboardText(HWND window, std::wstring_view text);

}  // namespace nux::webbrowser
