#pragma once

#include <windows.h>

namespace driver {

// Real input: the pointer and the keyboard of the desktop, as the hardware moves them. What is under the
// pointer gets it, so the window must be in front and nothing else may use the pointer meanwhile. It comes
// beside the posted messages: wait for its effect (WaitFor), not with Settle. Points are screen pixels. Every
// operation returns when the system tells that it is done, and throws NotSeen if that takes too long.
//
// On Wine the X server is asked (xdotool), as if its own devices had moved: input that is injected into Wine
// itself comes back from the X server once more, and late, so that pointer and keys jump.

/// A client point of a window on the screen.
POINT OnScreen(HWND window, POINT client);

void MovePointer(POINT to);
/// Moves the pointer there in so many steps, as a hand does.
void DragPointer(POINT to, int steps = 4);

enum class PointerButton { Left, Right };
/// Presses a button where the pointer is. Waits first, if it would otherwise count as the second press of a
/// double click.
void PressPointer(PointerButton button);
void ReleasePointer(PointerButton button);
/// Presses the left button twice where the pointer is, fast enough for a double click.
void DoubleClickPointer();

/// Holds a key down for as long as it lives: a letter, VK_SHIFT, VK_CONTROL or VK_MENU.
class HeldKey {
public:
    explicit HeldKey(WORD virtualKey);
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;
    ~HeldKey();

private:
    WORD virtualKey_;
};

/// How many handles of this process all input so far has left open: one for each act on Wine, none elsewhere.
unsigned HandlesOfInput();

}  // namespace driver
