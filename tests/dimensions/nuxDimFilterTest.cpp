#include "dimensions/nuxDimFilter.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <string>

namespace nux {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

nuxDimFilter NumberFilter(std::uint32_t type, double lower, double upper = 0.0,
                          std::uint32_t database = DatabaseBoth) {
    nuxDimFilter filter;
    filter.SetNumber(type, lower, upper, database);
    return filter;
}

nuxDimFilter TextFilter(std::uint32_t type, std::string_view text, std::uint32_t database = DatabaseBoth) {
    nuxDimFilter filter;
    filter.SetText(type, text, database);
    return filter;
}

TEST(nuxDimFilter, ANewFilterIsInactiveAndAcceptsEveryNumberOfBothSources) {
    const nuxDimFilter filter;
    EXPECT_TRUE(filter.IsInactive());
    EXPECT_EQ(filter.Type(), FilterNone);
    EXPECT_EQ(0.0, filter.Lower());
    EXPECT_EQ(0.0, filter.Upper());
    EXPECT_EQ("", filter.Text());
    EXPECT_EQ(filter.Database(), DatabaseBoth);
    for (const double number : {-1.0, 0.0, 5.0, infinite, notANumber}) {
        EXPECT_TRUE(filter.PassesNumber(number, DatabaseStandard));
        EXPECT_TRUE(filter.PassesNumber(number, DatabaseUser));
    }
}

TEST(nuxDimFilter, TypeNoneWithOneDatabaseIsActiveAndHidesTheOtherSource) {
    const nuxDimFilter usersOnly = NumberFilter(FilterNone, 0.0, 0.0, DatabaseUser);
    EXPECT_FALSE(usersOnly.IsInactive());
    EXPECT_TRUE(usersOnly.PassesNumber(1.0, DatabaseUser));
    EXPECT_FALSE(usersOnly.PassesNumber(1.0, DatabaseStandard));
}

TEST(nuxDimFilter, AnyTypeWithBothDatabasesIsActive) {
    for (const std::uint32_t type : {1u, 2u, 3u, 4u, 5u, 6u, 0xffffffffu})
        EXPECT_FALSE(NumberFilter(type, 0.0).IsInactive()) << type;
}

TEST(nuxDimFilter, EqualHasNoTolerance) {
    const nuxDimFilter filter = NumberFilter(FilterEqual, 12.1);
    EXPECT_TRUE(filter.PassesNumber(12.10, DatabaseStandard));
    EXPECT_FALSE(filter.PassesNumber(12.100000001, DatabaseStandard));
}

TEST(nuxDimFilter, EqualRefusesANaNOnEitherSide) {
    EXPECT_FALSE(NumberFilter(FilterEqual, notANumber).PassesNumber(notANumber, DatabaseStandard));
    EXPECT_FALSE(NumberFilter(FilterEqual, notANumber).PassesNumber(1.0, DatabaseStandard));
    EXPECT_FALSE(NumberFilter(FilterEqual, 1.0).PassesNumber(notANumber, DatabaseStandard));
}

TEST(nuxDimFilter, BetweenIncludesBothEnds) {
    const nuxDimFilter filter = NumberFilter(FilterBetween, 5.0, 7.0);
    EXPECT_FALSE(filter.PassesNumber(4.999, DatabaseStandard));
    EXPECT_TRUE(filter.PassesNumber(5.0, DatabaseStandard));
    EXPECT_TRUE(filter.PassesNumber(6.0, DatabaseStandard));
    EXPECT_TRUE(filter.PassesNumber(7.0, DatabaseStandard));
    EXPECT_FALSE(filter.PassesNumber(7.001, DatabaseStandard));
    EXPECT_FALSE(filter.PassesNumber(notANumber, DatabaseStandard));
}

TEST(nuxDimFilter, BetweenTwoEqualLimitsAcceptsThatNumberOnly) {
    const nuxDimFilter filter = NumberFilter(FilterBetween, 5.0, 5.0);
    EXPECT_TRUE(filter.PassesNumber(5.0, DatabaseStandard));
    EXPECT_FALSE(filter.PassesNumber(4.0, DatabaseStandard));
    EXPECT_FALSE(filter.PassesNumber(6.0, DatabaseStandard));
}

TEST(nuxDimFilter, SmallerOrEqualAndGreaterOrEqualLookAtTheLowerValueOnly) {
    const nuxDimFilter smaller = NumberFilter(FilterSmallerOrEqual, 5.0, 100.0);
    EXPECT_TRUE(smaller.PassesNumber(5.0, DatabaseStandard));
    EXPECT_FALSE(smaller.PassesNumber(5.5, DatabaseStandard));
    const nuxDimFilter greater = NumberFilter(FilterGreaterOrEqual, 5.0, 1.0);
    EXPECT_TRUE(greater.PassesNumber(5.0, DatabaseStandard));
    EXPECT_FALSE(greater.PassesNumber(4.5, DatabaseStandard));
    EXPECT_FALSE(smaller.PassesNumber(notANumber, DatabaseStandard));
    EXPECT_FALSE(greater.PassesNumber(notANumber, DatabaseStandard));
}

TEST(nuxDimFilter, AnUnknownStoredTypeRefusesEveryNumberAndEveryText) {
    for (const std::uint32_t type : {6u, 7u, 0x80000000u, 0xffffffffu}) {
        EXPECT_FALSE(NumberFilter(type, 1.0, 1.0).PassesNumber(1.0, DatabaseStandard)) << type;
        EXPECT_FALSE(TextFilter(type, "a").PassesText("a", DatabaseStandard)) << type;
    }
}

TEST(nuxDimFilter, AnUnknownStoredDatabaseAcceptsNoSource) {
    for (const std::uint32_t database : {0u, 4u, 0xffffffffu}) {
        const nuxDimFilter filter = NumberFilter(FilterNone, 0.0, 0.0, database);
        EXPECT_FALSE(filter.PassesNumber(1.0, DatabaseStandard)) << database;
        EXPECT_FALSE(filter.PassesNumber(1.0, DatabaseUser)) << database;
    }
}

TEST(nuxDimFilter, AFilterByTextRefusesEveryNumberAndAFilterByNumberEveryText) {
    EXPECT_FALSE(TextFilter(FilterStringEqual, "1").PassesNumber(1.0, DatabaseStandard));
    for (const std::uint32_t type : {0u, 1u, 2u, 3u, 4u})
        EXPECT_FALSE(TextFilter(type, "1").PassesText("1", DatabaseStandard)) << type;
}

TEST(nuxDimFilter, TextsAreComparedByteForByte) {
    const nuxDimFilter filter = TextFilter(FilterStringEqual, "Steel");
    EXPECT_TRUE(filter.PassesText("Steel", DatabaseStandard));
    EXPECT_FALSE(filter.PassesText("steel", DatabaseStandard));
    EXPECT_FALSE(filter.PassesText("Steel ", DatabaseStandard));
    EXPECT_FALSE(filter.PassesText("Stee", DatabaseStandard));
    EXPECT_FALSE(filter.PassesText("", DatabaseStandard));
    EXPECT_TRUE(TextFilter(FilterStringEqual, "\x83\x41").PassesText("\x83\x41", DatabaseStandard));
    EXPECT_FALSE(TextFilter(FilterStringEqual, "\x83\x41").PassesText("\x83\x61", DatabaseStandard));
}

TEST(nuxDimFilter, AFilterByTextObeysItsDatabase) {
    const nuxDimFilter filter = TextFilter(FilterStringEqual, "a", DatabaseStandard);
    EXPECT_TRUE(filter.PassesText("a", DatabaseStandard));
    EXPECT_FALSE(filter.PassesText("a", DatabaseUser));
}

TEST(nuxDimFilter, TheTypeAloneDecidesWhetherTextOrNumberOfACellCounts) {
    EXPECT_TRUE(TextFilter(FilterStringEqual, "5.0").PassesCell("5.0", 5.0, DatabaseStandard));
    EXPECT_FALSE(TextFilter(FilterStringEqual, "5").PassesCell("5.0", 5.0, DatabaseStandard));
    // A word counts as the number 0.
    EXPECT_TRUE(NumberFilter(FilterGreaterOrEqual, 0.0).PassesCell("Steel", 0.0, DatabaseStandard));
    EXPECT_FALSE(NumberFilter(FilterGreaterOrEqual, 1.0).PassesCell("Steel", 0.0, DatabaseStandard));
}

TEST(nuxDimFilter, EachSetterLeavesTheFieldsOfTheOtherKind) {
    nuxDimFilter filter = NumberFilter(FilterBetween, 2.0, 3.0, DatabaseUser);
    filter.SetText(FilterStringEqual, "word", DatabaseStandard);
    EXPECT_EQ(2.0, filter.Lower());
    EXPECT_EQ(3.0, filter.Upper());
    filter.SetNumber(FilterNone, 0.0, 0.0, DatabaseBoth);
    EXPECT_EQ("word", filter.Text());
    EXPECT_TRUE(filter.IsInactive());
}

TEST(nuxDimFilter, ACopyIsIndependent) {
    nuxDimFilter filter = TextFilter(FilterStringEqual, "word");
    const nuxDimFilter copy = filter;
    filter.SetText(FilterStringEqual, "other", DatabaseUser);
    EXPECT_EQ("word", copy.Text());
    EXPECT_EQ(copy.Database(), DatabaseBoth);
}

}  // namespace
}  // namespace nux
