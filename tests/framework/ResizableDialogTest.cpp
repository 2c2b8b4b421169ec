#include "framework/ResizableDialog.h"

#include <gtest/gtest.h>

#include "tests/framework/resource.h"

namespace nux {
namespace {

/// A dialog whose edit field grows and whose OK button keeps its distance from the lower right corner.
class Sample : public ResizableDialog {
public:
    using ResizableDialog::Frame;
    using ResizableDialog::InitialFrame;
    using ResizableDialog::SetFrame;

    void Start() {
        StartLayout({{Item(IDC_SAMPLE_EDIT), growsWide | growsTall}, {Item(IDOK), movesRight | movesDown}});
    }
    /// A control's place in client pixels.
    PixelRectangle Place(int control) const {
        RECT place = WindowRectangle(Item(control));
        MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&place), 2);
        return ToPixels(place);
    }
    PixelSize Size() const {
        const RECT window = WindowRectangle(Handle());
        return {static_cast<int>(window.right - window.left), static_cast<int>(window.bottom - window.top)};
    }
    int placed = 0;

private:
    void OnControlsPlaced() override { ++placed; }
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        return message == WM_INITDIALOG ? TRUE : ResizableDialog::OnMessage(message, wParam, lParam);
    }
};

class ResizableDialogTest : public testing::Test {
protected:
    ResizableDialogTest() { dialog.CreateModeless(nullptr, IDD_SAMPLE); }

    Sample dialog;
};

TEST_F(ResizableDialogTest, ChangesFreelyBeforeItsLayoutStarts) {
    const PixelRectangle before = dialog.Place(IDOK);
    MoveWindow(dialog.Handle(), 0, 0, 130, 60, FALSE);
    EXPECT_EQ((PixelSize{130, 60}), dialog.Size());
    EXPECT_EQ(before, dialog.Place(IDOK));
    EXPECT_EQ(0, dialog.placed);
}

TEST_F(ResizableDialogTest, ItsControlsFollow) {
    dialog.Start();
    const PixelSize minimum{dialog.Size().width + 1, dialog.Size().height + 1};
    const PixelRectangle edit = dialog.Place(IDC_SAMPLE_EDIT);
    const PixelRectangle ok = dialog.Place(IDOK);
    const PixelRectangle cancel = dialog.Place(IDCANCEL);
    MoveWindow(dialog.Handle(), 0, 0, minimum.width + 40, minimum.height + 30, FALSE);
    EXPECT_EQ((PixelRectangle{ok.left + 40, ok.top + 30, ok.right + 40, ok.bottom + 30}), dialog.Place(IDOK));
    EXPECT_EQ((PixelRectangle{edit.left, edit.top, edit.right + 41, edit.bottom + 31}),
              dialog.Place(IDC_SAMPLE_EDIT));
    EXPECT_EQ(cancel, dialog.Place(IDCANCEL)) << "it has no anchor";
    EXPECT_EQ(1, dialog.placed);
    SetWindowPos(dialog.Handle(), nullptr, 5, 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(1, dialog.placed) << "a move changes no size";
}

TEST_F(ResizableDialogTest, CannotBeMadeSmallerThanOnePixelAboveItsFirstSize) {
    dialog.Start();
    const PixelSize first = dialog.Size();
    MoveWindow(dialog.Handle(), 0, 0, 20, 20, FALSE);
    EXPECT_EQ((PixelSize{first.width + 1, first.height + 1}), dialog.Size());
    MINMAXINFO limits{};
    SendMessageA(dialog.Handle(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    EXPECT_EQ(first.width + 1, limits.ptMinTrackSize.x);
    EXPECT_EQ(first.height + 1, limits.ptMinTrackSize.y);
}

TEST_F(ResizableDialogTest, ComesBackToItsFrame) {
    dialog.Start();
    const DialogFrame frame{{30, 40}, {25, 15}};
    dialog.SetFrame(frame);
    EXPECT_EQ(frame, dialog.Frame());
    dialog.SetFrame(dialog.InitialFrame());
    EXPECT_EQ(dialog.InitialFrame(), dialog.Frame());
}

}  // namespace
}  // namespace nux
