#include "framework/Window.h"

#include <commctrl.h>

#include <utility>

#include "framework/HResult.h"
#include "framework/Module.h"

namespace nux {
namespace {

HRESULT LastFailure() noexcept {
    const DWORD error = GetLastError();
    return error ? HRESULT_FROM_WIN32(error) : E_FAIL;
}

/// Messages whose answer is the dialog procedure's own return value.
bool AnswersDirectly(UINT message) noexcept {
    switch (message) {
        case WM_INITDIALOG:
        case WM_CHARTOITEM:
        case WM_VKEYTOITEM:
        case WM_COMPAREITEM:
        case WM_QUERYDRAGICON:
        case WM_CTLCOLORMSGBOX:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
            return true;
        default:
            return false;
    }
}

}  // namespace

void MessageTarget::RethrowFailure() {
    if (const std::exception_ptr failure = std::exchange(failure_, nullptr))
        std::rethrow_exception(failure);
}

WindowClass::WindowClass(const char* name, UINT style, HBRUSH background) noexcept : name_(name) {
    WNDCLASSEXA description{};
    description.cbSize = sizeof description;
    description.style = style;
    description.lpfnWndProc = &Window::Procedure;
    description.hInstance = ThisModule();
    description.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));  // the arrow
    description.hbrBackground = background;
    description.lpszClassName = name;
    RegisterClassExA(&description);  // a failure shows when a window is created
}

WindowClass::~WindowClass() {
    UnregisterClassA(name_, ThisModule());
}

void Window::Create(const WindowClass& windowClass, HWND parent, const RECT& bounds, DWORD style,
                    DWORD extendedStyle) {
    const HWND created = CreateWindowExA(extendedStyle, windowClass.Name(), "", style, bounds.left,
                                         bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top,
                                         parent, nullptr, ThisModule(), this);
    const HRESULT result = created ? S_OK : LastFailure();
    try {
        RethrowFailure();
    } catch (...) {
        Destroy();
        throw;
    }
    ThrowIfFailed(result);
}

void Window::Destroy() noexcept {
    if (handle_)
        DestroyWindow(handle_);
}

LRESULT CALLBACK Window::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* created = static_cast<Window*>(reinterpret_cast<CREATESTRUCTA*>(lParam)->lpCreateParams);
        created->handle_ = handle;
        SetWindowLongPtrA(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrA(handle, GWLP_USERDATA));
    if (!self)
        return DefWindowProcA(handle, message, wParam, lParam);
    // No window stays whose start has failed.
    const LRESULT fallback = message == WM_CREATE ? -1 : 0;
    const LRESULT answer = self->Contain(fallback, [&] { return self->OnMessage(message, wParam, lParam); });
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrA(handle, GWLP_USERDATA, 0);
        self->handle_ = nullptr;
    }
    return answer;
}

INT_PTR Dialog::RunModal(HWND parent, UINT dialogTemplate) {
    const INT_PTR code =
        DialogBoxParamA(ResourceModule(), MAKEINTRESOURCEA(dialogTemplate), parent, &Dialog::Procedure,
                        reinterpret_cast<LPARAM>(static_cast<Dialog*>(this)));
    RethrowFailure();
    return code;
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
    if (!handled)
        return FALSE;
    if (AnswersDirectly(message))
        return static_cast<INT_PTR>(answer);
    SetWindowLongPtrA(handle, DWLP_MSGRESULT, answer);
    return TRUE;
}

void SubclassedWindow::Attach(HWND control) {
    Detach();
    if (!SetWindowSubclass(control, &SubclassedWindow::Procedure, reinterpret_cast<UINT_PTR>(this),
                           reinterpret_cast<DWORD_PTR>(this)))
        throw HResultError(E_FAIL);
    handle_ = control_ = control;
}

void SubclassedWindow::Detach() noexcept {
    if (handle_)
        RemoveWindowSubclass(std::exchange(handle_, nullptr), &SubclassedWindow::Procedure,
                             reinterpret_cast<UINT_PTR>(this));
}

LRESULT SubclassedWindow::Default(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return DefSubclassProc(control_, message, wParam, lParam);
}

LRESULT CALLBACK SubclassedWindow::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam,
                                             UINT_PTR, DWORD_PTR pointer) {
    auto* self = reinterpret_cast<SubclassedWindow*>(pointer);
    if (message == WM_NCDESTROY) {
        self->Detach();
        return DefSubclassProc(handle, message, wParam, lParam);
    }
    return self->Contain(0, [&] { return self->OnMessage(message, wParam, lParam); });
}

}  // namespace nux
