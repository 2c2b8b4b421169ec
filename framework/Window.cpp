#include "framework/Window.h"

#include "framework/HResult.h"
#include "framework/Module.h"

namespace nux {
namespace {

template <class Description, class Name>
Description Describe(Name name, UINT style, HBRUSH background, WNDPROC procedure) noexcept {
    Description description{};
    description.cbSize = sizeof description;
    description.style = style;
    description.lpfnWndProc = procedure;
    description.hInstance = ThisModule();
    description.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    description.hbrBackground = background;
    description.lpszClassName = name;
    return description;
}

}  // namespace

// A failure of either shows when a window is created.
WindowClass::WindowClass(const char* name, UINT style, HBRUSH background) noexcept : name_(name) {
    const auto description = Describe<WNDCLASSEXA>(name, style, background, &Window::Procedure);
    RegisterClassExA(&description);
}

WindowClass::WindowClass(const wchar_t* name, UINT style, HBRUSH background) noexcept {
    const auto description = Describe<WNDCLASSEXW>(name, style, background, &Window::Procedure);
    name_ = reinterpret_cast<const char*>(static_cast<ULONG_PTR>(RegisterClassExW(&description)));
}

WindowClass::~WindowClass() {
    UnregisterClassA(Name(), ThisModule());
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
