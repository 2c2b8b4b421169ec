#include "dimensions/QuickFilter.h"

#include <gtest/gtest.h>

namespace nux {
namespace {

constexpr PixelRectangle pager{100, 200, 180, 304};
constexpr PixelPoint inside{120, 220};

QuickFilterGeometry Geometry(int rows = 3) {
    return QuickFilterGeometry(std::vector<std::string>(rows, "12.50"), 13, 11);
}

TEST(QuickFilterGeometry, TheWidthIsThatOfTheLongestStringAndTwoCharactersMore) {
    EXPECT_EQ(7 * 11, QuickFilterGeometry({"1", "12345", "123"}, 13, 11).Width());
    EXPECT_EQ(4 * 11, QuickFilterGeometry({"\x83\x41"}, 13, 11).Width());
}

TEST(QuickFilterGeometry, ATextOfAnyLengthLeavesRoomForTheFrameAndThePlaceOnTheScreen) {
    constexpr int most = 1 << 30;
    const QuickFilterGeometry geometry({std::string(71'000'000, 'x')}, 13, 31);
    EXPECT_EQ(geometry.Width(), most);
    EXPECT_EQ(geometry.PagerSize(), (PixelSize{most, 104}));
    EXPECT_EQ(TopLeftUnderPointer({0, 0}, geometry.PointerPlace(), {0, 0}).x, -most / 4);
}

TEST(QuickFilterGeometry, WithoutStringsItIsTwoCharactersWideAndStillEightRowsHigh) {
    const QuickFilterGeometry geometry({}, 13, 11);
    EXPECT_EQ(geometry.ListSize(), (PixelSize{22, 0}));
    EXPECT_EQ(geometry.PagerSize(), (PixelSize{22, 104}));
}

TEST(QuickFilterGeometry, ThePagerShowsEightRowsWhateverTheList) {
    EXPECT_EQ(Geometry(3).ListSize(), (PixelSize{77, 39}));
    EXPECT_EQ(Geometry(3).PagerSize(), (PixelSize{77, 104}));
    EXPECT_EQ(Geometry(100).ListSize(), (PixelSize{77, 1300}));
    EXPECT_EQ(Geometry(100).PagerSize(), (PixelSize{77, 104}));
}

TEST(QuickFilterGeometry, ARowIsOneRowHeightTallAndAsWideAsTheList) {
    EXPECT_EQ(13, Geometry().RowHeight());
    EXPECT_EQ(Geometry().Row(0), (PixelRectangle{0, 0, 77, 13}));
    EXPECT_EQ(Geometry().Row(2), (PixelRectangle{0, 26, 77, 39}));
}

TEST(QuickFilterGeometry, TheWindowOpensWithThePointerAQuarterAcrossTheFirstRowAtMidHeight) {
    EXPECT_EQ(Geometry().PointerPlace(), (PixelPoint{19, 6}));
    EXPECT_EQ(TopLeftUnderPointer({640, 480}, {122, 109}, {100, 100}), (PixelPoint{618, 471}));
    // The edge of the screen doesn't hold it back.
    EXPECT_EQ(TopLeftUnderPointer({0, 0}, {122, 109}, {100, 100}), (PixelPoint{-22, -9}));
}

TEST(QuickFilterGeometry, TheRowIsThePositionInTheListDividedByTheRowHeight) {
    const QuickFilterGeometry geometry = Geometry();
    EXPECT_EQ(0, geometry.RowAt(inside, pager, 0));
    EXPECT_EQ(0, geometry.RowAt(inside, pager, 12));
    EXPECT_EQ(1, geometry.RowAt(inside, pager, 13));
    EXPECT_EQ(2, geometry.RowAt(inside, pager, 38));
}

TEST(QuickFilterGeometry, BelowTheLastStringTheRowLiesBeyondTheStrings) {
    EXPECT_EQ(3, Geometry().RowAt(inside, pager, 39));
    EXPECT_EQ(0, QuickFilterGeometry({}, 13, 11).RowAt(inside, pager, 5));
}

TEST(QuickFilterGeometry, OutsideThePagerThereIsNoRow) {
    const QuickFilterGeometry geometry = Geometry();
    for (const PixelPoint outside : {PixelPoint{99, 220}, {181, 220}, {120, 199}, {120, 305}})
        EXPECT_EQ(-1, geometry.RowAt(outside, pager, 20)) << outside.x << " " << outside.y;
}

TEST(QuickFilterGeometry, AllFourEdgesOfThePagerAreInside) {
    const QuickFilterGeometry geometry = Geometry();
    for (const PixelPoint edge : {PixelPoint{100, 220}, {180, 220}, {120, 200}, {120, 304}})
        EXPECT_EQ(1, geometry.RowAt(edge, pager, 20)) << edge.x << " " << edge.y;
}

TEST(QuickFilterGeometry, AboveTheListTheRowIsTheFirstForOneRowHeightAndThenNegative) {
    const QuickFilterGeometry geometry = Geometry();
    EXPECT_EQ(0, geometry.RowAt(inside, pager, -1));
    EXPECT_EQ(0, geometry.RowAt(inside, pager, -12));
    EXPECT_EQ(-1, geometry.RowAt(inside, pager, -13));
    EXPECT_EQ(-2, geometry.RowAt(inside, pager, -26));
}

TEST(QuickFilterGeometry, TheRowReachesAsFarAsAMouseMessageCanTell) {
    EXPECT_EQ(2520, Geometry().RowAt(inside, pager, 32767));
    EXPECT_EQ(-2520, Geometry().RowAt(inside, pager, -32768));
}

TEST(QuickFilterGeometry, AScrollButtonMovesByOneRowOrByFiveWithAModifierKey) {
    EXPECT_EQ(13, Geometry().ScrollStep(false));
    EXPECT_EQ(65, Geometry().ScrollStep(true));
}

TEST(QuickFilterChoice, AChosenNumberGivesAFilterEqualToIt) {
    const nuxDimFilter filter = FilterOfChosenNumber(1, {2.0, 3.5});
    EXPECT_EQ(filter.Type(), FilterEqual);
    EXPECT_EQ(3.5, filter.Lower());
    EXPECT_EQ(0.0, filter.Upper());
    EXPECT_EQ(filter.Database(), DatabaseBoth);
}

TEST(QuickFilterChoice, AChosenTextGivesAFilterEqualToIt) {
    const nuxDimFilter filter = FilterOfChosenText(0, {"steel", "brass"});
    EXPECT_EQ(filter.Type(), FilterStringEqual);
    EXPECT_EQ("steel", filter.Text());
    EXPECT_EQ(filter.Database(), DatabaseBoth);
}

TEST(QuickFilterChoice, ARowBeyondTheValuesGivesAnInactiveFilter) {
    EXPECT_TRUE(FilterOfChosenNumber(2, {2.0, 3.5}).IsInactive());
    EXPECT_TRUE(FilterOfChosenNumber(0, {}).IsInactive());
    EXPECT_TRUE(FilterOfChosenText(2, {"steel", "brass"}).IsInactive());
    EXPECT_TRUE(FilterOfChosenText(0, {}).IsInactive());
}

}  // namespace
}  // namespace nux
