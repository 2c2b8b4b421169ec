#pragma once

#include <array>
#include <string>
#include <string_view>

namespace nux {

/// How the code page in use folds case. The caller fills it once from the system.
struct CaseFolding {
    /// The code page has double-byte characters.
    bool multibyte;
    /// The lower-case form of each single-byte character.
    std::array<unsigned char, 256> lower;
    /// Which bytes start a double-byte character. Looked at for a multi-byte code page only.
    std::array<bool, 256> leadByte;
    /// The lower-case form of a double-byte character (lead byte times 256 plus trail byte), which is itself
    /// if it has none. Called for a multi-byte code page only.
    char16_t (*lowerDouble)(char16_t character);
};

/// Prepares the sort key of a text: its characters in lower case. A lead byte without a trail byte ends the
/// text.
std::u16string FoldText(std::string_view text, const CaseFolding& folding);

/// Compares two cells by their numbers. Either may be null (a row that could not be read); then they count as
/// equal. Result 1, 0 or -1: whether a comes behind b, in ascending or descending order. A NaN comes before
/// whatever it is compared with when ascending.
int CompareNumberKeys(const double* a, const double* b, bool ascending);

/// Compares two cells by their keys of FoldText, made with the folding whose `multibyte` is given. Null and
/// result are those of CompareNumberKeys.
///
/// The order is not alphabetical, and not even consistent: in a single-byte code page only a text whose first
/// differing character lies exactly one above the other's counts as greater. That is wanted: the order that
/// users know from the list comes from it. The comparison is for the list control's own sort and must never
/// be handed to std::sort, which relies on a consistent order.
int CompareTextKeys(const std::u16string* a, const std::u16string* b, bool multibyte, bool ascending);

}  // namespace nux
