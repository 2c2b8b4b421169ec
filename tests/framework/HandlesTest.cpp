#include "framework/Handles.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/HandleCount.h"

namespace nux {
namespace {

std::vector<int> closed;

/// A handle that is a number, 0 when empty; closing it is noted.
struct NotedTraits {
    using Type = int;
    static Type Empty() noexcept { return 0; }
    static void Close(Type handle) noexcept { closed.push_back(handle); }
};
using Noted = UniqueHandle<NotedTraits>;

class UniqueHandleTest : public testing::Test {
protected:
    void SetUp() override { closed.clear(); }
};

TEST_F(UniqueHandleTest, IsEmptyByDefaultAndClosesNothing) {
    {
        Noted handle;
        EXPECT_FALSE(handle);
        handle.Reset();
    }
    EXPECT_TRUE(closed.empty());
}

TEST_F(UniqueHandleTest, ClosesItsHandleOnce) {
    {
        Noted handle(7);
        EXPECT_TRUE(handle);
        EXPECT_EQ(7, handle.Get());
        handle.Reset();
        EXPECT_FALSE(handle);
    }
    EXPECT_EQ(std::vector<int>{7}, closed);
}

TEST_F(UniqueHandleTest, ClosesAtItsEnd) {
    { const Noted handle(3); }
    EXPECT_EQ(std::vector<int>{3}, closed);
}

TEST_F(UniqueHandleTest, GivesItsHandleAwayWhenItIsMoved) {
    {
        Noted first(1);
        Noted second(std::move(first));
        EXPECT_FALSE(first);
        EXPECT_EQ(1, second.Get());
        EXPECT_TRUE(closed.empty());
    }
    EXPECT_EQ(std::vector<int>{1}, closed);
}

TEST_F(UniqueHandleTest, ClosesTheOldHandleWhenANewOneIsAssigned) {
    Noted handle(1);
    handle = Noted(2);
    EXPECT_EQ(std::vector<int>{1}, closed);
    EXPECT_EQ(2, handle.Get());
}

TEST_F(UniqueHandleTest, ClosesNothingThatWasDetached) {
    {
        Noted handle(5);
        EXPECT_EQ(5, handle.Detach());
        EXPECT_FALSE(handle);
    }
    EXPECT_TRUE(closed.empty());
}

TEST_F(UniqueHandleTest, ClosesWhatItHoldsBeforeItReceives) {
    Noted handle(8);
    *handle.Receive() = 9;
    EXPECT_EQ(std::vector<int>{8}, closed);
    EXPECT_EQ(9, handle.Get());
}

TEST(UniqueFile, TakesTheInvalidHandleForEmpty) {
    EXPECT_FALSE(UniqueFile());
    EXPECT_FALSE(UniqueFile(CreateFileA("Z:\\no such folder\\no such file", GENERIC_READ, 0, nullptr,
                                        OPEN_EXISTING, 0, nullptr)));
}

TEST(UniqueKey, LeavesNoHandleOpen) {
    UniqueKey warmUp;
    RegOpenKeyExA(HKEY_CURRENT_USER, "Software", 0, KEY_READ, warmUp.Receive());
    const unsigned before = HandleCount();
    {
        UniqueKey key;
        ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExA(HKEY_CURRENT_USER, "Software", 0, KEY_READ, key.Receive()));
        EXPECT_EQ(before + 1, HandleCount());
    }
    EXPECT_EQ(before, HandleCount());
}

TEST(UniqueMenu, GoesWithItsOwner) {
    HMENU menu = nullptr;
    {
        const UniqueMenu owned(CreatePopupMenu());
        menu = owned.Get();
        EXPECT_TRUE(IsMenu(menu));
    }
    EXPECT_FALSE(IsMenu(menu));
}

}  // namespace
}  // namespace nux
