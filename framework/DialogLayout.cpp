#include "framework/DialogLayout.h"

#include <algorithm>

namespace nux {
namespace {

/// One pixel more than the size: wanted for the first size of window and controls, as remembered frames count
/// from there.
PixelSize Measured(const PixelRectangle& rectangle) {
    return {rectangle.right - rectangle.left + 1, rectangle.bottom - rectangle.top + 1};
}

/// A remembered size may hold any 32 bits: the sum wraps around.
int Added(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}

}  // namespace

DialogLayout::DialogLayout(const PixelRectangle& window)
    : position_{window.left, window.top}, minimum_(Measured(window)) {}

void DialogLayout::Add(const PixelRectangle& control, unsigned anchors) {
    controls_.push_back({{control.left, control.top}, Measured(control), anchors});
}

PixelSize DialogLayout::RaisedToMinimum(PixelSize window) const {
    return {std::max(window.width, minimum_.width), std::max(window.height, minimum_.height)};
}

DialogFrame DialogLayout::FrameOf(const PixelRectangle& window) const {
    return {{window.left, window.top},
            {window.right - window.left - minimum_.width, window.bottom - window.top - minimum_.height}};
}

PixelSize DialogLayout::WindowSize(const DialogFrame& frame) const {
    return {Added(minimum_.width, frame.aboveMinimum.width),
            Added(minimum_.height, frame.aboveMinimum.height)};
}

std::vector<DialogLayout::Place> DialogLayout::PlaceControls(PixelSize window) const {
    const PixelSize growth{window.width - minimum_.width, window.height - minimum_.height};
    const auto along = [](unsigned anchors, unsigned anchor, int by) { return anchors & anchor ? by : 0; };
    std::vector<Place> places;
    for (const Control& control : controls_) {
        Place& place = places.emplace_back();
        if (control.anchors & (movesRight | movesDown))
            place.position = {control.position.x + along(control.anchors, movesRight, growth.width),
                              control.position.y + along(control.anchors, movesDown, growth.height)};
        if (control.anchors & (growsWide | growsTall))
            place.size = {control.size.width + along(control.anchors, growsWide, growth.width),
                          control.size.height + along(control.anchors, growsTall, growth.height)};
    }
    return places;
}

}  // namespace nux
