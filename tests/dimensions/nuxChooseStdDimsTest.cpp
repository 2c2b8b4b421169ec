// The chooser's window: its controls, its size and place, and how they are kept.

#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Messages.h"
#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/dimensions/MessageRecorder.h"

namespace nux {
namespace {

RECT BoundsOf(HWND window) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    return bounds;
}

POINT PositionIn(HWND dialog, HWND control) {
    RECT bounds = BoundsOf(control);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&bounds), 2);
    return {bounds.left, bounds.top};
}

SIZE SizeOf(HWND window) {
    const RECT bounds = BoundsOf(window);
    return {bounds.right - bounds.left, bounds.bottom - bounds.top};
}

/// Window and controls at one moment.
struct Arrangement {
    SIZE window, list;
    POINT listPosition, filtersOff, ok, cancel;

    explicit Arrangement(const DimensionChooser& chooser)
        : window(SizeOf(chooser.Window())),
          list(SizeOf(chooser.List().Handle())),
          listPosition(PositionIn(chooser.Window(), chooser.List().Handle())),
          filtersOff(PositionIn(chooser.Window(), chooser.FiltersOffButton())),
          ok(PositionIn(chooser.Window(), chooser.OkButton())),
          cancel(PositionIn(chooser.Window(), chooser.CancelButton())) {}
};

class Layout : public DimensionChooserFixture {
protected:
    const DimensionsCall call = Call({{"A"}, {{"1"}}});

