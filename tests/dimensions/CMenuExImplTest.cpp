// The menu of a column.

#include "driver/Canvas.h"
#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Picture.h"
#include "driver/PointerInput.h"
#include "driver/Waiting.h"
#include "resources/resource.h"
#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/dimensions/MessageRecorder.h"
#include "tests/support/TestedThreadWindow.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;
using driver::PopupMenu;

class ColumnMenuWindow : public DimensionChooserFixture {
protected:
    static bool IsEnabled(const PopupMenu& menu, MenuItem item) {
        return menu.IsEnabled(static_cast<int>(item));
    }
};

TEST_F(ColumnMenuWindow, HasFourActionsWithTheirCommandsAndCancel) {
    Look(Call({{"A"}, {{"1"}}}), [](DimensionChooser& chooser) {
        const PopupMenu menu = chooser.OpenMenu(1);
        ASSERT_EQ(7, menu.Count());
        const char* const texts[] = {
            "Define filter...",         "Turn off filter", nullptr, "Sort in ascending order",
            "Sort in descending order", nullptr,           "Cancel"};
        const UINT commands[] = {1, 2, 0, 3, 4, 0, 0};
        for (int i = 0; i < 7; ++i) {
            EXPECT_EQ(menu.IsSeparator(i), texts[i] == nullptr) << i;
            if (!texts[i])
                continue;
            EXPECT_EQ(menu.Text(i), texts[i]);
            EXPECT_EQ(menu.Command(i), commands[i]);
        }
        menu.Escape();
    });
}

TEST_F(ColumnMenuWindow, GraysWhatDoesNotApply) {
    StoreFilter("B", 4, "0");
    Look(Call({{"A", "B", "C"}, {{"1", "1", "x"}}}), [](DimensionChooser& chooser) {
        struct {
            int column;
            bool define, turnOff;
        } const expected[] = {{1, true, false}, {2, true, true}, {3, false, false}};
        for (const auto& [column, define, turnOff] : expected) {
            const PopupMenu menu = chooser.OpenMenu(column);
            EXPECT_EQ(IsEnabled(menu, MenuItem::DefineFilter), define) << column;
            EXPECT_EQ(IsEnabled(menu, MenuItem::TurnOffFilter), turnOff) << column;
            EXPECT_TRUE(IsEnabled(menu, MenuItem::SortAscending));
            EXPECT_TRUE(IsEnabled(menu, MenuItem::SortDescending));
            EXPECT_TRUE(IsEnabled(menu, MenuItem::Cancel));
            menu.Escape();
        }
    });
}

TEST_F(ColumnMenuWindow, TurnsOffTheFilterOfATextColumn) {
    StoreNumber("A", "FilterType", 5);
    StoreText("A", "FilterString", "x");
    Look(Call({{"A"}, {{"x"}, {"y"}}}), [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"x"}));
        chooser.Menu(1, MenuItem::TurnOffFilter);
        EXPECT_EQ(chooser.Rows(), (Texts{"x", "y"}));
    });
    EXPECT_EQ(0u, StoredNumber("A", "FilterType"));
}

TEST_F(ColumnMenuWindow, OpensAtThePointer) {
    Look(Call({{"A", "B"}, {{"1", "2"}}}), [](DimensionChooser& chooser) {
        for (const int column : {1, 2}) {
            const PopupMenu menu = chooser.OpenMenu(column);
            POINT pointer{};  // stands on the caption
            GetCursorPos(&pointer);
            RECT bounds{};
            GetWindowRect(menu.Window(), &bounds);
            EXPECT_EQ(bounds.left, pointer.x);
            EXPECT_EQ(bounds.top, pointer.y);
            menu.Escape();
        }
    });
}

TEST_F(ColumnMenuWindow, CancelAndEscapeChangeNothing) {
    Look(Call({{"A"}, {{"2"}, {"1"}}}), [](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::Cancel);
        EXPECT_EQ(chooser.Rows(), (Texts{"2", "1"}));
        chooser.OpenMenu(1).Escape();
        chooser.User().Settle();
        EXPECT_EQ(chooser.Rows(), (Texts{"2", "1"})) << "a click on a header alone does not sort";
        EXPECT_FALSE(chooser.CanTurnOffAll());
    });
}

TEST_F(ColumnMenuWindow, DoesNotOpenOnTheMarkerColumn) {
    Look(Call({{"A"}, {{"1"}}}), [](DimensionChooser& chooser) {
        chooser.List().ClickHeader(0);
        chooser.User().Settle();
        EXPECT_FALSE(chooser.User().Shows("#32768"));
    });
}

TEST_F(ColumnMenuWindow, ActsOnTheColumnThatWasClickedWhereverItStands) {
    StoreNumber("A", "Order", 2);
    StoreNumber("B", "Order", 1);
    Look(Call({{"A", "B"}, {{"1", "9"}, {"2", "8"}}}), [](DimensionChooser& chooser) {
        ASSERT_EQ((std::vector<int>{0, 2, 1}), chooser.List().Order());
        chooser.Menu(2, MenuItem::SortAscending);
        EXPECT_EQ(chooser.Rows(), (Texts{"2|8", "1|9"}));
    });
}

