#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <vector>

#include "framework/Dialog.h"
#include "framework/HResult.h"
#include "framework/Module.h"
#include "tests/framework/resource.h"

namespace nux {
namespace {

constexpr UINT question = WM_APP + 1;
constexpr INT_PTR accepted = 17;

/// A dialog that does what the test tells it to, first when it starts and then when it is idle.
class Sample : public Dialog {
public:
    using Step = std::function<void(Sample&)>;

    explicit Sample(Step step) : step_(std::move(step)) {}

    using Dialog::Centre;
    using Dialog::End;
    using Dialog::Item;
    using Dialog::RethrowFailure;
    std::vector<UINT> received;
    UINT throwAt = 0;

protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM) override {
        received.push_back(message);
        if (message == throwAt)
            throw std::out_of_range("handler");
        switch (message) {
            case WM_INITDIALOG:
                PostMessageA(Handle(), WM_APP, 0, 0);
                return TRUE;
            case WM_APP:
                step_(*this);
                return 0;
            case question:
                return 4711;
            case WM_CTLCOLOREDIT:
                return reinterpret_cast<LRESULT>(GetStockObject(BLACK_BRUSH));
            case WM_COMMAND:
                if (LOWORD(wParam) == IDOK)
                    End(accepted);
                return std::nullopt;
            case WM_CLOSE:
                End(IDCANCEL);
                return 0;
            default:
                return std::nullopt;
        }
    }

private:
    Step step_;
};

TEST(Dialog, ReturnsTheCodeThatItWasEndedWith) {
    Sample dialog([](Sample& self) { self.End(accepted); });
    EXPECT_EQ(accepted, dialog.RunModal(nullptr, IDD_SAMPLE));
}

TEST(Dialog, IsDrivenByItsButtonsAndKeys) {
    Sample clicked([](Sample& self) { PostMessageA(self.Item(IDOK), BM_CLICK, 0, 0); });
    EXPECT_EQ(accepted, clicked.RunModal(nullptr, IDD_SAMPLE));
    Sample keyed([](Sample& self) { PostMessageA(self.Item(IDC_SAMPLE_EDIT), WM_KEYDOWN, VK_RETURN, 0); });
    EXPECT_EQ(accepted, keyed.RunModal(nullptr, IDD_SAMPLE));
}

TEST(Dialog, KnowsItsHandleAndItsControlsWhileItRuns) {
    HWND handle = nullptr;
    Sample dialog([&](Sample& self) {
        handle = self.Handle();
        EXPECT_TRUE(IsWindow(handle));
        EXPECT_EQ(GetDlgItem(handle, IDC_SAMPLE_EDIT), self.Item(IDC_SAMPLE_EDIT));
        EXPECT_NE(nullptr, self.Item(IDC_SAMPLE_EDIT));
        self.End(0);
    });
    EXPECT_EQ(nullptr, dialog.Handle());
    dialog.RunModal(nullptr, IDD_SAMPLE);
    EXPECT_EQ(nullptr, dialog.Handle());
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(UINT{WM_NCDESTROY}, dialog.received.back());
}

TEST(Dialog, CanRunAgain) {
    int runs = 0;
    Sample dialog([&](Sample& self) { self.End(++runs); });
    EXPECT_EQ(1, dialog.RunModal(nullptr, IDD_SAMPLE));
    EXPECT_EQ(2, dialog.RunModal(nullptr, IDD_SAMPLE));
}

TEST(Dialog, AnswersAMessageWithTheValueThatItsHandlerGives) {
    Sample dialog([](Sample& self) {
        EXPECT_EQ(4711, SendMessageA(self.Handle(), question, 0, 0));
        EXPECT_EQ(0, SendMessageA(self.Handle(), question + 1, 0, 0));
        self.End(0);
    });
    dialog.RunModal(nullptr, IDD_SAMPLE);
}

TEST(Dialog, AnswersAColourMessageDirectly) {
    Sample dialog([](Sample& self) {
        const HDC device = GetDC(self.Item(IDC_SAMPLE_EDIT));
        EXPECT_EQ(reinterpret_cast<LRESULT>(GetStockObject(BLACK_BRUSH)),
                  SendMessageA(self.Handle(), WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(device),
                               reinterpret_cast<LPARAM>(self.Item(IDC_SAMPLE_EDIT))));
        ReleaseDC(self.Item(IDC_SAMPLE_EDIT), device);
        self.End(0);
    });
    dialog.RunModal(nullptr, IDD_SAMPLE);
}

TEST(Dialog, DisablesItsOwnerWhileItRuns) {
    const HWND owner = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr,
                                       nullptr, nullptr);
    Sample dialog([&](Sample& self) {
        EXPECT_FALSE(IsWindowEnabled(owner));
        self.End(0);
    });
    dialog.RunModal(owner, IDD_SAMPLE);
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

TEST(Dialog, AnswersMinusOneWhenItsTemplateIsMissing) {
    Sample dialog([](Sample&) { FAIL() << "there is no such dialog"; });
    EXPECT_EQ(-1, dialog.RunModal(nullptr, IDR_SAMPLE_REGISTRY));
    EXPECT_EQ(nullptr, dialog.Handle());
}

TEST(Dialog, EndsAndRaisesTheExceptionOfAHandlerAgain) {
    Sample dialog([](Sample&) { throw std::runtime_error("handler"); });
    EXPECT_THROW(dialog.RunModal(nullptr, IDD_SAMPLE), std::runtime_error);
    EXPECT_EQ(nullptr, dialog.Handle());
    EXPECT_NO_THROW(dialog.RethrowFailure()) << "it is raised once";
}

TEST(Dialog, EndsAndRaisesTheExceptionOfItsStartAgain) {
    Sample dialog([](Sample&) {});
    dialog.throwAt = WM_INITDIALOG;
    EXPECT_THROW(dialog.RunModal(nullptr, IDD_SAMPLE), std::out_of_range);
    EXPECT_EQ(nullptr, dialog.Handle());
}

TEST(Dialog, RaisesTheExceptionOfItsEndAgain) {
    Sample dialog([](Sample& self) { self.End(0); });
    dialog.throwAt = WM_DESTROY;
    EXPECT_THROW(dialog.RunModal(nullptr, IDD_SAMPLE), std::out_of_range);
    EXPECT_EQ(nullptr, dialog.Handle());
}

TEST(Dialog, KeepsTheModuleLoadedWhileItRuns) {
    const long before = LiveObjects();
    Sample dialog([&](Sample& self) {
        EXPECT_EQ(before + 1, LiveObjects());
        self.End(0);
    });
    dialog.RunModal(nullptr, IDD_SAMPLE);
    EXPECT_EQ(before, LiveObjects());
}

TEST(Dialog, WithoutAModalRunReturnsAtOnceAndGoesWithItsEnd) {
    Sample dialog([](Sample& self) { self.End(0); });
    dialog.CreateModeless(nullptr, IDD_SAMPLE);
    const HWND window = dialog.Handle();
    ASSERT_TRUE(IsWindow(window));
    MSG message;
    while (IsWindow(window) && GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    EXPECT_EQ(nullptr, dialog.Handle());
}

TEST(Dialog, WithoutAModalRunRaisesTheExceptionOfItsStartAgain) {
    Sample dialog([](Sample&) {});
    dialog.throwAt = WM_INITDIALOG;
    EXPECT_THROW(dialog.CreateModeless(nullptr, IDD_SAMPLE), std::out_of_range);
    EXPECT_EQ(nullptr, dialog.Handle());
    EXPECT_THROW(Sample([](Sample&) {}).CreateModeless(nullptr, IDR_SAMPLE_REGISTRY), HResultError);
}

TEST(Dialog, DestroysItsWindowWithTheObject) {
    HWND window = nullptr;
    {
        Sample dialog([](Sample&) {});
        dialog.CreateModeless(nullptr, IDD_SAMPLE);
        window = dialog.Handle();
    }
    EXPECT_FALSE(IsWindow(window));
}

TEST(Dialog, IsCentredOnItsOwnerAndStaysOnTheScreen) {
    const HWND owner = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 200, 300, 500, 400, nullptr,
                                       nullptr, nullptr, nullptr);
    Sample dialog([](Sample&) {});
    dialog.CreateModeless(owner, IDD_SAMPLE);
    dialog.Centre();
    const RECT centred = WindowRectangle(dialog.Handle());
    EXPECT_NEAR(200 + 250, (centred.left + centred.right) / 2, 1);
    EXPECT_NEAR(300 + 200, (centred.top + centred.bottom) / 2, 1);
    MoveWindow(owner, -400, -300, 500, 400, FALSE);
    dialog.Centre();
    const RECT kept = WindowRectangle(dialog.Handle());
    EXPECT_EQ(0, kept.left);
    EXPECT_EQ(0, kept.top);
    DestroyWindow(owner);
}

TEST(Dialog, LetsADialogThatItOpenedEndFirst) {
    std::vector<int> ended;
    Sample outer([&](Sample& self) {
        Sample inner([](Sample& opened) { opened.End(1); });
        ended.push_back(static_cast<int>(inner.RunModal(self.Handle(), IDD_SAMPLE)));
        self.End(2);
    });
    ended.push_back(static_cast<int>(outer.RunModal(nullptr, IDD_SAMPLE)));
    EXPECT_EQ((std::vector<int>{1, 2}), ended);
}

}  // namespace
}  // namespace nux
