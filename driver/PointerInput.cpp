#include "driver/PointerInput.h"

#include <cctype>
#include <cstdlib>
#include <string>

#include "driver/Waiting.h"

namespace driver {
namespace {

bool RunsOnWine() {
    return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

unsigned handlesOfInput = 0;

/// Starts the program that works the devices of the X server. Nothing tells its end: Wine leaves `process`
/// unset for a program of the machine, and keeps a handle of a file for it that nobody can close.
void AskXServer(const std::string& action) {
    std::string commandLine = "xdotool " + action;
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA("Z:\\usr\\bin\\xdotool", commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &start, &process))
        throw NotSeen("xdotool to start");
    ++handlesOfInput;
}

void Send(INPUT& input) {
    SendInput(1, &input, sizeof input);
}

void SendMove(POINT to) {
    if (RunsOnWine())
        return AskXServer("mousemove " + std::to_string(to.x) + " " + std::to_string(to.y));
    // Absolute positions are 65536ths of the screen; half a pixel more keeps the division exact.
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = static_cast<LONG>((to.x * 65536LL + 32768) / GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = static_cast<LONG>((to.y * 65536LL + 32768) / GetSystemMetrics(SM_CYSCREEN));
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    Send(input);
}

void SendButton(PointerButton button, bool down) {
    const bool left = button == PointerButton::Left;
    if (RunsOnWine())
        return AskXServer(std::string(down ? "mousedown " : "mouseup ") + (left ? "1" : "3"));
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = left ? (down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP)
                            : (down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP);
    Send(input);
}

std::string XKeyName(WORD virtualKey) {
    switch (virtualKey) {
        case VK_SHIFT:
            return "Shift_L";
        case VK_CONTROL:
            return "Control_L";
        case VK_MENU:
            return "Alt_L";
        default:
            return std::string(1, static_cast<char>(std::tolower(virtualKey)));
    }
}

void SendKey(WORD virtualKey, bool down) {
    if (RunsOnWine())
        return AskXServer((down ? "keydown " : "keyup ") + XKeyName(virtualKey));
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    Send(input);
}

void WaitForKey(int virtualKey, bool down) {
    WaitFor(down ? "a pressed key" : "a released key",
            [&] { return (GetAsyncKeyState(virtualKey) < 0) == down; });
}

int KeyOf(PointerButton button) {
    return button == PointerButton::Left ? VK_LBUTTON : VK_RBUTTON;
}

}  // namespace

unsigned HandlesOfInput() {
    return handlesOfInput;
}

POINT OnScreen(HWND window, POINT client) {
    ClientToScreen(window, &client);
    return client;
}

void MovePointer(POINT to) {
    SendMove(to);
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
    SendButton(button, true);
    WaitForKey(KeyOf(button), true);
    last = {button, place, GetTickCount64()};
}

void ReleasePointer(PointerButton button) {
    SendButton(button, false);
    WaitForKey(KeyOf(button), false);
}

void DoubleClickPointer() {
    PressPointer(PointerButton::Left);
    ReleasePointer(PointerButton::Left);
    SendButton(PointerButton::Left, true);
    WaitForKey(VK_LBUTTON, true);
    ReleasePointer(PointerButton::Left);
}

HeldKey::HeldKey(WORD virtualKey) : virtualKey_(virtualKey) {
    SendKey(virtualKey_, true);
    WaitForKey(virtualKey_, true);
}

HeldKey::~HeldKey() {
    SendKey(virtualKey_, false);
    try {
        WaitForKey(virtualKey_, false);
    } catch (const NotSeen&) {
        // The next one that needs the key will tell.
    }
}

}  // namespace driver
