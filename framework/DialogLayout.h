#pragma once

#include <array>

#include "framework/PixelGeometry.h"

namespace nux {

/// Where the controls of the dimension chooser go when its window changes its size. Right and bottom edges of
/// the rectangles it is made from lie outside, as everywhere in the window system.
class DialogLayout {
public:
    /// The buttons in the order of all arrays here: turn off all filters, OK, Cancel.
    static constexpr int buttonCount = 3;
    using Buttons = std::array<PixelPoint, buttonCount>;

    struct Placement {
        PixelSize list;
        Buttons buttons;
    };

    /// Takes the state that the dialog template gave: `window` and `list` in any coordinates, the top-left
    /// corners of the buttons in the client coordinates of the window.
    DialogLayout(const PixelRectangle& window, const PixelRectangle& list, const Buttons& buttons);

    /// The top-left corner of the window at first.
    PixelPoint InitialPosition() const { return position_; }

    /// The size below which the window can't go. One pixel above its first size in both directions.
    PixelSize MinimumSize() const { return minimum_; }

    /// A window size that is asked for, raised to the minimum where it lies below.
    PixelSize RaisedToMinimum(PixelSize window) const;

    /// How far a window size lies above the minimum. The chooser stores it when it closes.
    PixelSize AboveMinimum(PixelSize window) const;

    /// The window size for what AboveMinimum gave.
    PixelSize WindowSize(PixelSize aboveMinimum) const;

    /// Where the controls go in a window of this size: the list grows with the window, and all three buttons
    /// keep their distance from the lower right corner.
    Placement PlaceControls(PixelSize window) const;

private:
    PixelPoint position_;
    PixelSize minimum_;
    PixelSize list_;
    Buttons buttons_;
};

}  // namespace nux
