#include "framework/SubclassedWindow.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "framework/HResult.h"

namespace nux {
namespace {

constexpr UINT question = WM_APP + 1;

/// A subclassed edit field that notes what it is told.
class Watched : public SubclassedWindow {
public:
    explicit Watched(MessageTarget* owner = nullptr) : SubclassedWindow(owner) {}

    using SubclassedWindow::RethrowFailure;
    int seen = 0;
    bool throwing = false;
    bool detaching = false;

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == question) {
            ++seen;
            if (throwing)
                throw std::runtime_error("handler");
            return 42;
        }
        if (detaching && message == WM_SETTEXT)
            Detach();
        return Default(message, wParam, lParam);
    }
};

class SubclassedWindowTest : public testing::Test {
protected:
    SubclassedWindowTest() {
        parent_ =
            CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 100, 50, nullptr, nullptr, nullptr, nullptr);
        edit_ =
            CreateWindowExA(0, "EDIT", "text", WS_CHILD, 0, 0, 50, 20, parent_, nullptr, nullptr, nullptr);
    }
    ~SubclassedWindowTest() override { DestroyWindow(parent_); }
    std::string Text() const {
        char text[32] = "";
        GetWindowTextA(edit_, text, sizeof text);
        return text;
    }

    HWND parent_ = nullptr;
    HWND edit_ = nullptr;
};

TEST_F(SubclassedWindowTest, SeesTheMessagesOfTheControlFirst) {
    Watched watched;
    watched.Attach(edit_);
    EXPECT_EQ(edit_, watched.Handle());
    EXPECT_EQ(42, SendMessageA(edit_, question, 0, 0));
    EXPECT_EQ(1, watched.seen);
}

TEST_F(SubclassedWindowTest, LeavesTheRestToTheControl) {
    Watched watched;
    watched.Attach(edit_);
    SetWindowTextA(edit_, "new");
    EXPECT_EQ("new", Text());
}

TEST_F(SubclassedWindowTest, DetachesWhenTheObjectGoesFirst) {
    {
        Watched watched;
        watched.Attach(edit_);
    }
    EXPECT_EQ(0, SendMessageA(edit_, question, 0, 0));
    EXPECT_EQ("text", Text());
}

TEST_F(SubclassedWindowTest, DetachesWhenTheControlGoesFirst) {
    Watched watched;
    watched.Attach(edit_);
    DestroyWindow(edit_);
    EXPECT_EQ(nullptr, watched.Handle());
}

TEST_F(SubclassedWindowTest, ChangesFromOneControlToAnother) {
    Watched watched;
    watched.Attach(edit_);
    const HWND other =
        CreateWindowExA(0, "EDIT", "", WS_CHILD, 0, 0, 50, 20, parent_, nullptr, nullptr, nullptr);
    watched.Attach(other);
    EXPECT_EQ(0, SendMessageA(edit_, question, 0, 0));
    EXPECT_EQ(42, SendMessageA(other, question, 0, 0));
}

TEST_F(SubclassedWindowTest, IsTheOnlyOneOfItsControl) {
    Watched first;
    first.Attach(edit_);
    Watched second;
    EXPECT_THROW(second.Attach(edit_), HResultError);
    EXPECT_EQ(nullptr, second.Handle());
    EXPECT_EQ(42, SendMessageA(edit_, question, 0, 0));
    EXPECT_EQ(1, first.seen);
}

TEST_F(SubclassedWindowTest, KeepsTheKindOfTheWindow) {
    const HWND wide =
        CreateWindowExW(0, L"EDIT", L"", WS_CHILD, 0, 0, 50, 20, parent_, nullptr, nullptr, nullptr);
    for (const HWND control : {edit_, wide}) {
        const BOOL before = IsWindowUnicode(control);
        Watched watched;
        watched.Attach(control);
        EXPECT_EQ(before, IsWindowUnicode(control));
        SetWindowTextW(control, L"\x4e2d");
        watched.Detach();
        EXPECT_EQ(before, IsWindowUnicode(control));
    }
    wchar_t text[4] = L"";
    GetWindowTextW(wide, text, 4);
    EXPECT_STREQ(L"\x4e2d", text) << "a wide window's texts stay wide on their way";
}

/// Somebody else's procedure on top of ours.
WNDPROC below = nullptr;
LRESULT CALLBACK PassOn(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcA(below, handle, message, wParam, lParam);
}

TEST_F(SubclassedWindowTest, StaysAWayThroughForSomebodyElseOnTop) {
    Watched again;
    {
        Watched watched;
        watched.Attach(edit_);
        below = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&PassOn)));
        EXPECT_EQ(42, SendMessageA(edit_, question, 0, 0));
    }
    EXPECT_EQ(0, SendMessageA(edit_, question, 0, 0));
    SetWindowTextA(edit_, "new");
    EXPECT_EQ("new", Text());
    again.Attach(edit_);
    EXPECT_EQ(42, SendMessageA(edit_, question, 0, 0));
    EXPECT_EQ(1, again.seen);
    DestroyWindow(edit_);
    EXPECT_EQ(nullptr, again.Handle());
}

TEST_F(SubclassedWindowTest, LetsAMessageThroughDuringWhichItDetaches) {
    Watched watched;
    watched.detaching = true;
    watched.Attach(edit_);
    SetWindowTextA(edit_, "new");
    EXPECT_EQ(nullptr, watched.Handle());
    EXPECT_EQ("new", Text());
}

TEST_F(SubclassedWindowTest, KeepsAnExceptionOfAHandlerUntilItIsRaisedAgain) {
    Watched watched;
    watched.throwing = true;
    watched.Attach(edit_);
    EXPECT_EQ(0, SendMessageA(edit_, question, 0, 0));
    EXPECT_THROW(watched.RethrowFailure(), std::runtime_error);
}

TEST_F(SubclassedWindowTest, GivesItsExceptionToItsOwner) {
    Watched owner;
    Watched watched(&owner);
    watched.throwing = true;
    watched.Attach(edit_);
    SendMessageA(edit_, question, 0, 0);
    EXPECT_THROW(owner.RethrowFailure(), std::runtime_error);
}

TEST_F(SubclassedWindowTest, ThrowsWhenThereIsNoSuchControl) {
    Watched watched;
    EXPECT_THROW(watched.Attach(nullptr), HResultError);
    EXPECT_EQ(nullptr, watched.Handle());
}

}  // namespace
}  // namespace nux
