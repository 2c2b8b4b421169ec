#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "dimensions/nuxDimFilter.h"
#include "framework/PixelGeometry.h"

namespace nux {

/// The sizes of the quick filter window, all in pixels: a list of rows inside a pager of fixed height.
class QuickFilterGeometry {
public:
    /// The pager shows so many rows, whatever the number of values.
    static constexpr int visibleRows = 8;

    /// Measures the list for these strings. `characterHeight` (above 0) and `widestCharacter` are those of
    /// the font.
    QuickFilterGeometry(const std::vector<std::string>& strings, int characterHeight, int widestCharacter);

    /// Enough for the longest string, by its length in bytes, and two characters more.
    int Width() const { return width_; }
    int RowHeight() const { return rowHeight_; }

    /// The whole list.
    PixelSize ListSize() const { return {width_, listHeight_}; }

    /// The part of it that can be seen.
    PixelSize PagerSize() const { return {width_, rowHeight_ * visibleRows}; }

    /// The point of the client area that the window opens with under the pointer: a quarter across the first
    /// row, at mid-height.
    PixelPoint PointerPlace() const { return {width_ / 4, rowHeight_ / 2}; }

    /// Row i of the list, in the list's coordinates.
    PixelRectangle Row(int i) const { return {0, i * rowHeight_, width_, (i + 1) * rowHeight_}; }

    /// The row under the pointer, -1 if the pointer is outside the pager. `pointer` and `pager` in screen
    /// coordinates, all four edges inside; `y` is the position that the mouse message carries, in the list's
    /// coordinates.
    ///
    /// The row is not bounded: below a short list it lies beyond the strings. Above the list (the pager's
    /// upper scroll button) it is 0 within one row height and negative from there on, and so it is far down a
    /// list of more than 32767 pixels, where `y` turns negative.
    int RowAt(PixelPoint pointer, const PixelRectangle& pager, std::int16_t y) const;

    /// How far a scroll button moves the list: one row, or five while shift, control or menu key is held.
    int ScrollStep(bool modifierHeld) const { return modifierHeld ? 5 * rowHeight_ : rowHeight_; }

private:
    int width_;
    int rowHeight_;
    int listHeight_;
};

/// The top-left corner that brings a client point under the pointer. `clientPoint` is where that point is on
/// the screen while the window stands at `topLeft`. The edges of the screen are not looked at.
PixelPoint TopLeftUnderPointer(PixelPoint pointer, PixelPoint clientPoint, PixelPoint topLeft);

// The filter that a row chosen in the quick filter window stands for. It takes the place of the column's
// filter. A row beyond the values gives an inactive filter, which turns off the column's; a negative row is
// no choice, and the caller doesn't ask.

/// For a numeric column: equal to the chosen number, in both databases.
nuxDimFilter FilterOfChosenNumber(int row, const std::vector<double>& numbers);

/// For a text column: equal to the chosen text, in both databases.
nuxDimFilter FilterOfChosenText(int row, const std::vector<std::string>& texts);

}  // namespace nux
