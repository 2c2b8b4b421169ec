#include "dimensions/DimensionKeys.h"

#include <gtest/gtest.h>

namespace nux {
namespace {

TEST(DimensionKeys, TheKeyOfAComponentLiesBelowTheVersionOfTheProduct) {
    EXPECT_EQ(DimensionsKey("Software\\Maker\\Product\\1.2", "screws", "M8"),
              "Software\\Maker\\Product\\1.2\\ChooseStdDimsDlg\\screws\\M8");
}

TEST(DimensionKeys, ARootWithoutAVersionKeepsItsBackslash) {
    EXPECT_EQ(DimensionsKey("Software\\Maker\\", "screws", "M8"),
              "Software\\Maker\\\\ChooseStdDimsDlg\\screws\\M8");
}

TEST(DimensionKeys, TheKeyOfAColumnEndsInItsCaption) {
    EXPECT_EQ(DimensionColumnKey("K", "L\xe4nge [mm]"), "K\\Columns\\L\xe4nge [mm]");
    EXPECT_EQ(DimensionColumnKey("K", ""), "K\\Columns\\");
}

}  // namespace
}  // namespace nux
