#pragma once

namespace nux {

// Pixels, x to the right and y down.

struct PixelPoint {
    int x;
    int y;
    bool operator==(const PixelPoint&) const = default;
};

struct PixelSize {
    int width;
    int height;
    bool operator==(const PixelSize&) const = default;
};

struct PixelRectangle {
    int left;
    int top;
    int right;
    int bottom;
    bool operator==(const PixelRectangle&) const = default;
};

}  // namespace nux
