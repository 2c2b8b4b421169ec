#pragma once

#include <optional>
#include <vector>

#include "framework/PixelGeometry.h"

namespace nux {

/// Where a resizable dialog stands: what is remembered of it. Stored numbers may be any 32 bits.
struct DialogFrame {
    PixelPoint position;     ///< top-left corner on the screen
    PixelSize aboveMinimum;  ///< how far the size lies above the smallest one
    bool operator==(const DialogFrame&) const = default;
};

/// How a control follows when its dialog grows; joined with |.
enum ControlAnchors : unsigned {
    movesRight = 1,
    movesDown = 2,
    growsWide = 4,
    growsTall = 8,
};

/// Where the controls of a resizable dialog go when it changes its size. Right and bottom edges of the
/// rectangles it is made from lie outside, as everywhere in the window system.
class DialogLayout {
public:
    /// @param window  the dialog on the screen as its template made it
    explicit DialogLayout(const PixelRectangle& window);

    /// Adds a control that follows; `control` is its first place, in the client coordinates of the dialog.
    void Add(const PixelRectangle& control, unsigned anchors);

    /// The first place of the dialog, at its smallest size.
    DialogFrame InitialFrame() const { return {position_, {0, 0}}; }

    /// The size below which the window can't go. One pixel above its first size in both directions.
    PixelSize MinimumSize() const { return minimum_; }

    /// A window size that is asked for, raised to the minimum where it lies below.
    PixelSize RaisedToMinimum(PixelSize window) const;

    /// What is remembered of a dialog that stands there.
    DialogFrame FrameOf(const PixelRectangle& window) const;

    /// The window size of a frame.
    PixelSize WindowSize(const DialogFrame& frame) const;

    /// A control's place in the client coordinates of the dialog. What does not change is not told.
    struct Place {
        std::optional<PixelPoint> position;
        std::optional<PixelSize> size;
    };

    /// The controls' places in a window of this size, in the order in which they were added.
    std::vector<Place> PlaceControls(PixelSize window) const;

private:
    struct Control {
        PixelPoint position;
        PixelSize size;
        unsigned anchors;
    };

    PixelPoint position_;
    PixelSize minimum_;
    std::vector<Control> controls_;
};

}  // namespace nux
