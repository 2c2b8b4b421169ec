#pragma once

#include <windows.h>

#include <string>

namespace driver {

// Posted input: messages as the mouse and the keyboard cause them, put into the queue of the window. They are
// exact and need neither focus nor pointer. Positions are client pixels of the window, which may be negative.
// A window that is hidden or disabled gets no input from a user, so Click, DoubleClick and Type wait until it
// is neither. All throw NotSeen.

/// Left click into the middle of a control.
void Click(HWND control);
/// Left click at a point.
void Click(HWND control, POINT at);
/// Left double click at a point.
void DoubleClick(HWND control, POINT at);

/// Single steps of a gesture. `message` is one of the WM_LBUTTON... or WM_RBUTTON... messages or
/// WM_MOUSEMOVE, `keys` its MK_ flags.
void PostMouse(HWND window, UINT message, POINT at, WPARAM keys = 0);

/// One key down and up.
void PressKey(HWND window, WORD virtualKey);
/// Characters, each as one WM_CHAR.
void Type(HWND control, const std::string& text);
/// Replaces the text of an edit field, as a user does who marks all and pastes; no WM_CHAR is sent.
void Paste(HWND edit, const std::string& text);

}  // namespace driver
