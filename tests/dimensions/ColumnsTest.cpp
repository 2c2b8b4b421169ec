#include "dimensions/Columns.h"

#include <gtest/gtest.h>

#include <limits>

namespace nux {
namespace {

const std::vector<int> order{0, 1, 2, 3};

void ExpectRefused(const ColumnDrop& drop) {
    EXPECT_FALSE(drop.allowed);
    EXPECT_FALSE(drop.order);
}

void ExpectOrder(const ColumnDrop& drop, const std::vector<int>& expected) {
    EXPECT_TRUE(drop.allowed);
    ASSERT_TRUE(drop.order);
    EXPECT_EQ(expected, *drop.order);
}

TEST(DropColumn, TheMarkerColumnStaysWhereItIs) {
    ExpectRefused(DropColumn(order, 0, 2));
    ExpectRefused(DropColumn(order, 0, std::nullopt));
}

TEST(DropColumn, ADropWithoutAPositionIsAllowedAndChangesNothing) {
    const ColumnDrop drop = DropColumn(order, 2, std::nullopt);
    EXPECT_TRUE(drop.allowed);
    EXPECT_FALSE(drop.order);
}

TEST(DropColumn, NothingIsDroppedBeforeTheMarkerColumn) {
    ExpectRefused(DropColumn(order, 2, 0));
}

TEST(DropColumn, TheColumnIsTakenOutAndPutInAtItsNewPosition) {
    ExpectOrder(DropColumn(order, 1, 3), {0, 2, 3, 1});
    ExpectOrder(DropColumn(order, 3, 1), {0, 3, 1, 2});
    ExpectOrder(DropColumn(order, 1, 2), {0, 2, 1, 3});
    ExpectOrder(DropColumn(order, 2, 2), {0, 1, 2, 3});
    ExpectOrder(DropColumn({0, 3, 1, 2}, 1, 1), {0, 1, 3, 2});
}

TEST(DropColumn, APositionThatTheHeaderDoesNotHaveIsRefused) {
    for (const int position : {-1, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        ExpectRefused(DropColumn(order, 1, position));
}

TEST(DropColumn, AColumnThatTheOrderDoesNotHaveIsRefused) {
    ExpectRefused(DropColumn(order, 4, 1));
    ExpectRefused(DropColumn({}, 1, 1));
}

StoredColumn Marker() {
    return {true, -1};
}

StoredColumn Stored(std::int32_t position) {
    return {false, position};
}

TEST(StoredColumnOrder, EachColumnComesToItsPosition) {
    const auto stored = StoredColumnOrder({Marker(), Stored(3), Stored(1), Stored(2)});
    ASSERT_TRUE(stored);
    EXPECT_EQ((std::vector<int>{0, 2, 3, 1}), *stored);
}

TEST(StoredColumnOrder, TheMarkerColumnTakesPosition0WhateverIsStored) {
    const auto stored = StoredColumnOrder({{true, 7}, Stored(1)});
    ASSERT_TRUE(stored);
    EXPECT_EQ((std::vector<int>{0, 1}), *stored);
}

TEST(StoredColumnOrder, OnAFirstOpeningThereIsNoOrder) {
    EXPECT_FALSE(StoredColumnOrder({Marker(), Stored(-1), Stored(-1)}));
}

TEST(StoredColumnOrder, OneNegativePositionLosesTheWholeOrder) {
    EXPECT_FALSE(StoredColumnOrder({Marker(), Stored(1), Stored(-1)}));
    EXPECT_FALSE(StoredColumnOrder({Marker(), Stored(1), Stored(std::numeric_limits<std::int32_t>::min())}));
}

TEST(StoredColumnOrder, APositionBeyondTheColumnsLosesTheWholeOrder) {
    EXPECT_FALSE(StoredColumnOrder({Marker(), Stored(1), Stored(3)}));
    EXPECT_FALSE(StoredColumnOrder({Marker(), Stored(std::numeric_limits<std::int32_t>::max())}));
}

TEST(StoredColumnOrder, APositionThatIsTakenTwiceLosesTheWholeOrder) {
    EXPECT_FALSE(StoredColumnOrder({Marker(), Stored(1), Stored(1)}));
    EXPECT_FALSE(StoredColumnOrder({Marker(), Stored(0), Stored(1)}));
}

TEST(StoredColumnOrder, ASecondColumnWithoutACaptionLosesTheWholeOrder) {
    EXPECT_FALSE(StoredColumnOrder({Marker(), Marker(), Stored(1)}));
}

TEST(StoredColumnOrder, NoColumnsMakeAnEmptyOrder) {
    const auto stored = StoredColumnOrder({});
    ASSERT_TRUE(stored);
    EXPECT_TRUE(stored->empty());
}

/// One line for each item: its text ("--" for a separator), command, icon, and whether it can be chosen.
std::string Spelled(bool numericColumn, bool filterActive) {
    std::string text;
    for (const ColumnMenuItem& item : ColumnMenu(numericColumn, filterActive)) {
        text += item.text ? item.text : "--";
        text += ' ' + std::to_string(static_cast<unsigned>(item.command)) + ' ' + std::to_string(item.icon);
        text += item.enabled ? "\n" : " disabled\n";
    }
    return text;
}

TEST(ColumnMenu, ANumericColumnWithAnActiveFilterOffersEverything) {
    EXPECT_EQ(
        "Define filter... 1 234\n"
        "Turn off filter 2 235\n"
        "-- 0 0\n"
        "Sort in ascending order 3 232\n"
        "Sort in descending order 4 233\n"
        "-- 0 0\n"
        "Cancel 0 0\n",
        Spelled(true, true));
}

TEST(ColumnMenu, ATextColumnDefinesNoFilter) {
    EXPECT_NE(Spelled(false, true).find("Define filter... 1 234 disabled\nTurn off filter 2 235\n"),
              std::string::npos);
}

TEST(ColumnMenu, AnInactiveFilterIsNotTurnedOff) {
    EXPECT_NE(Spelled(true, false).find("Define filter... 1 234\nTurn off filter 2 235 disabled\n"),
              std::string::npos);
}

}  // namespace
}  // namespace nux
