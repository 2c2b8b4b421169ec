#include "framework/DialogLayout.h"

#include <algorithm>

namespace nux {
namespace {

/// One pixel more than the size: wanted for the first size of window and list, as stored layouts count from
/// there.
PixelSize Measured(const PixelRectangle& rectangle) {
    return {rectangle.right - rectangle.left + 1, rectangle.bottom - rectangle.top + 1};
}

/// A stored size may hold any 32 bits: the sum wraps around.
int Added(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}

}  // namespace

DialogLayout::DialogLayout(const PixelRectangle& window, const PixelRectangle& list, const Buttons& buttons)
    : position_{window.left, window.top},
      minimum_(Measured(window)),
      list_(Measured(list)),
      buttons_(buttons) {}

PixelSize DialogLayout::RaisedToMinimum(PixelSize window) const {
    return {std::max(window.width, minimum_.width), std::max(window.height, minimum_.height)};
}

PixelSize DialogLayout::AboveMinimum(PixelSize window) const {
    return {window.width - minimum_.width, window.height - minimum_.height};
}

PixelSize DialogLayout::WindowSize(PixelSize aboveMinimum) const {
    return {Added(minimum_.width, aboveMinimum.width), Added(minimum_.height, aboveMinimum.height)};
}

DialogLayout::Placement DialogLayout::PlaceControls(PixelSize window) const {
    const PixelSize growth = AboveMinimum(window);
    Placement placement{{list_.width + growth.width, list_.height + growth.height}, buttons_};
    for (PixelPoint& button : placement.buttons) {
        button.x += growth.width;
        button.y += growth.height;
    }
    return placement;
}

}  // namespace nux
