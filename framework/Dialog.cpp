#include "framework/Dialog.h"

#include <windowsx.h>

#include <algorithm>

#include "framework/HResult.h"
#include "framework/Icons.h"
#include "framework/Module.h"

namespace nux {
Dialog::~Dialog() {
    if (handle_)
        DestroyWindow(handle_);
}

INT_PTR Dialog::RunModal(HWND parent, UINT dialogTemplate) {
    const LiveObject loaded;
    modal_ = true;
    const INT_PTR code = DialogBoxParamA(ResourceModule(), MAKEINTRESOURCEA(dialogTemplate), parent,
                                         &Dialog::Procedure, reinterpret_cast<LPARAM>(this));
    RethrowFailure();
    return code;
}

void Dialog::CreateModeless(HWND parent, UINT dialogTemplate) {
    modal_ = false;
    const HWND made = CreateDialogParamA(ResourceModule(), MAKEINTRESOURCEA(dialogTemplate), parent,
                                         &Dialog::Procedure, reinterpret_cast<LPARAM>(this));
    const HRESULT result = made ? S_OK : LastFailure();
    RethrowFailure();
    ThrowIfFailed(result);
}

void Dialog::End(INT_PTR code) noexcept {
    if (modal_)
        EndDialog(handle_, code);
    else if (handle_)
        DestroyWindow(handle_);
}

void Dialog::SetIcon(UINT icon) noexcept {
    icon_ = LoadCaptionIcon(icon);
    SendMessageA(handle_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon_.Get()));
}

void Dialog::Centre() const noexcept {
    const HWND owner = GetWindow(handle_, GW_OWNER);
    const HMONITOR monitor = MonitorFromWindow(owner ? owner : handle_, MONITOR_DEFAULTTONEAREST);
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoA(monitor, &screen);
    const RECT& area = screen.rcWork;
    const RECT around = owner && IsWindowVisible(owner) && !IsIconic(owner) ? WindowRectangle(owner) : area;
    const RECT own = WindowRectangle(handle_);
    const auto middle = [](LONG from, LONG to, LONG size, LONG least, LONG most) {
        return std::max(least, std::min(from + (to - from - size) / 2, most - size));
    };
    SetWindowPos(handle_, nullptr,
                 middle(around.left, around.right, own.right - own.left, area.left, area.right),
                 middle(around.top, around.bottom, own.bottom - own.top, area.top, area.bottom), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR CALLBACK Dialog::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(handle, DWLP_USER, lParam);
        reinterpret_cast<Dialog*>(lParam)->handle_ = handle;
    }
    auto* self = reinterpret_cast<Dialog*>(GetWindowLongPtrA(handle, DWLP_USER));
    if (!self)
        return FALSE;
    bool handled = false;
    const LRESULT answer = self->Contain(0, [&] {
        const std::optional<LRESULT> given = self->OnMessage(message, wParam, lParam);
        handled = given.has_value();
        return given.value_or(0);
    });
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrA(handle, DWLP_USER, 0);
        self->handle_ = nullptr;
        return FALSE;
    }
    return handled ? SetDlgMsgResult(handle, message, answer) : FALSE;
}

}  // namespace nux
