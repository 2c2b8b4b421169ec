#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "dimensions/DimNumber.h"
#include "framework/Variant.h"

namespace nux {

/// A value of a dimension file in the thread's ANSI code page, as far as it counts: its first 127 bytes, less
/// one that would be half a character. It allocates nothing.
class CellText {
public:
    void Assign(std::wstring_view text) noexcept;
    /// Takes a value of the DOM. One that is no string reads as an empty text.
    void Assign(const Variant& value) noexcept;
    std::string_view View() const noexcept { return {bytes_.data(), size_}; }

private:
    /// Characters that are looked at. One more than can count, so that none of a surrogate pair is missing.
    static constexpr std::size_t longestWideText = longestCellText + 1;

    std::array<char, longestWideText * 3> bytes_;  // no ANSI code page needs more than three bytes each
    std::size_t size_ = 0;
};

}  // namespace nux
