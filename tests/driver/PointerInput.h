#pragma once

#include <windows.h>

namespace driver {

// Real input: the system's own pointer and keyboard, as the hardware moves them. What is under the pointer
// gets it, so the window must be in front and nothing else may use the pointer meanwhile. It comes beside the
// posted messages: wait for its effect (WaitFor), not with Settle. Points are screen pixels.

/// A client point of a window on the screen.
POINT OnScreen(HWND window, POINT client);

/// Moves the pointer and waits until it is there. Throws NotSeen.
void MovePointer(POINT to);
/// Moves it there in so many steps, as a hand does.
void DragPointer(POINT to, int steps = 8);

enum class PointerButton { Left, Right };
/// Presses a button where the pointer is. Waits first, if it would otherwise count as the second press of a
/// double click.
void PressPointer(PointerButton button);
void ReleasePointer(PointerButton button);

/// Holds a key down for as long as it lives.
class HeldKey {
public:
    explicit HeldKey(WORD virtualKey);
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;
    ~HeldKey();

private:
    WORD virtualKey_;
};

}  // namespace driver
