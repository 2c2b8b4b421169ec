#include "tests/driver/PointerInput.h"

#include <cstdlib>

#include "tests/driver/Waiting.h"

namespace driver {
namespace {

void SendButton(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

void SendKey(WORD virtualKey, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

}  // namespace

POINT OnScreen(HWND window, POINT client) {
    ClientToScreen(window, &client);
    return client;
}

void MovePointer(POINT to) {
    // Absolute positions are 65536ths of the screen; half a pixel more keeps the division exact.
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = static_cast<LONG>((to.x * 65536LL + 32768) / GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = static_cast<LONG>((to.y * 65536LL + 32768) / GetSystemMetrics(SM_CYSCREEN));
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    SendInput(1, &input, sizeof input);
    WaitFor("the pointer to arrive", [&] {
        POINT now{};
        return GetCursorPos(&now) && now.x == to.x && now.y == to.y;
    });
}

void DragPointer(POINT to, int steps) {
    POINT from{};
    GetCursorPos(&from);
    for (int step = 1; step <= steps; ++step)
        MovePointer({from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps});
}

void PressPointer(PointerButton button) {
    static struct {
        PointerButton button;
        POINT place;
        ULONGLONG time = 0;
    } last;
    POINT place{};
    GetCursorPos(&place);
    if (button == last.button && std::abs(place.x - last.place.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
        std::abs(place.y - last.place.y) <= GetSystemMetrics(SM_CYDOUBLECLK))
        WaitFor("the end of a double click's time",
                [&] { return GetTickCount64() > last.time + GetDoubleClickTime(); });
    last = {button, place, GetTickCount64()};
    SendButton(button == PointerButton::Left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN);
}

void ReleasePointer(PointerButton button) {
    SendButton(button == PointerButton::Left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
}

HeldKey::HeldKey(WORD virtualKey) : virtualKey_(virtualKey) {
    SendKey(virtualKey_, 0);
}

HeldKey::~HeldKey() {
    SendKey(virtualKey_, KEYEVENTF_KEYUP);
}

}  // namespace driver
