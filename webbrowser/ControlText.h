#pragma once

#include <windows.h>

#include <string>

#include "framework/Module.h"

namespace nux::webbrowser {

/// A text of the module's string table. Throws std::bad_alloc.
inline std::wstring ControlText(UINT id) {
    const wchar_t* text = nullptr;
    // With no room given the platform tells where the text lies.
    const int length = LoadStringW(ThisModule(), id, reinterpret_cast<LPWSTR>(&text), 0);
    return length > 0 ? std::wstring(text, static_cast<std::size_t>(length)) : std::wstring();
}

}  // namespace nux::webbrowser
