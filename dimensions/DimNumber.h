#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace nux {

/// So many bytes of a value are read; the rest is never looked at.
inline constexpr std::size_t longestCellText = 127;

/// The part of a value that counts: its first 127 bytes. A double-byte character on the edge is cut apart.
/// The result points into `text`.
constexpr std::string_view CutCellText(std::string_view text) {
    return text.substr(0, longestCellText);
}

/// What a text says as a number.
struct DimNumber {
    /// The number at the start of the text, 0 if there is none.
    double value;
    /// The number takes up the whole text. An empty text is a whole 0.
    bool whole;
};

/// Reads a text as the standard C function strtod does in the "C" locale: leading blanks, a sign, a decimal
/// or hexadecimal number with a point and an exponent, "inf", "nan". Too large is infinite, too small is 0.
/// The result depends neither on the locale nor on the run-time library.
DimNumber ReadDimNumber(std::string_view text);

/// The text in which a number is shown and stored: six digits behind the point, less the zeros at the end.
/// `separators` are the characters that the user's locale has as decimal separator, possibly none. If the
/// point is one of them, a whole number keeps one zero behind it ("12.0").
std::string FormatDimNumber(double number, std::string_view separators);

}  // namespace nux