    /// The minimum size: one pixel above the size of the first opening.
    SIZE Minimum() {
        SIZE minimum{};
        DimensionsCall other = call;
        other.component = "MINIMUM";
        Look(other, [&](DimensionChooser& chooser) { minimum = MinimumOf(chooser); });
        return minimum;
    }
    static SIZE MinimumOf(const DimensionChooser& chooser) {
        MINMAXINFO limits{};
        SendMessageA(chooser.Window(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
        return {limits.ptMinTrackSize.x, limits.ptMinTrackSize.y};
    }
};

void ExpectMoved(POINT from, POINT to, LONG dx, LONG dy) {
    EXPECT_EQ(to.x - from.x, dx);
    EXPECT_EQ(to.y - from.y, dy);
}

TEST_F(Layout, HasItsControlsWhereTheTemplatePutsThem) {
    Look(call, [](DimensionChooser& chooser) {
        struct {
            HWND control;
            int x, y, width, height;  // dialog units
            int larger;               // pixels
        } const expected[] = {{chooser.List().Handle(), 7, 7, 197, 135, 1},
                              {chooser.FiltersOffButton(), 7, 151, 87, 14, 0},
                              {chooser.OkButton(), 110, 151, 43, 14, 0},
                              {chooser.CancelButton(), 161, 151, 43, 14, 0}};
        for (const auto& [control, x, y, width, height, larger] : expected) {
            // The window system turns a control's width into pixels by itself, not as the distance of its
            // edges, which may be rounded another way.
            RECT units{x, y, width, height};
            MapDialogRect(chooser.Window(), &units);
            const POINT position = PositionIn(chooser.Window(), control);
            EXPECT_EQ(position.x, units.left);
            EXPECT_EQ(position.y, units.top);
            // At the minimum size of the window, one pixel above the template's, the list is one pixel above
            // it too.
            EXPECT_EQ(SizeOf(control).cx, units.right + larger);
            EXPECT_EQ(SizeOf(control).cy, units.bottom + larger);
        }
        const LONG style = GetWindowLongA(chooser.Window(), GWL_STYLE);
        EXPECT_EQ(style & (WS_THICKFRAME | WS_SYSMENU | WS_CAPTION), WS_THICKFRAME | WS_SYSMENU | WS_CAPTION);
        const LONG list = GetWindowLongA(chooser.List().Handle(), GWL_STYLE);
        const LONG wanted = LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS;
        EXPECT_EQ(list & wanted, wanted);
        EXPECT_TRUE(list & WS_TABSTOP);
        EXPECT_EQ(driver::ControlText(chooser.FiltersOffButton()), "Turn off all filters");
        EXPECT_EQ(driver::ControlText(chooser.OkButton()), "OK");
        EXPECT_EQ(driver::ControlText(chooser.CancelButton()), "Cancel");
        EXPECT_NE(SendMessageA(chooser.Window(), WM_GETICON, ICON_SMALL, 0), 0);
    });
}

TEST_F(Layout, GivesTheListItsStyles) {
    Look(call, [](DimensionChooser& chooser) {
        const auto extended = SendMessageA(chooser.List().Handle(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0);
        EXPECT_EQ(extended, LVS_EX_SUBITEMIMAGES | LVS_EX_HEADERDRAGDROP | LVS_EX_FULLROWSELECT |
                                LVS_EX_ONECLICKACTIVATE | LVS_EX_UNDERLINEHOT | LVS_EX_LABELTIP);
        EXPECT_TRUE(GetWindowLongA(chooser.List().Header(), GWL_STYLE) & HDS_HOTTRACK);
    });
}

TEST_F(Layout, GrowsTheListAndKeepsTheButtonsAtTheLowerRightCorner) {
    Look(call, [](DimensionChooser& chooser) {
        const Arrangement before(chooser);
        chooser.Resize(before.window.cx + 120, before.window.cy + 75);
        const Arrangement after(chooser);
        EXPECT_EQ(after.list.cx - before.list.cx, 120);
        EXPECT_EQ(after.list.cy - before.list.cy, 75);
        ExpectMoved(before.listPosition, after.listPosition, 0, 0);
        ExpectMoved(before.filtersOff, after.filtersOff, 120, 75);
        ExpectMoved(before.ok, after.ok, 120, 75);
        ExpectMoved(before.cancel, after.cancel, 120, 75);
    });
}

TEST_F(Layout, DrawsAButtonAnewThatHasMoved) {
    Look(call, [](DimensionChooser& chooser) {
        SIZE size = SizeOf(chooser.Window());
        for (const HWND button : {chooser.FiltersOffButton(), chooser.OkButton(), chooser.CancelButton()}) {
            MessageRecorder recorder(button, [](UINT message, WPARAM, LPARAM) -> std::string {
                return message == WM_PAINT ? "paint" : "";
            });
            size.cx += 20;
            chooser.Resize(size.cx, size.cy);
            chooser.User().Settle();
            UpdateWindow(button);
            chooser.User().Settle();
            EXPECT_FALSE(recorder.Take().empty()) << GetDlgCtrlID(button);
        }
    });
}

TEST_F(Layout, StartsInTheListAndTabsThroughItsButtons) {
    StoreFilter("A", 4, "0");  // so that all can be pressed
    Look(call, [](DimensionChooser& chooser) {
        for (const HWND control : {chooser.List().Handle(), chooser.FiltersOffButton(), chooser.OkButton(),
                                   chooser.CancelButton(), chooser.List().Handle()}) {
            ASSERT_TRUE(driver::HasFocus(control)) << GetDlgCtrlID(control);
            driver::PressKey(control, VK_TAB);
            chooser.User().Settle();
        }
    });
}

TEST_F(Layout, ArrowKeysGoFromButtonToButton) {
    StoreFilter("A", 4, "0");
    Look(call, [](DimensionChooser& chooser) {
        driver::PressKey(chooser.List().Handle(), VK_TAB);
        chooser.User().Settle();
        for (const HWND control : {chooser.FiltersOffButton(), chooser.OkButton(), chooser.CancelButton()}) {
            ASSERT_TRUE(driver::HasFocus(control)) << GetDlgCtrlID(control);
            driver::PressKey(control, VK_RIGHT);
            chooser.User().Settle();
        }
    });
}

TEST_F(Layout, TheButtonThatTurnsOffAllFiltersGivesTheKeyboardToTheListWhenItGreys) {
    StoreFilter("A", 4, "0");
    Look(call, [](DimensionChooser& chooser) {
        driver::Ask(chooser.Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(chooser.FiltersOffButton()),
                    TRUE);
        ASSERT_TRUE(driver::HasFocus(chooser.FiltersOffButton()));
        driver::PressKey(chooser.FiltersOffButton(), VK_SPACE);
        chooser.User().Settle();
        EXPECT_FALSE(chooser.CanTurnOffAll());
        EXPECT_TRUE(driver::HasFocus(chooser.List().Handle()));
    });
}

TEST_F(Layout, CannotBeMadeSmallerThanAtFirst) {
    Look(call, [](DimensionChooser& chooser) {
        const Arrangement before(chooser);
        chooser.Resize(50, 40);
        const Arrangement after(chooser);
        const SIZE minimum = MinimumOf(chooser);
        EXPECT_EQ(after.window.cx, minimum.cx);
        EXPECT_EQ(after.window.cy, minimum.cy);
        EXPECT_EQ(after.window.cx, before.window.cx);
        EXPECT_EQ(after.window.cy, before.window.cy);
        EXPECT_EQ(after.list.cx, before.list.cx);
        ExpectMoved(before.ok, after.ok, 0, 0);
    });
}

TEST_F(Layout, AMoveAloneLeavesSizeAndControls) {
    Look(call, [](DimensionChooser& chooser) {
        const Arrangement before(chooser);
        SetWindowPos(chooser.Window(), nullptr, 20, 30, 10, 10, SWP_NOSIZE | SWP_NOZORDER);
        const Arrangement after(chooser);
        EXPECT_EQ(BoundsOf(chooser.Window()).left, 20);
        EXPECT_EQ(after.window.cx, before.window.cx);
        ExpectMoved(before.ok, after.ok, 0, 0);
    });
}

TEST_F(Layout, ComesBackAtItsPlaceAndSize) {
    RECT left{}, found{};
    Look(call, [&](DimensionChooser& chooser) {
        const SIZE minimum = MinimumOf(chooser);
        SetWindowPos(chooser.Window(), nullptr, 33, 44, minimum.cx + 50, minimum.cy + 60, SWP_NOZORDER);
        left = BoundsOf(chooser.Window());
    });
    EXPECT_EQ(StoredNumber("", "x"), 33u);
    EXPECT_EQ(StoredNumber("", "y"), 44u);
    EXPECT_EQ(StoredNumber("", "dx"), 50u);
    EXPECT_EQ(StoredNumber("", "dy"), 60u);
    Look(call, [&](DimensionChooser& chooser) { found = BoundsOf(chooser.Window()); });
    EXPECT_TRUE(EqualRect(&left, &found));
}

TEST_F(Layout, IsKeptAfterCancelAndAfterOk) {
    Choose(call, [](DimensionChooser& chooser) {
        SetWindowPos(chooser.Window(), nullptr, 11, 12, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        chooser.Ok();
    });
    EXPECT_EQ(StoredNumber("", "x"), 11u);
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(BoundsOf(chooser.Window()).top, 12);
        SetWindowPos(chooser.Window(), nullptr, 21, 22, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    });
    EXPECT_EQ(StoredNumber("", "x"), 21u);
}

TEST_F(Layout, GoesToASavedPlaceOffEveryScreen) {
    StoreNumber("", "x", static_cast<DWORD>(-3000));
    StoreNumber("", "y", 5000);
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(BoundsOf(chooser.Window()).left, -3000);
        EXPECT_EQ(BoundsOf(chooser.Window()).top, 5000);
        EXPECT_EQ(chooser.List().RowCount(), 1);
    });
    EXPECT_EQ(StoredNumber("", "x"), static_cast<DWORD>(-3000));
}

TEST_F(Layout, GoesToASavedPlaceAtTheEdgeOfTheScreen) {
    StoreNumber("", "x", 0);
    StoreNumber("", "y", 0);
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(BoundsOf(chooser.Window()).left, 0);
        EXPECT_EQ(BoundsOf(chooser.Window()).top, 0);
    });
    EXPECT_EQ(StoredNumber("", "x"), 0u);
}

