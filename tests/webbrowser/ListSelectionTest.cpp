#include "webbrowser/ListSelection.h"

#include <gtest/gtest.h>

namespace nux::webbrowser {
namespace {

/// A text that begins with "-" is of an entry that isn't enabled.
ListSelection Make(const std::vector<std::wstring>& texts, int marked = -1, int rows = 3) {
    std::vector<ListEntry> entries;
    for (const std::wstring& text : texts)
        entries.push_back({text, text[0] != L'-'});
    return {std::move(entries), marked, rows};
}

TEST(ListSelection, PassesOverEntriesThatCannotBeMarked) {
    ListSelection list = Make({L"-a", L"b", L"-c", L"d", L"-e"});
    list.Move(1);
    EXPECT_EQ(1, list.Marked());
    list.Move(1);
    EXPECT_EQ(3, list.Marked());
    list.Move(1);
    EXPECT_EQ(3, list.Marked()) << "below it there is none";
    list.Move(-1);
    EXPECT_EQ(1, list.Marked());
    list.Move(-1);
    EXPECT_EQ(1, list.Marked());
    list.Mark(2);
    EXPECT_EQ(1, list.Marked());
    list.Mark(3);
    EXPECT_EQ(3, list.Marked());
}

TEST(ListSelection, AStepThatIsTooLargeEndsAtTheLastEntry) {
    ListSelection list = Make({L"a", L"b", L"c", L"-d"}, 1);
    list.Move(3);
    EXPECT_EQ(2, list.Marked());
    list.Move(-3);
    EXPECT_EQ(0, list.Marked());
    list.MoveToEnd(true);
    EXPECT_EQ(2, list.Marked());
    list.MoveToEnd(false);
    EXPECT_EQ(0, list.Marked());
}

TEST(ListSelection, TheMarkedEntryIsInSight) {
    ListSelection list = Make({L"a", L"b", L"c", L"d", L"e", L"f"}, 4);
    EXPECT_EQ(2, list.First());
    list.Move(-1);
    EXPECT_EQ(2, list.First());
    list.MoveToEnd(false);
    EXPECT_EQ(0, list.First());
    list.ScrollTo(99);
    EXPECT_EQ(3, list.First());
    EXPECT_EQ(0, list.Marked()) << "scrolling marks nothing";
    list.ScrollTo(-5);
    EXPECT_EQ(0, list.First());
}

TEST(ListSelection, WhatIsTypedWithinASecondIsOneText) {
    ListSelection list = Make({L"Steel", L"Stone", L"-Stove", L"Brass"});
    EXPECT_TRUE(list.Type(L's', 10'000));
    EXPECT_EQ(0, list.Marked());
    EXPECT_TRUE(list.Type(L't', 10'100));
    EXPECT_TRUE(list.Type(L'O', 10'200));
    EXPECT_EQ(1, list.Marked());
    EXPECT_FALSE(list.Type(L'v', 10'300)) << "that one can't be marked";
    EXPECT_EQ(1, list.Marked());
    EXPECT_TRUE(list.Type(L'b', 11'400));
    EXPECT_EQ(3, list.Marked());
}

TEST(ListSelection, TheSameLetterAgainFindsTheNextEntry) {
    ListSelection list = Make({L"Steel", L"Stone", L"Brass"}, 2);
    list.Type(L's', 5'000);
    EXPECT_EQ(0, list.Marked());
    list.Type(L's', 5'100);
    EXPECT_EQ(1, list.Marked());
    list.Type(L'S', 5'200);
    EXPECT_EQ(0, list.Marked());
}

TEST(ListSelection, AListWithoutAnyEntryToMarkStaysAsItIs) {
    ListSelection list = Make({L"-a", L"-b"});
    list.Move(1);
    list.Move(-1);
    list.MoveToEnd(true);
    EXPECT_FALSE(list.Type(L'a', 1));
    EXPECT_EQ(-1, list.Marked());
    ListSelection empty = Make({}, 5);
    empty.Move(1);
    empty.MoveToEnd(false);
    EXPECT_FALSE(empty.Type(L'a', 1));
    EXPECT_EQ(-1, empty.Marked());
    EXPECT_EQ(0, empty.First());
}

}  // namespace
}  // namespace nux::webbrowser
