#pragma once

#include <windows.h>

namespace nux {

/// Keeps a control from redrawing itself while many of its items change. A control without the WS_VISIBLE
/// style is left alone: the end of the pause would show it. That the control's dialog is not shown yet
/// doesn't matter.
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
