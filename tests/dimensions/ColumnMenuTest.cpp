#include "dimensions/ColumnMenu.h"

#include <gtest/gtest.h>

#include <string>

namespace nux {
namespace {

/// One line for each item: its text ("--" for a separator), command, image, and whether it can be chosen.
std::string Spelled(bool numericColumn, bool filterActive) {
    std::string text;
    for (const ColumnMenuItem& item : ColumnMenu(numericColumn, filterActive)) {
        text += item.text ? item.text : "--";
        text += ' ' + std::to_string(static_cast<unsigned>(item.command)) + ' ' + std::to_string(item.image);
        text += item.enabled ? "\n" : " disabled\n";
    }
    return text;
}

TEST(ColumnMenu, ANumericColumnWithAnActiveFilterOffersEverything) {
    EXPECT_EQ(Spelled(true, true),
              "Define filter... 1 0\n"
              "Turn off filter 2 1\n"
              "-- 0 -1\n"
              "Sort in ascending order 3 2\n"
              "Sort in descending order 4 3\n"
              "-- 0 -1\n"
              "Cancel 0 -1\n");
}

TEST(ColumnMenu, ATextColumnDefinesNoFilter) {
    EXPECT_NE(Spelled(false, true).find("Define filter... 1 0 disabled\nTurn off filter 2 1\n"),
              std::string::npos);
}

TEST(ColumnMenu, AnInactiveFilterIsNotTurnedOff) {
    EXPECT_NE(Spelled(true, false).find("Define filter... 1 0\nTurn off filter 2 1 disabled\n"),
              std::string::npos);
}

}  // namespace
}  // namespace nux
