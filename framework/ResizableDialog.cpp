#include "framework/ResizableDialog.h"

namespace nux {
namespace {

PixelRectangle ClientPlace(HWND dialog, HWND control) noexcept {
    RECT place = WindowRectangle(control);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return ToPixels(place);
}

}  // namespace

void ResizableDialog::StartLayout(std::initializer_list<AnchoredControl> controls) {
    DialogLayout layout(ToPixels(WindowRectangle(Handle())));
    for (const AnchoredControl& control : controls) {
        layout.Add(ClientPlace(Handle(), control.control), control.anchors);
        controls_.push_back(control.control);
    }
    layout_ = std::move(layout);
}

DialogFrame ResizableDialog::Frame() const {
    return layout_->FrameOf(ToPixels(WindowRectangle(Handle())));
}

void ResizableDialog::SetFrame(const DialogFrame& frame) {
    const PixelSize size = layout_->WindowSize(frame);
    MoveWindow(Handle(), frame.position.x, frame.position.y, size.width, size.height, FALSE);
}

std::optional<LRESULT> ResizableDialog::OnMessage(UINT message, WPARAM, LPARAM lParam) {
    if (!layout_)
        return std::nullopt;
    switch (message) {
        case WM_GETMINMAXINFO: {
            const PixelSize minimum = layout_->MinimumSize();
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {minimum.width, minimum.height};
            return 0;
        }
        case WM_WINDOWPOSCHANGING:
            OnPositionChanging(*reinterpret_cast<WINDOWPOS*>(lParam));
            return 0;
        default:
            return std::nullopt;
    }
}

void ResizableDialog::OnPositionChanging(WINDOWPOS& position) {
    if (!(position.flags & SWP_NOSIZE)) {
        const PixelSize raised = layout_->RaisedToMinimum({position.cx, position.cy});
        position.cx = raised.width;
        position.cy = raised.height;
    }
    // The system has the last word on the size that the controls are placed for.
    DefWindowProcA(Handle(), WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&position));
    if (!(position.flags & SWP_NOSIZE))
        PlaceControls({position.cx, position.cy});
}

void ResizableDialog::PlaceControls(PixelSize window) {
    auto control = controls_.begin();
    for (const DialogLayout::Place& place : layout_->PlaceControls(window)) {
        const UINT kept = (place.position ? 0 : SWP_NOMOVE) | (place.size ? 0 : SWP_NOSIZE);
        const PixelPoint position = place.position.value_or(PixelPoint{});
        const PixelSize size = place.size.value_or(PixelSize{});
        SetWindowPos(*control, nullptr, position.x, position.y, size.width, size.height,
                     kept | SWP_NOZORDER | SWP_NOACTIVATE);
        if (place.position)
            InvalidateRect(*control, nullptr, TRUE);
        ++control;
    }
    OnControlsPlaced();
}

}  // namespace nux
