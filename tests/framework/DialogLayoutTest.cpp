#include "framework/DialogLayout.h"

#include <gtest/gtest.h>

#include <limits>

namespace nux {
namespace {

DialogLayout Layout() {
    return DialogLayout({100, 50, 500, 350}, {110, 80, 490, 300}, {{{10, 270}, {200, 270}, {300, 270}}});
}

TEST(DialogLayout, TheMinimumIsOnePixelAboveTheFirstSize) {
    EXPECT_EQ(Layout().MinimumSize(), (PixelSize{401, 301}));
    EXPECT_EQ(Layout().InitialPosition(), (PixelPoint{100, 50}));
}

TEST(DialogLayout, ASizeBelowTheMinimumIsRaisedInEachDirectionByItself) {
    const DialogLayout layout = Layout();
    EXPECT_EQ(layout.RaisedToMinimum({10, 10}), (PixelSize{401, 301}));
    EXPECT_EQ(layout.RaisedToMinimum({400, 999}), (PixelSize{401, 999}));
    EXPECT_EQ(layout.RaisedToMinimum({999, 300}), (PixelSize{999, 301}));
    EXPECT_EQ(layout.RaisedToMinimum({401, 301}), (PixelSize{401, 301}));
}

TEST(DialogLayout, AtTheMinimumTheButtonsStandWhereTheyStood) {
    const DialogLayout::Placement placement = Layout().PlaceControls({401, 301});
    EXPECT_EQ(placement.list, (PixelSize{381, 221}));
    EXPECT_EQ(placement.buttons, (DialogLayout::Buttons{{{10, 270}, {200, 270}, {300, 270}}}));
}

TEST(DialogLayout, TheListGrowsAndAllButtonsKeepTheirDistanceFromTheLowerRightCorner) {
    const DialogLayout::Placement placement = Layout().PlaceControls({451, 321});
    EXPECT_EQ(placement.list, (PixelSize{431, 241}));
    EXPECT_EQ(placement.buttons, (DialogLayout::Buttons{{{60, 290}, {250, 290}, {350, 290}}}));
}

TEST(DialogLayout, AStoredSizeComesBackUnchanged) {
    const DialogLayout layout = Layout();
    EXPECT_EQ(layout.AboveMinimum({401, 301}), (PixelSize{0, 0}));
    EXPECT_EQ(layout.AboveMinimum({451, 321}), (PixelSize{50, 20}));
    EXPECT_EQ(layout.WindowSize(layout.AboveMinimum({451, 321})), (PixelSize{451, 321}));
    EXPECT_EQ(layout.WindowSize({0, 0}), layout.MinimumSize());
}

TEST(DialogLayout, AStoredSizeBeyondAllNumbersEndsAtTheMinimum) {
    const DialogLayout layout = Layout();
    const int largest = std::numeric_limits<int>::max();
    EXPECT_EQ(layout.RaisedToMinimum(layout.WindowSize({largest, largest})), layout.MinimumSize());
}

}  // namespace
}  // namespace nux