TEST_F(Layout, APartOfThePlaceThatIsMissingStaysAtTheInitialOne) {
    RECT first{};
    Look(call, [&](DimensionChooser& chooser) { first = BoundsOf(chooser.Window()); });
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, Key().c_str());
    StoreNumber("", "y", 77);
    Look(call, [&](DimensionChooser& chooser) {
        EXPECT_EQ(BoundsOf(chooser.Window()).left, first.left);
        EXPECT_EQ(BoundsOf(chooser.Window()).top, 77);
    });
}

TEST_F(Layout, ValuesOfAWrongTypeCountAsMissing) {
    RECT first{}, found{};
    Look(call, [&](DimensionChooser& chooser) { first = BoundsOf(chooser.Window()); });
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, Key().c_str());
    StoreText("", "x", "123");
    StoreText("", "y", "12345678");
    StoreBytes("", "dx", REG_BINARY, std::string("\x10\0\0\0", 4));
    StoreBytes("", "dy", REG_QWORD, std::string("\x10\0\0\0\0\0\0\0", 8));
    Look(call, [&](DimensionChooser& chooser) { found = BoundsOf(chooser.Window()); });
    EXPECT_TRUE(EqualRect(&first, &found));
}

TEST_F(Layout, ANumberThatIsTooShortCountsAsMissing) {
    const SIZE minimum = Minimum();
    StoreBytes("", "dy", REG_DWORD, std::string(2, '\x10'));
    Look(call, [&](DimensionChooser& chooser) { EXPECT_EQ(SizeOf(chooser.Window()).cy, minimum.cy); });
}

