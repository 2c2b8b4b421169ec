// Texts between pages and other programs.

#include "webbrowser/Clipboard.h"

#include <gtest/gtest.h>

#include "driver/PointerInput.h"
#include "tests/webbrowser/ShownBrowser.h"

namespace nux::webbrowser {
namespace {

/// The text as other programs see it.
std::wstring Raw() {
    std::wstring text = L"(none)";
    if (!OpenClipboard(nullptr))
        return L"(closed)";
    if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(GlobalLock(memory));
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return text;
}

TEST(Clipboard, LinesAreThoseOfThePlatformThereAndOfPagesHere) {
    EXPECT_TRUE(SetClipboardText(nullptr, L"one\ntwo \x00e4\x5186\r\nthree"));
    EXPECT_EQ(L"one\r\ntwo \x00e4\x5186\r\nthree", Raw());
    EXPECT_EQ(L"one\ntwo \x00e4\x5186\nthree", ClipboardText(nullptr));
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    CloseClipboard();
    EXPECT_EQ(L"", ClipboardText(nullptr));
}

class ClipboardOfPages : public ShownBrowser {
protected:
    ClipboardOfPages() { SetClipboardText(nullptr, L"before"); }
    /// A field with a text, of which a part is selected.
    void ShowField() {
        Activate();
        Show(
            "<textarea id=i>some text</textarea><script>i.focus(); i.setSelectionRange(0, 4);"
            "i.oninput = () => { document.title = i.value.replace('\\n', '|'); }</script>");
        ::SetFocus(Window());
    }
    bool BecomesTitle(const std::wstring& title) {
        return Await([&] { return OfDocument(L"title") == title; });
    }
    /// Presses a key of the keyboard with Ctrl.
    void PressWithControl(WORD key) {
        ByUser([&](driver::User&) {
            {
                const driver::HeldKey control(VK_CONTROL);
                const driver::HeldKey letter(key);
            }
        });
    }
};

TEST_F(ClipboardOfPages, WhatIsCopiedInAPageIsThereForOtherPrograms) {
    ShowField();
    PressWithControl('C');
    EXPECT_TRUE(Await([] { return Raw() == L"some"; }));
    EXPECT_EQ(S_OK, browser->ExecWB(OLECMDID_SELECTALL, OLECMDEXECOPT_DODEFAULT, nullptr, nullptr));
    EXPECT_EQ(S_OK, browser->ExecWB(OLECMDID_CUT, OLECMDEXECOPT_DODEFAULT, nullptr, nullptr));
    EXPECT_TRUE(Await([] { return Raw() == L"some text"; }));
    EXPECT_EQ(L"", OfDocument(L"title"));
}

TEST_F(ClipboardOfPages, WhatOtherProgramsCopyIsPastedByTheKeyboard) {
    ShowField();
    SetClipboardText(nullptr, L"an\x00e4\n\x5186");
    PressWithControl('V');
    EXPECT_TRUE(BecomesTitle(L"an\x00e4|\x5186 text"));
    EXPECT_EQ(L"an\x00e4\r\n\x5186", Raw()) << "as it was";
    SetClipboardText(nullptr, L"!");
    BYTE keys[256]{};
    keys[VK_SHIFT] = 0x80;
    SetKeyboardState(keys);
    SendMessageW(Window(), WM_KEYDOWN, VK_INSERT, 0);
    SendMessageW(Window(), WM_KEYUP, VK_INSERT, 0);
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
    EXPECT_TRUE(BecomesTitle(L"an\x00e4|\x5186! text"));
}

TEST_F(ClipboardOfPages, APageMayReadAndRefuseWhatIsPasted) {
    ShowField();
    Navigate(
        L"javascript:i.onpaste = event => { "
        L"document.title = event.clipboardData.getData('text/plain'); event.preventDefault(); }");
    SetClipboardText(nullptr, L"secret");
    PressWithControl('V');
    EXPECT_TRUE(BecomesTitle(L"secret"));
    Navigate(L"javascript:document.title = i.value");
    EXPECT_TRUE(BecomesTitle(L"some text"));
}

TEST_F(ClipboardOfPages, TheContainersCommandPastes) {
    ShowField();
    SetClipboardText(nullptr, L"any");
    OLECMDF state{};
    EXPECT_EQ(S_OK, browser->QueryStatusWB(OLECMDID_PASTE, &state));
    EXPECT_EQ(OLECMDF_SUPPORTED | OLECMDF_ENABLED, static_cast<int>(state));
    EXPECT_EQ(S_OK, browser->ExecWB(OLECMDID_PASTE, OLECMDEXECOPT_DODEFAULT, nullptr, nullptr));
    EXPECT_TRUE(BecomesTitle(L"any text"));
    OpenClipboard(nullptr);
    EmptyClipboard();
    CloseClipboard();
    EXPECT_EQ(S_OK, browser->QueryStatusWB(OLECMDID_PASTE, &state));
    EXPECT_EQ(OLECMDF_SUPPORTED, static_cast<int>(state)) << "without a text";
}

TEST_F(ClipboardOfPages, PastingTellsThePageOfNoCopy) {
    ShowField();
    Navigate(L"javascript:addEventListener('copy', () => { document.title = 'copied'; }, true)");
    SetClipboardText(nullptr, L"x");
    PressWithControl('V');
    EXPECT_TRUE(BecomesTitle(L"x text"));
}

}  // namespace
}  // namespace nux::webbrowser