TEST_F(ColumnMenuWindow, ShowsAnImageBesideEachAction) {
    StoreFilter("A", 4, "0");  // so that no item is gray
    Look(Call({{"A"}, {{"1"}}}), [](DimensionChooser& chooser) {
        // Beside the chooser: Wine 8.0 doesn't always put a menu of another thread in front at once.
        RECT bounds{};
        GetWindowRect(chooser.Window(), &bounds);
        driver::MovePointer({bounds.right + 20, bounds.top});
        const PopupMenu menu = chooser.OpenMenu(1);
        menu.Highlight(static_cast<int>(MenuItem::Cancel));  // so that none with an image is marked
        const int icons[] = {IDI_FILTER, IDI_FILTER_OFF, IDI_SORT_ASCENDING, IDI_SORT_DESCENDING};
        const int shown[] = {IDI_FILTER, IDI_FILTER_OFF, 0, IDI_SORT_ASCENDING, IDI_SORT_DESCENDING, 0, 0};
        for (int i = 0; i < 7; ++i) {
            const auto shows = [&](int icon) {
                return driver::Contains(driver::TakePicture(menu.Bounds(i)),
                                        driver::IconResource(icon, GetSysColor(COLOR_MENU)));
            };
            if (shown[i])
                driver::WaitFor("the image of " + menu.Text(i), [&] { return shows(shown[i]); });
            for (const int icon : icons)
                EXPECT_EQ(shows(icon), icon == shown[i]) << i << " " << icon;
        }
        menu.Escape();
    });
}

TEST_F(ColumnMenuWindow, ShowsAPaleImageBesideAnItemThatIsGrey) {
    Look(Call({{"A"}, {{"x"}}}), [](DimensionChooser& chooser) {
        RECT bounds{};
        GetWindowRect(chooser.Window(), &bounds);
        driver::MovePointer({bounds.right + 20, bounds.top});
        const PopupMenu menu = chooser.OpenMenu(1);
        menu.Highlight(static_cast<int>(MenuItem::Cancel));
        const COLORREF background = GetSysColor(COLOR_MENU);
        for (const auto& [item, icon] : {std::pair{MenuItem::DefineFilter, IDI_FILTER},
                                         std::pair{MenuItem::TurnOffFilter, IDI_FILTER_OFF}}) {
            // Half of the icon's colours, half of the menu's.
            driver::Picture pale = driver::IconResource(icon, background);
            for (COLORREF& pixel : pale.pixels)
                pixel = RGB((GetRValue(pixel) + GetRValue(background)) / 2,
                            (GetGValue(pixel) + GetGValue(background)) / 2,
                            (GetBValue(pixel) + GetBValue(background)) / 2);
            driver::WaitFor("a pale image", [&] {
                return driver::ContainsNearly(driver::TakePicture(menu.Bounds(static_cast<int>(item))), pale,
                                              3);
            });
        }
        menu.Escape();
    });
}

TEST_F(ColumnMenuWindow, BelongsToTheChooserAndDoesNotTellItWhatIsGoingOn) {
    Look(Call({{"A"}, {{"1"}}}), [](DimensionChooser& chooser) {
        MessageRecorder recorder(chooser.Window(), [](UINT message, WPARAM, LPARAM) -> std::string {
            switch (message) {
                case WM_ENTERMENULOOP:
                case WM_INITMENU:
                case WM_INITMENUPOPUP:
                case WM_COMMAND:
                    return std::to_string(message);
                default:
                    return {};
            }
        });
        const PopupMenu menu = chooser.OpenMenu(1);
        EXPECT_EQ(GetWindow(menu.Window(), GW_OWNER), chooser.Window());
        menu.Choose(static_cast<int>(MenuItem::SortAscending));
        chooser.User().Settle();
        EXPECT_EQ(recorder.Take(), Texts{});
    });
}

TEST_F(ColumnMenuWindow, DefineFilterRunsUnderTheWindowThatIsActiveThen) {
    const TestedThreadWindow other;
    other.Show();
    const std::function<void()> activate = [&] { SetActiveWindow(other.Handle()); };
    Look(Call({{"A"}, {{"1"}}}), [&](DimensionChooser& chooser) {
        const PopupMenu menu = chooser.OpenMenu(1);
        other.Do(activate);
        chooser.User().Settle();
        menu.Choose(static_cast<int>(MenuItem::DefineFilter));
        const FilterDialog dialog(chooser.User());
        EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), other.Handle());
        dialog.Cancel();
    });
}

TEST_F(ColumnMenuWindow, DefineFilterOpensTheDialogOnTopAndCancelThereKeepsTheFilter) {
    StoreFilter("A", 1, "1");
    Look(Call({{"A"}, {{"1"}, {"2"}}}), [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), chooser.Window());
        EXPECT_FALSE(IsWindowEnabled(chooser.Window()));
        dialog.Check(IDC_FILTER_NONE);
        dialog.Cancel();
        EXPECT_EQ(chooser.Rows(), (Texts{"1"}));
        EXPECT_TRUE(chooser.CanTurnOffAll());
        EXPECT_TRUE(IsWindowEnabled(chooser.Window()));
    });
    EXPECT_EQ(1u, StoredNumber("A", "FilterType"));
}

TEST_F(ColumnMenuWindow, AFilterThatWasDefinedShowsItsMarkAndNoneTakesItAway) {
    Look(Call({{"A", "B"}, {{"1", "1"}, {"2", "1"}}}), [](DimensionChooser& chooser) {
        const FilterDialog define = chooser.DefineFilter(1);
        define.Check(IDC_FILTER_EQUAL);
        define.SetLower("2");
        define.Ok();
        EXPECT_EQ(chooser.Rows(), (Texts{"2|1"}));
        EXPECT_EQ(0, chooser.List().HeaderImage(1));
        EXPECT_TRUE(chooser.CanTurnOffAll());
        const FilterDialog clear = chooser.DefineFilter(1);
        clear.Check(IDC_FILTER_NONE);
        clear.Ok();
        EXPECT_EQ(chooser.Rows(), (Texts{"1|1", "2|1"}));
        EXPECT_EQ(-1, chooser.List().HeaderImage(1));
        EXPECT_FALSE(chooser.CanTurnOffAll());
    });
}

}  // namespace
}  // namespace nux
