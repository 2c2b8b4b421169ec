// The lists of select elements, as users work them.

#include <gtest/gtest.h>

#include "driver/Input.h"
#include "driver/PointerInput.h"
#include "driver/Waiting.h"
#include "tests/webbrowser/ShownBrowser.h"

namespace nux::webbrowser {
namespace {

class DropDown : public ShownBrowser {
protected:
    /// Shows a list at the top left of the page, which writes its choices into the page's title.
    void ShowList(const std::string& options) {
        Activate();
        Show(
            "<body style='margin:0' onclick=\"document.title += ' click'\">"
            "<select id=s style='width:120px;height:24px' onchange='document.title = s.value'>" +
            options + "</select><script>s.focus()</script>");
    }
    /// Opens it by the keyboard and waits for it.
    HWND Opened() {
        SetFocus(Window());
        PostMessageW(Window(), WM_KEYDOWN, VK_F4, 0);
        PostMessageW(Window(), WM_KEYUP, VK_F4, 0);
        EXPECT_TRUE(Await([] { return List() != nullptr; }));
        return List();
    }
    static HWND List() { return FindWindowA("nuxWebBrowserList", nullptr); }
    void Press(WPARAM key) {
        PostMessageW(Window(), WM_KEYDOWN, key, 0);
        PostMessageW(Window(), WM_KEYUP, key, 0);
    }
    bool BecomesTitle(const std::wstring& title) {
        return Await([&] { return OfDocument(L"title") == title; });
    }
    bool Goes() {
        return Await([] { return List() == nullptr; });
    }
};

constexpr char materials[] = "<option>Steel<option selected>Brass<option disabled>Lead<option>Copper";

TEST_F(DropDown, ARealClickOpensItAndAnotherOneChooses) {
    ShowList(materials);
    const HWND control = Window();
    ByUser([&](driver::User& user) {
        driver::MovePointer(driver::OnScreen(control, {50, 12}));
        driver::PressPointer(driver::PointerButton::Left);
        driver::ReleasePointer(driver::PointerButton::Left);
        const HWND list = user.Window("nuxWebBrowserList");
        RECT client{};
        GetClientRect(list, &client);
        const LONG row = client.bottom / 4;
        driver::MovePointer(driver::OnScreen(list, {30, 2 * row + row / 2}));
        driver::PressPointer(driver::PointerButton::Left);
        driver::ReleasePointer(driver::PointerButton::Left);
        user.Settle();
        if (!IsWindow(list))
            throw driver::NotSeen("a list that stays when what isn't enabled is clicked");
        driver::MovePointer(driver::OnScreen(list, {30, 3 * row + row / 2}));
        driver::PressPointer(driver::PointerButton::Left);
        driver::ReleasePointer(driver::PointerButton::Left);
        driver::WaitUntilGone(list);
    });
    EXPECT_TRUE(Await([&] { return OfDocument(L"title").starts_with(L"Copper"); }));
    EXPECT_EQ(control, GetFocus()) << "the keyboard has stayed with the page";
}

TEST_F(DropDown, AButtonThatIsHeldChoosesWhereItComesUp) {
    ShowList(materials);
    const HWND control = Window();
    ByUser([&](driver::User& user) {
        driver::MovePointer(driver::OnScreen(control, {50, 12}));
        driver::PressPointer(driver::PointerButton::Left);
        const HWND list = user.Window("nuxWebBrowserList");
        driver::DragPointer(driver::OnScreen(list, {30, 5}));
        driver::ReleasePointer(driver::PointerButton::Left);
        driver::WaitUntilGone(list);
    });
    EXPECT_TRUE(Await([&] { return OfDocument(L"title").starts_with(L"Steel"); }));
}

TEST_F(DropDown, ArrowsTypingAndReturnChoose) {
    ShowList(materials);
    ASSERT_TRUE(Opened());
    Press(VK_DOWN);
    Press(VK_RETURN);
    EXPECT_TRUE(BecomesTitle(L"Copper")) << "past the one that isn't enabled";
    EXPECT_TRUE(Goes());
    ASSERT_TRUE(Opened());
    PostMessageW(Window(), WM_CHAR, L's', 0);
    Press(VK_RETURN);
    EXPECT_TRUE(BecomesTitle(L"Steel"));
    EXPECT_TRUE(Goes());
}

TEST_F(DropDown, EscapeAndAClickElsewhereLeaveTheChoice) {
    ShowList(materials);
    ASSERT_TRUE(Opened());
    Press(VK_DOWN);
    Press(VK_ESCAPE);
    EXPECT_TRUE(Goes());
    const HWND list = Opened();
    ASSERT_TRUE(list);
    PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(-50, 5));
    EXPECT_TRUE(Goes());
    EXPECT_EQ(L"", OfDocument(L"title"));
}

TEST_F(DropDown, ItsContainerGetsNoneOfItsKeys) {
    ShowList(materials);
    ASSERT_TRUE(Opened());
    MSG escape{};
    escape.hwnd = Window();
    escape.message = WM_KEYDOWN;
    escape.wParam = VK_ESCAPE;
    const ComPtr<IOleInPlaceActiveObject> active = browser.As<IOleInPlaceActiveObject>();
    EXPECT_EQ(S_OK, active->TranslateAccelerator(&escape));
    EXPECT_FALSE(List());
    EXPECT_EQ(S_FALSE, active->TranslateAccelerator(&escape)) << "it closes dialogs otherwise";
}

TEST_F(DropDown, ALongListScrolls) {
    std::string options;
    for (int i = 0; i < 200; ++i)
        options += "<option>" + std::to_string(i);
    ShowList(options);
    const HWND list = Opened();
    ASSERT_TRUE(list);
    const auto first = [&] { return GetScrollPos(list, SB_VERT); };
    EXPECT_EQ(0, first());
    RECT bounds{};
    GetWindowRect(list, &bounds);
    EXPECT_LE(bounds.bottom, GetSystemMetrics(SM_CYSCREEN));
    SendMessageW(Window(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
    EXPECT_EQ(3, first());
    SendMessageW(list, WM_VSCROLL, SB_PAGEDOWN, 0);
    EXPECT_EQ(23, first());
    Press(VK_END);
    EXPECT_TRUE(Await([&] { return first() == 180; }));
    Press(VK_PRIOR);
    Press(VK_RETURN);
    EXPECT_TRUE(BecomesTitle(L"179"));
}

TEST_F(DropDown, GoesWhenTheFocusGoesAndWithThePage) {
    ShowList(materials);
    ASSERT_TRUE(Opened());
    SetFocus(frame);
    EXPECT_FALSE(List());
    ASSERT_TRUE(Opened());
    const RECT elsewhere{20, 20, 300, 200};
    browser.As<IOleInPlaceObject>()->SetObjectRects(&elsewhere, &elsewhere);
    EXPECT_FALSE(List()) << "it would stand elsewhere than its element";
    ASSERT_TRUE(Opened());
    Navigate(Write("other.htm", "<title>other</title>").c_str());
    EXPECT_TRUE(BecomesTitle(L"other"));
    EXPECT_FALSE(List());
    ShowList(materials);
    ASSERT_TRUE(Opened());
    object->SetClientSite(nullptr);
    EXPECT_FALSE(List());
}

}  // namespace
}  // namespace nux::webbrowser
