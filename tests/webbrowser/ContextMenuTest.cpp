// The context menu that the control shows where its container has none, as users work it.

#include <gtest/gtest.h>

#include "driver/PointerInput.h"
#include "driver/PopupMenu.h"
#include "tests/webbrowser/ShownBrowser.h"

namespace nux::webbrowser {
namespace {

class ContextMenu : public ShownBrowser {
protected:
    ContextMenu() { site->onMenu = S_FALSE; }
    /// Presses the right button in the page and has the menu worked.
    void AtMenu(const std::function<void(const driver::PopupMenu&)>& deed) {
        const HWND control = Window();
        ByUser([&](driver::User& user) {
            driver::MovePointer(driver::OnScreen(control, {60, 20}));
            driver::PressPointer(driver::PointerButton::Right);
            driver::ReleasePointer(driver::PointerButton::Right);
            deed(driver::PopupMenu(user));
        });
    }
};

TEST_F(ContextMenu, ItsCommandsReachThePage) {
    Activate();
    Show(
        "<textarea id=i style='width:200px;height:60px'>some text</textarea>"
        "<script>onselect = () => { document.title = getSelection().toString() }</script>");
    AtMenu([](const driver::PopupMenu& menu) {
        EXPECT_EQ(9, menu.Count());
        EXPECT_FALSE(menu.IsEnabled(0)) << "there is nothing to go back to";
        EXPECT_TRUE(menu.IsEnabled(2)) << "it can be loaded again";
        EXPECT_EQ("Select &all", menu.Text(8));
        menu.Choose(8);
    });
    EXPECT_TRUE(Await([&] { return OfDocument(L"title") == L"some text"; }));
    EXPECT_EQ(1, std::count(site->calls.begin(), site->calls.end(), "ShowContextMenu 2"))
        << "the container was asked first, for a control";
}

TEST_F(ContextMenu, IsNotShownWhereThePageRefusesIt) {
    Activate();
    Show("<body oncontextmenu=\"document.title = 'refused'; return false\">text");
    const HWND control = Window();
    ByUser([&](driver::User&) {
        driver::MovePointer(driver::OnScreen(control, {60, 20}));
        driver::PressPointer(driver::PointerButton::Right);
        driver::ReleasePointer(driver::PointerButton::Right);
    });
    EXPECT_TRUE(Await([&] { return OfDocument(L"title") == L"refused"; }));
    EXPECT_FALSE(FindWindowA("#32768", nullptr));
    EXPECT_EQ(0, std::count(site->calls.begin(), site->calls.end(), "ShowContextMenu 0"));
}

}  // namespace
}  // namespace nux::webbrowser
