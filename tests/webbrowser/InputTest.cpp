#include <gtest/gtest.h>

#include "framework/ComObject.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/OpenedPage.h"

namespace nux::webbrowser {
namespace {

class InputTest : public testing::Test {
protected:
    void Press(WPARAM key, wchar_t character = 0) {
        page->Key(WM_KEYDOWN, key, 1);
        if (character)
            page->Key(WM_CHAR, character, 1);
        page->Key(WM_KEYUP, key, static_cast<LPARAM>(0xc0000001));
    }
    void Click(POINT at) {
        page->Mouse(WM_MOUSEMOVE, 0, at);
        page->Mouse(WM_LBUTTONDOWN, MK_LBUTTON, at);
        page->Mouse(WM_LBUTTONUP, 0, at);
    }
    bool Becomes(const std::wstring& expression, const std::wstring& text) {
        return page.Await([&] { return page.Text(expression) == text; });
    }
    OpenedPage page;
};

TEST_F(InputTest, AClickReachesTheElementAndTheExternalObject) {
    const auto external = MakeObject<ExternalDouble>();
    int clicks = 0;
    external->methods[L"Clicked"] = [&](const ExternalDouble::Arguments&) {
        ++clicks;
        return Variant();
    };
    page.external = external;
    page.Show(
        "<body style='margin:0'><button style='width:100px;height:40px' "
        "onclick='external.Clicked()'>x</button>");
    Click({50, 20});
    EXPECT_TRUE(page.Await([&] { return clicks == 1; }));
    Click({50, 60});
    Click({50, 20});
    EXPECT_TRUE(page.Await([&] { return clicks == 2; }));
}

TEST_F(InputTest, ADoubleClickIsOne) {
    page.Show(
        "<body style='margin:0'><div style='height:100px' ondblclick='this.id = \"twice\"' id=once>x</div>");
    Click({50, 20});
    page->Mouse(WM_LBUTTONDBLCLK, MK_LBUTTON, {50, 20});
    page->Mouse(WM_LBUTTONUP, 0, {50, 20});
    EXPECT_TRUE(Becomes(L"document.querySelector('div').id", L"twice"));
}

TEST_F(InputTest, KeysWriteAndEdit) {
    page.Show(
        "<input id=i onkeydown='keys.push(event.keyCode + event.code)'><script>var keys = []; "
        "i.focus()</script>");
    page->SetFocus(true);
    Press('A', L'a');
    Press('B', L'\x00e4');
    Press(VK_BACK, L'\b');
    Press('C', L'c');
    Press(VK_HOME);
    Press('D', L'd');
    EXPECT_TRUE(Becomes(L"i.value", L"dac")) << page.Text(L"i.value").size();
    EXPECT_EQ(L"65KeyA,66KeyB,8Backspace,67KeyC,36Home,68KeyD", page.Text(L"keys"));
}

TEST_F(InputTest, ReturnPressesTheButtonOfAForm) {
    page.Show(
        "<form onsubmit='done = true; return false'><input id=i></form><script>var done = false; "
        "i.focus()</script>");
    page->SetFocus(true);
    Press(VK_RETURN, L'\r');
    EXPECT_TRUE(Becomes(L"done", L"true"));
}

TEST_F(InputTest, TheWheelScrolls) {
    page.Show("<body style='margin:0; height:5000px'>");
    page->Mouse(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), {50, 50});
    EXPECT_TRUE(Becomes(L"scrollY", L"100"));
    page->Mouse(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), {50, 50});
    EXPECT_TRUE(Becomes(L"scrollY", L"0"));
}

TEST_F(InputTest, TabGoesThroughTheElementsAndOutOfThePage) {
    page.Show("<input id=a><input id=b>");
    page->SetFocus(true);
    page->TabInto(true);
    EXPECT_TRUE(Becomes(L"document.activeElement.id", L"a"));
    Press(VK_TAB, L'\t');
    EXPECT_TRUE(Becomes(L"document.activeElement.id", L"b"));
    EXPECT_FALSE(page.WasTold(L"tab"));
    Press(VK_TAB, L'\t');
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"tab"); }));
    page->TabInto(false);
    EXPECT_TRUE(Becomes(L"document.activeElement.id", L"b"));
}

