#pragma once

#include <windows.h>

namespace nux {

/// Puts an object into a device context, and the old one back at the end.
class Selection {
public:
    Selection(HDC context, HGDIOBJ object) noexcept
        : context_(context), old_(SelectObject(context, object)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { SelectObject(context_, old_); }

private:
    HDC context_;
    HGDIOBJ old_;
};

/// The painting of a window's invalid part.
class Painting {
public:
    explicit Painting(HWND window) noexcept : window_(window) { BeginPaint(window, &paint_); }
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;
    ~Painting() { EndPaint(window_, &paint_); }

    HDC Context() const noexcept { return paint_.hdc; }
    const RECT& Area() const noexcept { return paint_.rcPaint; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
};

/// The device context of a window's client area, for measures; of the whole screen for null.
class WindowContext {
public:
    explicit WindowContext(HWND window) noexcept : window_(window), context_(GetDC(window)) {}
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    ~WindowContext() { ReleaseDC(window_, context_); }

    HDC Context() const noexcept { return context_; }

private:
    HWND window_;
    HDC context_;
};

}  // namespace nux
