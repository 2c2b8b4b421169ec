#pragma once

#include <windows.h>

namespace nux {

/// Keeps a control from redrawing itself while many of its items change. Only for a control that has its own
/// WS_VISIBLE style, be its dialog shown yet or not: the end of the pause sets that style.
class RedrawPause {
public:
    explicit RedrawPause(HWND control) noexcept
        : control_(GetWindowLongPtrA(control, GWL_STYLE) & WS_VISIBLE ? control : nullptr) {
        Send(FALSE);
    }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;
    ~RedrawPause() { Send(TRUE); }

private:
    void Send(BOOL redraw) noexcept {
        if (control_)
            SendMessageA(control_, WM_SETREDRAW, redraw, 0);
    }

    HWND control_;
};

}  // namespace nux
