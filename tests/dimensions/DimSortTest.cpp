#include "dimensions/DimSort.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "dimensions/DimNumber.h"

namespace nux {
namespace {

CaseFolding SingleByte() {
    CaseFolding folding{};
    for (int i = 0; i < 256; ++i)
        folding.lower[i] = static_cast<unsigned char>(i >= 'A' && i <= 'Z' ? i + ('a' - 'A') : i);
    return folding;
}

/// Like code page 932: two ranges of lead bytes, and the full-width Latin letters have two cases.
CaseFolding DoubleByte() {
    CaseFolding folding = SingleByte();
    folding.multibyte = true;
    for (int i = 0x81; i <= 0xfc; ++i)
        folding.leadByte[i] = i <= 0x9f || i >= 0xe0;
    folding.lowerDouble = [](char16_t character) {
        return character >= 0x8260 && character <= 0x8279 ? static_cast<char16_t>(character + 0x21)
                                                          : character;
    };
    return folding;
}

int CompareTexts(std::string_view a, std::string_view b, const CaseFolding& folding, bool ascending = true) {
    const std::u16string left = FoldText(a, folding);
    const std::u16string right = FoldText(b, folding);
    return CompareTextKeys(&left, &right, folding.multibyte, ascending);
}

int CompareNumbers(double a, double b, bool ascending = true) {
    return CompareNumberKeys(&a, &b, ascending);
}

TEST(CompareNumberKeys, OrdersByValueInBothDirections) {
    EXPECT_EQ(CompareNumbers(5.0, 9.0), -1);
    EXPECT_EQ(CompareNumbers(10.0, 9.0), 1);
    EXPECT_EQ(CompareNumbers(5.0, 9.0, false), 1);
    EXPECT_EQ(CompareNumbers(10.0, 9.0, false), -1);
    EXPECT_EQ(CompareNumbers(5.0, 5.0), 0);
    EXPECT_EQ(CompareNumbers(5.0, 5.0, false), 0);
    EXPECT_EQ(CompareNumbers(-0.0, 0.0), 0);
}

TEST(CompareNumberKeys, AMissingKeyEqualsEverything) {
    const double number = 1.0;
    EXPECT_EQ(CompareNumberKeys(nullptr, &number, true), 0);
    EXPECT_EQ(CompareNumberKeys(&number, nullptr, false), 0);
    EXPECT_EQ(CompareNumberKeys(nullptr, nullptr, true), 0);
}

TEST(CompareNumberKeys, ANaNIsNeitherEqualNorGreater) {
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(CompareNumbers(notANumber, 1.0), -1);
    EXPECT_EQ(CompareNumbers(1.0, notANumber), -1);
    EXPECT_EQ(CompareNumbers(notANumber, notANumber), -1);
    EXPECT_EQ(CompareNumbers(notANumber, 1.0, false), 1);
}

TEST(CompareNumberKeys, ATextCellRanksByItsLeadingNumber) {
    const double ten = ReadDimNumber("10 mm").value;
    const double nine = ReadDimNumber("9 mm").value;
    EXPECT_EQ(CompareNumberKeys(&ten, &nine, true), 1);
}

TEST(CompareTextKeys, TextsThatDifferInCaseOnlyAreEqual) {
    EXPECT_EQ(CompareTexts("abc", "ABC", SingleByte()), 0);
    EXPECT_EQ(CompareTexts("abc", "ABC", SingleByte(), false), 0);
    EXPECT_EQ(CompareTexts("", "", SingleByte()), 0);
}

TEST(CompareTextKeys, InASingleByteCodePageOnlyADifferenceOfOneIsGreater) {
    EXPECT_EQ(CompareTexts("b", "a", SingleByte()), 1);
    EXPECT_EQ(CompareTexts("b", "A", SingleByte()), 1);
    EXPECT_EQ(CompareTexts("c", "a", SingleByte()), -1);
    EXPECT_EQ(CompareTexts("a", "b", SingleByte()), -1);
    EXPECT_EQ(CompareTexts("a", "c", SingleByte()), -1);
}

TEST(CompareTextKeys, DescendingTurnsTheSignAround) {
    EXPECT_EQ(CompareTexts("b", "a", SingleByte(), false), -1);
    EXPECT_EQ(CompareTexts("c", "a", SingleByte(), false), 1);
    EXPECT_EQ(CompareTexts("a", "c", SingleByte(), false), 1);
}

TEST(CompareTextKeys, TheFirstDifferingCharacterDecides) {
    EXPECT_EQ(CompareTexts("plate b9", "plate a0", SingleByte()), 1);
    EXPECT_EQ(CompareTexts("plate c0", "plate a9", SingleByte()), -1);
    EXPECT_EQ(CompareTexts("plate 12345b", "plate 12345a", SingleByte()), 1);
    for (int place = 0; place < 20; ++place) {
        std::string a(20, 'm');
        a[place] = 'n';
        EXPECT_EQ(CompareTexts(a, std::string(20, 'm'), SingleByte()), 1) << place;
    }
}

TEST(CompareTextKeys, ALongerTextIsNotGreaterThanItsStart) {
    EXPECT_EQ(CompareTexts("ab", "a", SingleByte()), -1);
    EXPECT_EQ(CompareTexts("a", "ab", SingleByte()), -1);
    EXPECT_EQ(CompareTexts("a", "", SingleByte()), -1);
    // The end counts as 0, so that a character 1 makes the difference of one.
    EXPECT_EQ(CompareTexts("a\x01", "a", SingleByte()), 1);
}

TEST(CompareTextKeys, BytesAbove127AreGreaterThanThoseBelow) {
    EXPECT_EQ(CompareTexts("\x80", "\x7f", SingleByte()), 1);
    EXPECT_EQ(CompareTexts("\x7f", "\x80", SingleByte()), -1);
}

TEST(CompareTextKeys, TheTableOfTheCodePageDecidesWhatIsLowerCase) {
    CaseFolding western = SingleByte();
    western.lower[0xc4] = 0xe4;
    EXPECT_EQ(CompareTexts("\xc4", "\xe4", western), 0);
    EXPECT_NE(CompareTexts("\xc4", "\xe4", SingleByte()), 0);
}

TEST(CompareTextKeys, InAMultiByteCodePageAnyDifferenceCounts) {
    EXPECT_EQ(CompareTexts("c", "a", DoubleByte()), 1);
    EXPECT_EQ(CompareTexts("a", "c", DoubleByte()), -1);
    EXPECT_EQ(CompareTexts("ab", "a", DoubleByte()), 1);
    EXPECT_EQ(CompareTexts("c", "a", DoubleByte(), false), -1);
    EXPECT_EQ(CompareTexts("ABC", "abc", DoubleByte()), 0);
}

TEST(CompareTextKeys, ADoubleByteCharacterIsOneCharacterAndGreaterThanAnySingleByte) {
    // The trail byte is a Latin letter that must not be folded.
    EXPECT_NE(CompareTexts("\x83\x41", "\x83\x61", DoubleByte()), 0);
    // A half-width kana is a single byte above the lead byte of the other.
    EXPECT_EQ(CompareTexts("\xb1", "\x83\x41", DoubleByte()), -1);
    EXPECT_EQ(CompareTexts("\x83\x41", "\xb1", DoubleByte()), 1);
}

TEST(CompareTextKeys, ADoubleByteLetterFoldsItsCase) {
    EXPECT_EQ(CompareTexts("\x82\x60", "\x82\x81", DoubleByte()), 0);
    EXPECT_EQ(CompareTexts("\x82\x62", "\x82\x81", DoubleByte()), 1);
}

TEST(CompareTextKeys, ALeadByteWithoutItsTrailByteEndsTheText) {
    EXPECT_EQ(CompareTexts("a\x83", "a", DoubleByte()), 0);
    EXPECT_EQ(FoldText("a\x83", DoubleByte()), u"a");
}

TEST(CompareTextKeys, LeadBytesMeanNothingInASingleByteCodePage) {
    CaseFolding folding = DoubleByte();
    folding.multibyte = false;
    EXPECT_EQ(FoldText("\x83\x41", folding),
              u"\x83"
              u"a");
}

TEST(CompareTextKeys, AMissingKeyEqualsEverything) {
    const std::u16string text = u"a";
    EXPECT_EQ(CompareTextKeys(nullptr, &text, false, true), 0);
    EXPECT_EQ(CompareTextKeys(&text, nullptr, false, true), 0);
    EXPECT_EQ(CompareTextKeys(nullptr, nullptr, true, false), 0);
}

}  // namespace
}  // namespace nux
