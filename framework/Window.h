#pragma once

#include <windows.h>

#include "framework/MessageTarget.h"

namespace nux {

/// A registered window class. It lives as long as the module, and goes with it.
class WindowClass {
public:
    /// @param name        class name, a literal
    /// @param style       CS_ flags
    /// @param background  brush, or a system colour index plus 1, or null if the window paints all of itself
    WindowClass(const char* name, UINT style, HBRUSH background) noexcept;
    /// The same for windows whose messages have wide texts: characters of any language come as WM_CHAR.
    WindowClass(const wchar_t* name, UINT style, HBRUSH background) noexcept;
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass();

    /// Its name for CreateWindowExA.
    const char* Name() const noexcept { return name_; }

private:
    const char* name_;
};

/// Base of the component's own windows. The object outlives the window, or destroys it.
class Window : public MessageTarget {
public:
    ~Window() override { Destroy(); }

    /// Creates the window; `bounds` are screen pixels, or client pixels of the parent for a child.
    /// Throws what a message handler threw meanwhile, and HResultError if the platform refuses.
    void Create(const WindowClass& windowClass, HWND parent, const RECT& bounds, DWORD style,
                DWORD extendedStyle = 0);

    /// Destroys the window if there is one.
    void Destroy() noexcept;

protected:
    explicit Window(MessageTarget* owner = nullptr) noexcept : MessageTarget(owner) {}

    /// Handles a message, or passes it on to Default.
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
        return Default(message, wParam, lParam);
    }
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
        return (IsWindowUnicode(handle_) ? DefWindowProcW : DefWindowProcA)(handle_, message, wParam, lParam);
    }

private:
    friend class WindowClass;
    static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
};

}  // namespace nux
