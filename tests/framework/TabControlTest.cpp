#include "framework/TabControl.h"

#include <gtest/gtest.h>

#include <string>

#include "driver/PointerInput.h"

namespace nux {
namespace {

class TabControlTest : public testing::Test {
protected:
    TabControlTest() {
        const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TAB_CLASSES};
        InitCommonControlsEx(&classes);
        tabs = TabControl(CreateWindowExA(0, WC_TABCONTROLA, "", WS_POPUP | WS_VISIBLE, 20, 20, 300, 40,
                                          nullptr, nullptr, nullptr, nullptr));
    }
    ~TabControlTest() override { DestroyWindow(tabs.Handle()); }

    std::string Title(int tab) const {
        char text[64] = "";
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = sizeof text;
        SendMessageA(tabs.Handle(), TCM_GETITEMA, tab, reinterpret_cast<LPARAM>(&item));
        return text;
    }

    TabControl tabs;
};

TEST_F(TabControlTest, TabsAreInsertedRenamedAndDeleted) {
    EXPECT_EQ(0, tabs.Count());
    tabs.Insert(0, "Draft");
    tabs.Insert(1, "Section");
    tabs.Insert(1, "Top");
    EXPECT_EQ(3, tabs.Count());
    EXPECT_EQ("Top", Title(1));
    tabs.SetTitle(1, "Side");
    EXPECT_EQ("Side", Title(1));
    tabs.Delete(0);
    EXPECT_EQ(2, tabs.Count());
    EXPECT_EQ("Side", Title(0));
}

TEST_F(TabControlTest, OneTabIsSelected) {
    EXPECT_EQ(-1, tabs.Selected());
    tabs.Insert(0, "Draft");
    tabs.Insert(1, "Section");
    tabs.Select(1);
    EXPECT_EQ(1, tabs.Selected());
}

TEST_F(TabControlTest, TellsTheTabAtThePointer) {
    tabs.Insert(0, "Draft");
    tabs.Insert(1, "Section");
    RECT place{};
    TabCtrl_GetItemRect(tabs.Handle(), 1, &place);
    driver::MovePointer(
        driver::OnScreen(tabs.Handle(), {(place.left + place.right) / 2, (place.top + place.bottom) / 2}));
    EXPECT_EQ(1, tabs.AtPointer());
    driver::MovePointer(driver::OnScreen(tabs.Handle(), {place.right + 30, place.top + 5}));
    EXPECT_EQ(-1, tabs.AtPointer());
}

}  // namespace
}  // namespace nux