TEST_F(InputTest, TellsTheCursorAndTheToolTip) {
    page.Show(
        "<body style='margin:0'><div style='cursor:pointer;height:50px' title='Tip'></div>"
        "<div style='height:50px'></div><p style='margin:0'>text text text</p>");
    page->Mouse(WM_MOUSEMOVE, 0, {50, 20});
    EXPECT_TRUE(page.Await([&] { return page.cursor == LoadCursorA(nullptr, IDC_HAND); }));
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"tip Tip"); }));
    page->Mouse(WM_MOUSEMOVE, 0, {50, 70});
    EXPECT_TRUE(page.Await([&] { return page.cursor == LoadCursorA(nullptr, IDC_ARROW); }));
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"tip "); }));
    page->Mouse(WM_MOUSEMOVE, 0, {20, 110});
    EXPECT_TRUE(page.Await([&] { return page.cursor == LoadCursorA(nullptr, IDC_IBEAM); }));
}

TEST_F(InputTest, GivesTheListOfASelectElementAndTakesTheChoice) {
    page.Show(
        "<body style='margin:0'><select id=s style='width:100px;height:20px' onchange='changed = s.value'>"
        "<option>one<option selected>two<option disabled>three</select><script>var changed = ''</script>");
    Click({50, 10});
    ASSERT_TRUE(page.Await([&] { return page.list.entries.size() == 3; }));
    EXPECT_EQ(L"one", page.list.entries[0].text);
    EXPECT_TRUE(page.list.entries[0].isEnabled);
    EXPECT_FALSE(page.list.entries[2].isEnabled);
    EXPECT_EQ(1, page.list.selected);
    EXPECT_EQ(100, page.list.place.right);
    EXPECT_EQ(20, page.list.place.bottom);
    page->ChooseInList(page.list.element, 0);
    EXPECT_TRUE(Becomes(L"changed", L"one"));
}

TEST_F(InputTest, TellsWhatIsCopiedAndWritesWhatIsPasted) {
    page.Show("<input id=i value='some text'><script>i.focus(); i.setSelectionRange(0, 4)</script>");
    page->SetFocus(true);
    BYTE keys[256]{};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    Press('C', L'\x03');
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"copied some"); }));
    page->InsertText(L"any \x00e4");
    EXPECT_TRUE(Becomes(L"i.value", L"any \x00e4 text"));
}

TEST_F(InputTest, NothingComesOfTheInputOfAPageThatIsNotThere) {
    page.Show("<input id=i>");
    page->Close();
    EXPECT_NO_THROW(page->TabInto(true));
    EXPECT_NO_THROW(page->SetFocus(true));
    EXPECT_NO_THROW(page->InsertText(L"text"));
    EXPECT_NO_THROW(Click({10, 10}));
    EXPECT_NO_THROW(Press('A', L'a'));
}

TEST_F(InputTest, ADocumentThatIsWrittenAnewHasItsListsTipsAndMenus) {
    for (const wchar_t* way : {L"", L"document.open();"}) {
        page.Show("<body>");
        page.told.clear();
        page.list = {};
        page->Execute(std::wstring(way) +
                      L"document.write(`<body style='margin:0'><select style='width:100px;height:20px'>"
                      L"<option>one</select><p title=tip style='height:50px'>x`); document.close()");
        Click({50, 10});
        ASSERT_TRUE(page.Await([&] { return page.list.entries.size() == 1; }));
        page->Mouse(WM_MOUSEMOVE, 0, {30, 50});
        EXPECT_TRUE(page.Await([&] { return page.WasTold(L"tip tip"); }));
        page->Mouse(WM_RBUTTONDOWN, MK_RBUTTON, {30, 50});
        page->Mouse(WM_RBUTTONUP, 0, {30, 50});
        EXPECT_TRUE(page.Await([&] { return page.WasTold(L"menu 30 50"); }));
        page->Execute(
            L"document.getSelection().selectAllChildren(document.querySelector('p')); "
            L"document.execCommand('copy')");
        EXPECT_TRUE(page.Await([&] { return page.WasTold(L"copied x"); }));
    }
}

TEST_F(InputTest, TellsWhereAContextMenuIsWanted) {
    page.Show("<body style='margin:0'><p id=p style='height:100px;margin:0'>x");
    page->Mouse(WM_MOUSEMOVE, 0, {30, 40});
    page->Mouse(WM_RBUTTONDOWN, MK_RBUTTON, {30, 40});
    page->Mouse(WM_RBUTTONUP, 0, {30, 40});
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"menu 30 40"); }));
    EXPECT_EQ(PageObjectKind::element, page.menuElement.Kind());
    EXPECT_EQ("HTMLParagraphElement", page.menuElement.ClassName());
    page->Execute(L"document.oncontextmenu = () => false");
    page.told.clear();
    page->Mouse(WM_RBUTTONDOWN, MK_RBUTTON, {30, 40});
    page->Mouse(WM_RBUTTONUP, 0, {30, 40});
    EXPECT_EQ(L"1", page.Text(L"1"));
    EXPECT_FALSE(page.WasTold(L"menu 30 40"));
}

}  // namespace
}  // namespace nux::webbrowser
