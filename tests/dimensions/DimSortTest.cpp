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
    EXPECT_EQ(-1, CompareNumbers(5.0, 9.0));
    EXPECT_EQ(1, CompareNumbers(10.0, 9.0));
    EXPECT_EQ(1, CompareNumbers(5.0, 9.0, false));
    EXPECT_EQ(-1, CompareNumbers(10.0, 9.0, false));
    EXPECT_EQ(0, CompareNumbers(5.0, 5.0));
    EXPECT_EQ(0, CompareNumbers(5.0, 5.0, false));
    EXPECT_EQ(0, CompareNumbers(-0.0, 0.0));
}

TEST(CompareNumberKeys, AMissingKeyEqualsEverything) {
    const double number = 1.0;
    EXPECT_EQ(0, CompareNumberKeys(nullptr, &number, true));
    EXPECT_EQ(0, CompareNumberKeys(&number, nullptr, false));
    EXPECT_EQ(0, CompareNumberKeys(nullptr, nullptr, true));
}

TEST(CompareNumberKeys, ANaNIsNeitherEqualNorGreater) {
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(-1, CompareNumbers(notANumber, 1.0));
    EXPECT_EQ(-1, CompareNumbers(1.0, notANumber));
    EXPECT_EQ(-1, CompareNumbers(notANumber, notANumber));
    EXPECT_EQ(1, CompareNumbers(notANumber, 1.0, false));
}

TEST(CompareNumberKeys, ATextCellRanksByItsLeadingNumber) {
    const double ten = ReadDimNumber("10 mm").value;
    const double nine = ReadDimNumber("9 mm").value;
    EXPECT_EQ(1, CompareNumberKeys(&ten, &nine, true));
}

TEST(CompareTextKeys, TextsThatDifferInCaseOnlyAreEqual) {
    EXPECT_EQ(0, CompareTexts("abc", "ABC", SingleByte()));
    EXPECT_EQ(0, CompareTexts("abc", "ABC", SingleByte(), false));
    EXPECT_EQ(0, CompareTexts("", "", SingleByte()));
}

TEST(CompareTextKeys, InASingleByteCodePageOnlyADifferenceOfOneIsGreater) {
    EXPECT_EQ(1, CompareTexts("b", "a", SingleByte()));
    EXPECT_EQ(1, CompareTexts("b", "A", SingleByte()));
    EXPECT_EQ(-1, CompareTexts("c", "a", SingleByte()));
    EXPECT_EQ(-1, CompareTexts("a", "b", SingleByte()));
    EXPECT_EQ(-1, CompareTexts("a", "c", SingleByte()));
}

TEST(CompareTextKeys, DescendingTurnsTheSignAround) {
    EXPECT_EQ(-1, CompareTexts("b", "a", SingleByte(), false));
    EXPECT_EQ(1, CompareTexts("c", "a", SingleByte(), false));
    EXPECT_EQ(1, CompareTexts("a", "c", SingleByte(), false));
}

TEST(CompareTextKeys, TheFirstDifferingCharacterDecides) {
    EXPECT_EQ(1, CompareTexts("plate b9", "plate a0", SingleByte()));
    EXPECT_EQ(-1, CompareTexts("plate c0", "plate a9", SingleByte()));
    EXPECT_EQ(1, CompareTexts("plate 12345b", "plate 12345a", SingleByte()));
    for (int place = 0; place < 20; ++place) {
        std::string a(20, 'm');
        a[place] = 'n';
        EXPECT_EQ(1, CompareTexts(a, std::string(20, 'm'), SingleByte())) << place;
    }
}

TEST(CompareTextKeys, ALongerTextIsNotGreaterThanItsStart) {
    EXPECT_EQ(-1, CompareTexts("ab", "a", SingleByte()));
    EXPECT_EQ(-1, CompareTexts("a", "ab", SingleByte()));
    EXPECT_EQ(-1, CompareTexts("a", "", SingleByte()));
    // The end counts as 0, so that a character 1 makes the difference of one.
    EXPECT_EQ(1, CompareTexts("a\x01", "a", SingleByte()));
}

TEST(CompareTextKeys, BytesAbove127AreGreaterThanThoseBelow) {
    EXPECT_EQ(1, CompareTexts("\x80", "\x7f", SingleByte()));
    EXPECT_EQ(-1, CompareTexts("\x7f", "\x80", SingleByte()));
}

TEST(CompareTextKeys, TheTableOfTheCodePageDecidesWhatIsLowerCase) {
    CaseFolding western = SingleByte();
    western.lower[0xc4] = 0xe4;
    EXPECT_EQ(0, CompareTexts("\xc4", "\xe4", western));
    EXPECT_NE(0, CompareTexts("\xc4", "\xe4", SingleByte()));
}

TEST(CompareTextKeys, InAMultiByteCodePageAnyDifferenceCounts) {
    EXPECT_EQ(1, CompareTexts("c", "a", DoubleByte()));
    EXPECT_EQ(-1, CompareTexts("a", "c", DoubleByte()));
    EXPECT_EQ(1, CompareTexts("ab", "a", DoubleByte()));
    EXPECT_EQ(-1, CompareTexts("c", "a", DoubleByte(), false));
    EXPECT_EQ(0, CompareTexts("ABC", "abc", DoubleByte()));
}

TEST(CompareTextKeys, ADoubleByteCharacterIsOneCharacterAndGreaterThanAnySingleByte) {
    // The trail byte is a Latin letter that must not be folded.
    EXPECT_NE(0, CompareTexts("\x83\x41", "\x83\x61", DoubleByte()));
    // A half-width kana is a single byte above the lead byte of the other.
    EXPECT_EQ(-1, CompareTexts("\xb1", "\x83\x41", DoubleByte()));
    EXPECT_EQ(1, CompareTexts("\x83\x41", "\xb1", DoubleByte()));
}

TEST(CompareTextKeys, ADoubleByteLetterFoldsItsCase) {
    EXPECT_EQ(0, CompareTexts("\x82\x60", "\x82\x81", DoubleByte()));
    EXPECT_EQ(1, CompareTexts("\x82\x62", "\x82\x81", DoubleByte()));
}

TEST(CompareTextKeys, ALeadByteWithoutItsTrailByteEndsTheText) {
    EXPECT_EQ(0, CompareTexts("a\x83", "a", DoubleByte()));
    EXPECT_EQ(u"a", FoldText("a\x83", DoubleByte()));
}

TEST(CompareTextKeys, LeadBytesMeanNothingInASingleByteCodePage) {
    CaseFolding folding = DoubleByte();
    folding.multibyte = false;
    EXPECT_EQ(
        u"\x83"
        u"a",
        FoldText("\x83\x41", folding));
}

TEST(CompareTextKeys, AMissingKeyEqualsEverything) {
    const std::u16string text = u"a";
    EXPECT_EQ(0, CompareTextKeys(nullptr, &text, false, true));
    EXPECT_EQ(0, CompareTextKeys(&text, nullptr, false, true));
    EXPECT_EQ(0, CompareTextKeys(nullptr, nullptr, true, false));
}

}  // namespace
}  // namespace nux
