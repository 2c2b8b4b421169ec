#pragma once

#include <windows.h>

#include <initializer_list>
#include <optional>
#include <vector>

#include "framework/Dialog.h"
#include "framework/DialogLayout.h"

namespace nux {

/// A dialog that its user can make larger than its template, and whose controls follow. It knows its frame,
/// for a dialog that remembers where it stood.
class ResizableDialog : public Dialog {
protected:
    using Dialog::Dialog;

    struct AnchoredControl {
        HWND control;
        unsigned anchors;  ///< ControlAnchors
    };

    /// Takes the window and its controls as they stand now as the smallest and first layout. Before it, sizes
    /// change freely and nothing follows.
    void StartLayout(std::initializer_list<AnchoredControl> controls);
    bool IsLaidOut() const noexcept { return layout_.has_value(); }

    // With a layout only:

    DialogFrame InitialFrame() const { return layout_->InitialFrame(); }
    /// The frame as the window stands.
    DialogFrame Frame() const;
    /// Moves the window to a frame, also where no screen is any more.
    void SetFrame(const DialogFrame& frame);

    /// Told after the controls have followed.
    virtual void OnControlsPlaced() {}

    /// For every message that the dialog doesn't handle itself.
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void OnPositionChanging(WINDOWPOS& position);
    void PlaceControls(PixelSize window);

    std::optional<DialogLayout> layout_;
    std::vector<HWND> controls_;  ///< in the order of the layout's
};

}  // namespace nux
