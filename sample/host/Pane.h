#pragma once

#include <windows.h>

#include <functional>

#include "framework/Window.h"

namespace nux::host {

/// A part of the main window that draws itself, or is covered by a control.
class Pane : public Window {
public:
    using Paint = std::function<void(HDC context, const RECT& client)>;

    explicit Pane(MessageTarget* owner, Paint paint = {}) : Window(owner), paint_(std::move(paint)) {}

    /// @param parent  window whose child it becomes, without a size
    void Open(HWND parent, DWORD extendedStyle = 0);
    void Redraw() const noexcept { InvalidateRect(Handle(), nullptr, TRUE); }

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    Paint paint_;
};

}  // namespace nux::host
