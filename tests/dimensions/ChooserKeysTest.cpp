#include "dimensions/ChooserKeys.h"

#include <gtest/gtest.h>

namespace nux {
namespace {

TEST(ChooserKeys, TheKeyOfAComponentLiesBelowTheVersionOfTheProduct) {
    EXPECT_EQ(ChooserKey("Software\\Maker\\Product\\1.2", "screws", "M8"),
              "Software\\Maker\\Product\\1.2\\ChooseStdDimsDlg\\screws\\M8");
}

TEST(ChooserKeys, ARootWithoutAVersionKeepsItsBackslash) {
    EXPECT_EQ(ChooserKey("Software\\Maker\\", "screws", "M8"),
              "Software\\Maker\\\\ChooseStdDimsDlg\\screws\\M8");
}

TEST(ChooserKeys, TheKeyOfAColumnEndsInItsCaption) {
    EXPECT_EQ(ChooserColumnKey("K", "L\xe4nge [mm]"), "K\\Columns\\L\xe4nge [mm]");
    EXPECT_EQ(ChooserColumnKey("K", ""), "K\\Columns\\");
}

}  // namespace
}  // namespace nux
