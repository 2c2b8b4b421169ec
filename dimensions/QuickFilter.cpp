#include "dimensions/QuickFilter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace nux {
namespace {

/// The length of a side, cut to one that still leaves room for a frame and a place on the screen. So wide
/// only a text of many millions of characters is, of which a screen shows the start.
int Side(std::size_t count, int pixels) {
    constexpr std::uint64_t longest = 1 << 30;
    return static_cast<int>(std::min(std::uint64_t{count} * pixels, longest));
}

}  // namespace

QuickFilterGeometry::QuickFilterGeometry(const std::vector<std::string>& strings, int characterHeight,
                                         int widestCharacter)
    : rowHeight_(characterHeight), listHeight_(Side(strings.size(), characterHeight)) {
    std::size_t longest = 0;
    for (const std::string& string : strings)
        longest = std::max(longest, string.size());
    width_ = Side(longest + 2, widestCharacter);
}

int QuickFilterGeometry::RowAt(PixelPoint pointer, const PixelRectangle& pager, std::int16_t y) const {
    const bool inside = pager.left <= pointer.x && pointer.x <= pager.right && pager.top <= pointer.y &&
                        pointer.y <= pager.bottom;
    return inside ? y / rowHeight_ : -1;
}

PixelPoint TopLeftUnderPointer(PixelPoint pointer, PixelPoint clientPoint, PixelPoint topLeft) {
    return {pointer.x - clientPoint.x + topLeft.x, pointer.y - clientPoint.y + topLeft.y};
}

nuxDimFilter FilterOfChosenNumber(int row, const std::vector<double>& numbers) {
    nuxDimFilter filter;
    if (static_cast<std::size_t>(row) < numbers.size())
        filter.SetNumber(FilterEqual, numbers[row], 0.0, DatabaseBoth);
    return filter;
}

nuxDimFilter FilterOfChosenText(int row, const std::vector<std::string>& texts) {
    nuxDimFilter filter;
    if (static_cast<std::size_t>(row) < texts.size())
        filter.SetText(FilterStringEqual, texts[row], DatabaseBoth);
    return filter;
}

}  // namespace nux
