#include "framework/DialogLayout.h"

#include <gtest/gtest.h>

#include <limits>

namespace nux {
namespace {

/// A dialog with a list that grows, a button in its lower right corner, a tab control that only moves right,
/// and a button that only moves down.
DialogLayout Layout() {
    DialogLayout layout({100, 50, 500, 350});
    layout.Add({10, 30, 390, 250}, growsWide | growsTall);
    layout.Add({300, 270, 380, 290}, movesRight | movesDown);
    layout.Add({200, 10, 390, 30}, movesRight);
    layout.Add({10, 270, 90, 290}, movesDown);
    return layout;
}

TEST(DialogLayout, TheMinimumIsOnePixelAboveTheFirstSize) {
    EXPECT_EQ((PixelSize{401, 301}), Layout().MinimumSize());
    EXPECT_EQ((DialogFrame{{100, 50}, {0, 0}}), Layout().InitialFrame());
}

TEST(DialogLayout, ASizeBelowTheMinimumIsRaisedInEachDirectionByItself) {
    const DialogLayout layout = Layout();
    EXPECT_EQ((PixelSize{401, 301}), layout.RaisedToMinimum({10, 10}));
    EXPECT_EQ((PixelSize{401, 999}), layout.RaisedToMinimum({400, 999}));
    EXPECT_EQ((PixelSize{999, 301}), layout.RaisedToMinimum({999, 300}));
    EXPECT_EQ((PixelSize{401, 301}), layout.RaisedToMinimum({401, 301}));
}

TEST(DialogLayout, AtTheMinimumMovedControlsStandWhereTheyStoodAndGrownOnesAreOnePixelLarger) {
    const auto places = Layout().PlaceControls({401, 301});
    ASSERT_EQ(4u, places.size());
    EXPECT_EQ((PixelSize{381, 221}), places[0].size);
    EXPECT_EQ((PixelPoint{300, 270}), places[1].position);
    EXPECT_EQ((PixelPoint{200, 10}), places[2].position);
    EXPECT_EQ((PixelPoint{10, 270}), places[3].position);
}

TEST(DialogLayout, EachControlFollowsAsItIsAnchored) {
    const auto places = Layout().PlaceControls({451, 321});
    ASSERT_EQ(4u, places.size());
    EXPECT_EQ((PixelSize{431, 241}), places[0].size);
    EXPECT_EQ((PixelPoint{350, 290}), places[1].position);
    EXPECT_EQ((PixelPoint{250, 10}), places[2].position);
    EXPECT_EQ((PixelPoint{10, 290}), places[3].position);
}

TEST(DialogLayout, WhatDoesNotChangeIsNotTold) {
    const auto places = Layout().PlaceControls({451, 321});
    ASSERT_EQ(4u, places.size());
    EXPECT_FALSE(places[0].position);
    EXPECT_FALSE(places[1].size);
    EXPECT_FALSE(places[2].size);
    EXPECT_FALSE(places[3].size);
}

TEST(DialogLayout, ARememberedFrameComesBackUnchanged) {
    const DialogLayout layout = Layout();
    const DialogFrame frame = layout.FrameOf({-20, 7, 431, 328});
    EXPECT_EQ((DialogFrame{{-20, 7}, {50, 20}}), frame);
    EXPECT_EQ((PixelSize{451, 321}), layout.WindowSize(frame));
    EXPECT_EQ(layout.MinimumSize(), layout.WindowSize(layout.InitialFrame()));
}

TEST(DialogLayout, ARememberedSizeBeyondAllNumbersEndsAtTheMinimum) {
    const DialogLayout layout = Layout();
    const int largest = std::numeric_limits<int>::max();
    EXPECT_EQ(layout.MinimumSize(), layout.RaisedToMinimum(layout.WindowSize({{0, 0}, {largest, largest}})));
}

}  // namespace
}  // namespace nux
