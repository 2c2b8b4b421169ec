#include "framework/Window.h"

#include "framework/HResult.h"
#include "framework/Module.h"

namespace nux {
WindowClass::WindowClass(const char* name, UINT style, HBRUSH background) noexcept : name_(name) {
    WNDCLASSEXA description{};
    description.cbSize = sizeof description;
    description.style = style;
    description.lpfnWndProc = &Window::Procedure;
    description.hInstance = ThisModule();
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
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

}  // namespace nux