TEST_F(Layout, ASavedSizeBelowTheMinimumIsRaisedToIt) {
    const SIZE minimum = Minimum();
    StoreNumber("", "dx", static_cast<DWORD>(-40));
    StoreNumber("", "dy", static_cast<DWORD>(-1000000));
    Look(call, [&](DimensionChooser& chooser) {
        EXPECT_EQ(SizeOf(chooser.Window()).cx, minimum.cx);
        EXPECT_EQ(SizeOf(chooser.Window()).cy, minimum.cy);
    });
}

TEST_F(Layout, OutOfRangeSizesEndAtTheMinimumOrAtWhatTheSystemAllows) {
    std::optional<Arrangement> first;
    Look(call, [&](DimensionChooser& chooser) { first.emplace(chooser); });
    const LONG widest = GetSystemMetrics(SM_CXMAXTRACK), highest = GetSystemMetrics(SM_CYMAXTRACK);
    struct {
        DWORD stored;
        SIZE window;
    } const extremes[] = {{0x7FFFFFFF, first->window},
                          {0x80000000, first->window},
                          {0xFFFFFFFF, first->window},
                          {100000, {widest, highest}}};
    for (const auto& [stored, window] : extremes) {
        StoreNumber("", "dx", stored);
        StoreNumber("", "dy", stored);
        Look(call, [&, stored = stored, window = window](DimensionChooser& chooser) {
            const Arrangement shown(chooser);
            EXPECT_EQ(shown.window.cx, window.cx) << stored;
            EXPECT_EQ(shown.window.cy, window.cy) << stored;
            const LONG dx = window.cx - first->window.cx, dy = window.cy - first->window.cy;
            EXPECT_EQ(shown.list.cx - first->list.cx, dx) << stored;
            EXPECT_EQ(shown.list.cy - first->list.cy, dy) << stored;
            ExpectMoved(first->ok, shown.ok, dx, dy);
        });
    }
}

TEST_F(Layout, PutsControlsWhereASavedSizePutsThem) {
    std::optional<Arrangement> first;
    Look(call, [&](DimensionChooser& chooser) { first.emplace(chooser); });
    StoreNumber("", "dx", 100);
    StoreNumber("", "dy", 50);
    Look(call, [&](DimensionChooser& chooser) {
        const Arrangement grown(chooser);
        EXPECT_EQ(100, grown.list.cx - first->list.cx);
        EXPECT_EQ(50, grown.list.cy - first->list.cy);
        ExpectMoved(first->ok, grown.ok, 100, 50);
        ExpectMoved(first->filtersOff, grown.filtersOff, 100, 50);
    });
}

}  // namespace
}  // namespace nux
