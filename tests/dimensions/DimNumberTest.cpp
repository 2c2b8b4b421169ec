#include "dimensions/DimNumber.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <string>

namespace nux {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

void ExpectWhole(std::string_view text, double value) {
    const DimNumber number = ReadDimNumber(text);
    EXPECT_TRUE(number.whole) << text;
    EXPECT_EQ(number.value, value) << text;
}

void ExpectStart(std::string_view text, double value) {
    const DimNumber number = ReadDimNumber(text);
    EXPECT_FALSE(number.whole) << text;
    EXPECT_EQ(number.value, value) << text;
}

TEST(ReadDimNumber, APlainNumberIsWhole) {
    ExpectWhole("12", 12.0);
    ExpectWhole("12.5", 12.5);
    ExpectWhole("+12.5", 12.5);
    ExpectWhole("-0.25", -0.25);
    ExpectWhole(".5", 0.5);
    ExpectWhole("5.", 5.0);
    ExpectWhole("007", 7.0);
}

TEST(ReadDimNumber, TheValueIsTheNearestDouble) {
    ExpectWhole("0.1", 0.1);
    ExpectWhole("9007199254740993", 9007199254740992.0);
    ExpectWhole("123456789012345678901234567890", 123456789012345678901234567890.0);
    ExpectWhole("1.7976931348623158e308", std::numeric_limits<double>::max());
}

TEST(ReadDimNumber, AnEmptyTextIsAWholeZero) {
    ExpectWhole("", 0.0);
    ExpectWhole(std::string_view(), 0.0);
}

TEST(ReadDimNumber, BlanksAloneOrASignAloneAreNoNumber) {
    for (const char* text :
         {" ", "\t \n", "+", "-", " -", ".", "-.", "e5", ".e5", "--1", "+-1", "-+1", "- 1"})
        ExpectStart(text, 0.0);
}

TEST(ReadDimNumber, BlanksMayLeadButNotFollow) {
    ExpectWhole(" 12", 12.0);
    ExpectWhole("\t\n\v\f\r 12", 12.0);
    ExpectStart("12 ", 12.0);
    ExpectStart(
        "\xa0"
        "12",
        0.0);
}

TEST(ReadDimNumber, AWordIsNoNumberAndCountsAsItsLeadingNumber) {
    ExpectStart("Steel", 0.0);
    ExpectStart("M12", 0.0);
    ExpectStart("12x30", 12.0);
    ExpectStart("12,5", 12.0);
    ExpectStart("1.5.5", 1.5);
    ExpectStart("-3mm", -3.0);
}

TEST(ReadDimNumber, AnExponentNeedsDigits) {
    ExpectWhole("1e5", 100000.0);
    ExpectWhole("1E+5", 100000.0);
    ExpectWhole("1e-5", 0.00001);
    ExpectStart("1e", 1.0);
    ExpectStart("1e+", 1.0);
    ExpectStart("1e5.5", 100000.0);
}

TEST(ReadDimNumber, TheLetterDIsNoExponent) {
    ExpectStart("1d5", 1.0);
    ExpectStart("1D5", 1.0);
}

TEST(ReadDimNumber, AHexadecimalNumberIsANumber) {
    ExpectWhole("0x10", 16.0);
    ExpectWhole("0X1a", 26.0);
    ExpectWhole("-0x10", -16.0);
    ExpectWhole("0x.8", 0.5);
    ExpectWhole("0x1.", 1.0);
    ExpectWhole("0x1p3", 8.0);
    ExpectWhole("0x1P-1", 0.5);
    ExpectStart("0x1p", 1.0);
}

TEST(ReadDimNumber, WithoutAHexadecimalDigitOnlyTheZeroBeforeTheXIsRead) {
    for (const char* text : {"0x", "0xg", "0x.", "0x.p1", "0x-1", "0x+1", "0xinf", "0xnan", "0x0x1"})
        ExpectStart(text, 0.0);
}

TEST(ReadDimNumber, InfinityAndNaNAreNumbersInAnyCase) {
    for (const char* text : {"inf", "INF", "infinity", "+Infinity"})
        ExpectWhole(text, infinite);
    ExpectWhole("-inf", -infinite);
    ExpectStart("infinit", infinite);
    ExpectStart("infinity ", infinite);
    for (const char* text : {"nan", "NaN", "-nan", "nan()", "nan(12)", "nan(a_9)"}) {
        EXPECT_TRUE(std::isnan(ReadDimNumber(text).value)) << text;
        EXPECT_TRUE(ReadDimNumber(text).whole) << text;
    }
    for (const char* text : {"nan(", "nan(a b)", "nano"}) {
        EXPECT_TRUE(std::isnan(ReadDimNumber(text).value)) << text;
        EXPECT_FALSE(ReadDimNumber(text).whole) << text;
    }
    ExpectStart("in", 0.0);
    ExpectStart("na", 0.0);
}

TEST(ReadDimNumber, TooLargeIsInfinite) {
    ExpectWhole("1e400", infinite);
    ExpectWhole("-1e400", -infinite);
    ExpectWhole("1.7976931348623159e308", infinite);
    ExpectWhole("0.001e400", infinite);
    ExpectWhole("1e99999999999999999999", infinite);
    ExpectWhole("0x1p1024", infinite);
    ExpectWhole("0x1p99999999999999999999", infinite);
    ExpectWhole(std::string(400, '9'), infinite);
    ExpectWhole(std::string(800, '9') + "e-300", infinite);
    ExpectStart("1e400mm", infinite);
}

TEST(ReadDimNumber, TooSmallIsZeroAndDenormalNumbersAreKept) {
    ExpectWhole("4.9e-324", std::numeric_limits<double>::denorm_min());
    ExpectWhole("2.2250738585072011e-308", 2.2250738585072011e-308);
    ExpectWhole("2e-324", 0.0);
    ExpectWhole("1000e-400", 0.0);
    ExpectWhole("1e-99999999999999999999", 0.0);
    ExpectWhole("0x1p-1080", 0.0);
    ExpectWhole("0x1p-99999999999999999999", 0.0);
    ExpectWhole("0." + std::string(400, '0') + "1", 0.0);
    ExpectWhole("0." + std::string(800, '0') + "1e300", 0.0);
    ExpectWhole("0x." + std::string(400, '0') + "1p500", 0.0);
    ExpectWhole("0e99999999999999999999", 0.0);
}

TEST(ReadDimNumber, ANegativeZeroKeepsItsSign) {
    EXPECT_TRUE(std::signbit(ReadDimNumber("-0").value));
    EXPECT_TRUE(std::signbit(ReadDimNumber("-1e-400").value));
    EXPECT_FALSE(std::signbit(ReadDimNumber("0").value));
    EXPECT_FALSE(std::signbit(ReadDimNumber("-").value));
    EXPECT_FALSE(std::signbit(ReadDimNumber("-x").value));
    EXPECT_FALSE(std::signbit(ReadDimNumber("--1").value));
}

TEST(ReadDimNumber, OnlyTheGivenPartOfATextIsRead) {
    ExpectWhole(std::string_view("12345").substr(0, 2), 12.0);
    ExpectWhole(std::string_view("1e5").substr(0, 1), 1.0);
}

TEST(CutCellText, KeepsTheFirst127Bytes) {
    EXPECT_EQ("", CutCellText(""));
    EXPECT_EQ("12.5", CutCellText("12.5"));
    const std::string exact(127, 'a');
    EXPECT_EQ(CutCellText(exact), exact);
    EXPECT_EQ(CutCellText(exact + "b"), exact);
    EXPECT_EQ(CutCellText(std::string(200, 'a')), exact);
}

TEST(CutCellText, CutsADoubleByteCharacterApart) {
    const std::string text = std::string(126, 'a') + "\x83\x41";
    EXPECT_EQ(std::string(126, 'a') + "\x83", CutCellText(text));
}

TEST(FormatDimNumber, AWholeNumberKeepsOneZeroBehindThePoint) {
    EXPECT_EQ("12.0", FormatDimNumber(12.0, "."));
    EXPECT_EQ("0.0", FormatDimNumber(0.0, "."));
    EXPECT_EQ("-5.0", FormatDimNumber(-5.0, "."));
    EXPECT_EQ("100.0", FormatDimNumber(100.0, "."));
    EXPECT_EQ("-0.0", FormatDimNumber(-0.0, "."));
}

TEST(FormatDimNumber, ZerosBehindTheLastOtherDigitAreLeftOut) {
    EXPECT_EQ("12.5", FormatDimNumber(12.5, "."));
    EXPECT_EQ("0.25", FormatDimNumber(0.25, "."));
    EXPECT_EQ("100.01", FormatDimNumber(100.01, "."));
    EXPECT_EQ("1.000001", FormatDimNumber(1.000001, "."));
}

TEST(FormatDimNumber, ThePlacesBehindTheSixthAreRounded) {
    EXPECT_EQ("1234567.890124", FormatDimNumber(1234567.8901235, "."));
    EXPECT_EQ("0.0", FormatDimNumber(0.0000001, "."));
    EXPECT_EQ("-0.0", FormatDimNumber(-0.0000001, "."));
    EXPECT_EQ("1.0", FormatDimNumber(0.9999999, "."));
    // Exactly in the middle the even digit is taken.
    EXPECT_EQ("0.007812", FormatDimNumber(0.0078125, "."));
    EXPECT_EQ("0.023438", FormatDimNumber(0.0234375, "."));
}

TEST(FormatDimNumber, WithACommaAsSeparatorAWholeNumberEndsInThePoint) {
    EXPECT_EQ("12.", FormatDimNumber(12.0, ","));
    EXPECT_EQ("12.5", FormatDimNumber(12.5, ","));
    EXPECT_EQ("0.", FormatDimNumber(0.0, ","));
}

TEST(FormatDimNumber, WithoutASeparatorAWholeNumberEndsInThePoint) {
    EXPECT_EQ("12.", FormatDimNumber(12.0, ""));
}

TEST(FormatDimNumber, AnyOfSeveralSeparatorsCounts) {
    EXPECT_EQ("12.0", FormatDimNumber(12.0, ",.'"));
}

TEST(FormatDimNumber, AHugeNumberIsCutTo127CharactersBeforeItsZerosAre) {
    EXPECT_EQ("10000000000000000000000.0", FormatDimNumber(1e22, "."));
    const std::string huge = FormatDimNumber(1e300, ".");
    EXPECT_EQ(127u, huge.size());
    EXPECT_EQ("10000000000000000525", huge.substr(0, 20));
    EXPECT_EQ(FormatDimNumber(-1e300, "."), "-" + huge.substr(0, 126));
    EXPECT_EQ(127u, FormatDimNumber(-std::numeric_limits<double>::max(), ".").size());

    // 126 digits before the point: the point is the last character that is kept, with no digit behind it.
    const std::string edge = FormatDimNumber(std::ldexp(1.0, 416), ".");
    EXPECT_EQ(127u, edge.size());
    EXPECT_EQ("725889536.", edge.substr(117));
}

TEST(FormatDimNumber, ZerosThatStandAtTheCutOfAHugeNumberGo) {
    // The 137 digits of 9e136 are "9", ..., "633289", "00", and ten more: the two zeros are the last kept.
    const std::string text = FormatDimNumber(9e136, ".");
    EXPECT_EQ(125u, text.size());
    EXPECT_EQ("633289", text.substr(119));
}

TEST(FormatDimNumber, InfinityAndNaNAreWords) {
    EXPECT_EQ("inf", FormatDimNumber(infinite, "."));
    EXPECT_EQ("-inf", FormatDimNumber(-infinite, "."));
    EXPECT_EQ("nan", FormatDimNumber(std::numeric_limits<double>::quiet_NaN(), "."));
    EXPECT_EQ("-nan", FormatDimNumber(ReadDimNumber("-nan").value, "."));
}

TEST(FormatDimNumber, WhatItWritesReadsAsTheSameNumber) {
    for (const double number : {0.0, 0.5, 12.0, 99.999999, 123456.125, -7.25}) {
        for (const char* separators : {".", ","})
            ExpectWhole(FormatDimNumber(number, separators), number);
    }
}

TEST(DimNumber, ACommaInTheLocaleOfTheProgramChangesNothing) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    bool comma = false;
    for (const char* name : {"de_DE.UTF-8", "de_AT.UTF-8", "German", "fr_FR.UTF-8", "French"}) {
        comma = std::setlocale(LC_ALL, name) && std::string_view(std::localeconv()->decimal_point) == ",";
        if (comma)
            break;
    }
    if (comma) {
        ExpectWhole("12.5", 12.5);
        ExpectStart("12,5", 12.0);
        EXPECT_EQ("12.0", FormatDimNumber(12.0, "."));
        EXPECT_EQ("12.", FormatDimNumber(12.0, ","));
    }
    std::setlocale(LC_ALL, before.c_str());
    if (!comma)
        GTEST_SKIP() << "no locale with a decimal comma is installed";
}

}  // namespace
}  // namespace nux
