#include "driver/Input.h"

#include "driver/Messages.h"
#include "driver/Waiting.h"

namespace driver {
namespace {

void WaitUntilUsable(HWND control) {
    WaitFor("a control that takes input",
            [&] { return IsWindowVisible(control) && IsWindowEnabled(control); });
}

POINT Middle(HWND control) {
    RECT client{};
    GetClientRect(control, &client);
    return {client.right / 2, client.bottom / 2};
}

}  // namespace

void PostMouse(HWND window, UINT message, POINT at, WPARAM keys) {
    Post(window, message, keys, MAKELPARAM(at.x, at.y));
}

void Click(HWND control) {
    Click(control, Middle(control));
}

void Click(HWND control, POINT at) {
    WaitUntilUsable(control);
    PostMouse(control, WM_LBUTTONDOWN, at, MK_LBUTTON);
    PostMouse(control, WM_LBUTTONUP, at);
}

void DoubleClick(HWND control, POINT at) {
    Click(control, at);
    PostMouse(control, WM_LBUTTONDBLCLK, at, MK_LBUTTON);
    PostMouse(control, WM_LBUTTONUP, at);
}

void PressKey(HWND window, WORD virtualKey) {
    const LPARAM scanCode = static_cast<LPARAM>(MapVirtualKeyA(virtualKey, MAPVK_VK_TO_VSC)) << 16;
    Post(window, WM_KEYDOWN, virtualKey, scanCode | 1);
    PostMessageA(window, WM_KEYUP, virtualKey,
                 scanCode | 0xC0000001);  // the window may have gone with the key
}

void Type(HWND control, const std::string& text) {
    WaitUntilUsable(control);
    for (const char character : text)
        Post(control, WM_CHAR, static_cast<unsigned char>(character), 1);
}

void Paste(HWND edit, const std::string& text) {
    Ask(edit, EM_SETSEL, 0, -1);
    // The system itself carries the text to another process.
    Ask(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

}  // namespace driver
