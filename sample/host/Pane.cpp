#include "host/Pane.h"

namespace nux::host {

void Pane::Open(HWND parent, DWORD extendedStyle) {
    static const WindowClass windowClass("SampleHostPane", CS_HREDRAW | CS_VREDRAW,
                                         reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1));
    Create(windowClass, parent, RECT{}, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, extendedStyle);
}

LRESULT Pane::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_PAINT)
        return Default(message, wParam, lParam);
    PAINTSTRUCT painting{};
    if (const HDC context = BeginPaint(Handle(), &painting); context && paint_) {
        RECT client{};
        GetClientRect(Handle(), &client);
        paint_(context, client);
    }
    EndPaint(Handle(), &painting);
    return 0;
}

}  // namespace nux::host
