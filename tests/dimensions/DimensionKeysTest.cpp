#include "dimensions/DimensionKeys.h"

#include <gtest/gtest.h>

namespace nux {
namespace {

TEST(DimensionKeys, TheKeyOfAComponentLiesBelowTheVersionOfTheProduct) {
    EXPECT_EQ("Software\\Maker\\Product\\1.2\\ChooseStdDimsDlg\\screws\\M8",
              DimensionsKey("Software\\Maker\\Product\\1.2", "screws", "M8"));
}

TEST(DimensionKeys, ARootWithoutAVersionKeepsItsBackslash) {
    EXPECT_EQ("Software\\Maker\\\\ChooseStdDimsDlg\\screws\\M8",
              DimensionsKey("Software\\Maker\\", "screws", "M8"));
}

TEST(DimensionKeys, TheKeyOfAColumnEndsInItsCaption) {
    EXPECT_EQ("K\\Columns\\L\xe4nge [mm]", DimensionColumnKey("K", "L\xe4nge [mm]"));
    EXPECT_EQ("K\\Columns\\", DimensionColumnKey("K", ""));
}

}  // namespace
}  // namespace nux
