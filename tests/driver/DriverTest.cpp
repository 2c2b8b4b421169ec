// The driver, tried on dialogs that are made here.

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/ListView.h"
#include "driver/Messages.h"
#include "driver/Picture.h"
#include "driver/PointerInput.h"
#include "driver/PopupMenu.h"
#include "driver/Waiting.h"
#include "tests/support/WithUser.h"

namespace driver {
namespace {

enum Control { list = 100, combo, edit, firstRadio, secondRadio, menuButton };
enum MenuItem { first = 1, second, third };

/// A dialog of one of each control. It notes what it is told.
class TrialDialog {
public:
    int clickedColumn = -1;
    int doubleClicks = 0;
    UINT menuChoice = 99;

    INT_PTR Run() {
        struct {
            DLGTEMPLATE head;
            WORD menu, windowClass;
            wchar_t title[6];
        } description{};
        description.head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE | DS_MODALFRAME;
        description.head.cx = 200;
        description.head.cy = 150;
        lstrcpyW(description.title, L"Trial");
        return DialogBoxIndirectParamA(GetModuleHandleA(nullptr), &description.head, nullptr, &Procedure,
                                       reinterpret_cast<LPARAM>(this));
    }

private:
    static HWND Make(HWND dialog, const char* windowClass, const char* text, DWORD style, int id, RECT at) {
        return CreateWindowExA(0, windowClass, text, WS_CHILD | WS_VISIBLE | style, at.left, at.top, at.right,
                               at.bottom, dialog, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                               GetModuleHandleA(nullptr), nullptr);
    }

    void Fill(HWND dialog) {
        const HWND view = Make(dialog, WC_LISTVIEWA, "", LVS_REPORT | LVS_SHOWSELALWAYS | WS_BORDER, list,
                               {5, 5, 250, 120});
        ListView_SetExtendedListViewStyle(view, LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP);
        for (int i = 0; i < 3; ++i) {
            char caption[] = "Column 0";
            caption[7] = static_cast<char>('0' + i);
            LVCOLUMNA column{};
            column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
            column.fmt = i == 1 ? LVCFMT_CENTER : LVCFMT_LEFT;
            column.cx = 60 + 10 * i;
            column.pszText = caption;
            SendMessageA(view, LVM_INSERTCOLUMNA, i, reinterpret_cast<LPARAM>(&column));
        }
        for (int row = 0; row < 40; ++row) {
            char text[16];
            LVITEMA item{};
            item.mask = LVIF_TEXT;
            item.iItem = row;
            item.pszText = text;
            wsprintfA(text, "a%d", row);
            SendMessageA(view, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
            item.iSubItem = 1;
            wsprintfA(text, "b%d", row);
            SendMessageA(view, LVM_SETITEMTEXTA, row, reinterpret_cast<LPARAM>(&item));
        }
        const HWND box = Make(dialog, "COMBOBOX", "", CBS_DROPDOWN | WS_TABSTOP, combo, {5, 130, 80, 100});
        for (const char* entry : {"one", "two", "three"})
            SendMessageA(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
        Make(dialog, "EDIT", "before", WS_BORDER | WS_TABSTOP, edit, {100, 130, 80, 20});
        Make(dialog, "BUTTON", "First", BS_AUTORADIOBUTTON | WS_GROUP, firstRadio, {5, 160, 80, 20});
        Make(dialog, "BUTTON", "Second", BS_AUTORADIOBUTTON, secondRadio, {100, 160, 80, 20});
        Make(dialog, "BUTTON", "Menu", BS_PUSHBUTTON | WS_GROUP, menuButton, {190, 130, 60, 20});
        Make(dialog, "BUTTON", "Close", BS_PUSHBUTTON, IDCANCEL, {190, 160, 60, 20});
    }

    void OpenMenu(HWND dialog) {
        const HMENU menu = CreatePopupMenu();
        AppendMenuA(menu, MF_STRING, first, "First");
        AppendMenuA(menu, MF_STRING | MF_GRAYED, second, "Second");
        AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(menu, MF_STRING, third, "Third");
        menuChoice = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, 200, 200, 0, dialog, nullptr);
        DestroyMenu(menu);
    }

    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrA(dialog, DWLP_USER, lParam);
            reinterpret_cast<TrialDialog*>(lParam)->Fill(dialog);
            return TRUE;
        }
        auto* self = reinterpret_cast<TrialDialog*>(GetWindowLongPtrA(dialog, DWLP_USER));
        if (message == WM_COMMAND && LOWORD(wParam) == menuButton)
            self->OpenMenu(dialog);
        if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL)
            EndDialog(dialog, 7);
        if (message == WM_NOTIFY) {
            const auto* notice = reinterpret_cast<const NMHDR*>(lParam);
            if (notice->code == static_cast<UINT>(LVN_COLUMNCLICK))
                self->clickedColumn = reinterpret_cast<const NMLISTVIEW*>(lParam)->iSubItem;
            if (notice->idFrom == list && notice->code == static_cast<UINT>(NM_DBLCLK))
                ++self->doubleClicks;
        }
        return FALSE;
    }
};

/// Opens the trial dialog and closes it when the user has done.
void Try(TrialDialog& dialog, const std::function<void(User&, HWND)>& deeds) {
    INT_PTR result = 0;
    nux::WithUser([&] { result = dialog.Run(); },
                  [&](User& user) {
                      const HWND window = user.Dialog("Trial");
                      deeds(user, window);
                      Click(Item(window, IDCANCEL));
                  });
    EXPECT_EQ(7, result);
}

TEST(Driver, AnswersAMessageBox) {
    int answer = 0;
    std::string text;
    nux::WithUser([&] { answer = MessageBoxA(nullptr, "Continue?", "Question", MB_YESNO); },
                  [&](User& user) {
                      const HWND box = user.Dialog("Question");
                      text = ControlText(Item(box, 0xFFFF));
                      Click(Item(box, IDNO));
                      WaitUntilGone(box);
                  });
    EXPECT_EQ(answer, IDNO);
    EXPECT_EQ("Continue?", text);
}

TEST(Driver, ReadsAList) {
    TrialDialog dialog;
    Try(dialog, [](User&, HWND window) {
        const ListView view(Item(window, list));
        EXPECT_EQ(40, view.RowCount());
        EXPECT_EQ(3, view.ColumnCount());
        EXPECT_EQ("a2", view.Cell(2, 0));
        EXPECT_EQ("b39", view.Cell(39, 1));
        EXPECT_EQ(40u, view.Column(1).size());
        EXPECT_EQ("Column 1", view.Caption(1));
        EXPECT_EQ(80, view.Width(2));
        EXPECT_EQ((std::vector<int>{0, 1, 2}), view.Order());
        EXPECT_EQ(HDF_CENTER, view.HeaderFormat(1) & HDF_JUSTIFYMASK);
        EXPECT_EQ(-1, view.HeaderImage(1));
        EXPECT_TRUE(view.InSight(0));
        EXPECT_FALSE(view.InSight(39));
    });
}

TEST(Driver, ClicksRowsAndHeaders) {
    TrialDialog dialog;
    Try(dialog, [&](User& user, HWND window) {
        const ListView view(Item(window, list));
        view.ClickRow(3);
        user.Settle();
        EXPECT_EQ((std::vector<int>{3}), view.Selected());
        EXPECT_EQ(3, view.Focused());
        view.ClickHeader(2);
        user.Settle();
        EXPECT_EQ(2, dialog.clickedColumn);
        DoubleClick(view.Handle(), view.CellMiddle(1, 1));
        user.Settle();
        EXPECT_EQ(1, dialog.doubleClicks);
    });
}

TEST(Driver, WorksFieldsAndButtons) {
    TrialDialog dialog;
    Try(dialog, [](User& user, HWND window) {
        const HWND field = Item(window, edit);
        Paste(field, "pasted");
        EXPECT_EQ("pasted", ControlText(field));
        Type(field, "!");
        user.Settle();
        EXPECT_EQ("pasted!", ControlText(field));
        EXPECT_EQ(0, CheckedButton(window, firstRadio, secondRadio));
        Click(Item(window, secondRadio));
        user.Settle();
        EXPECT_EQ(CheckedButton(window, firstRadio, secondRadio), secondRadio);
        EXPECT_TRUE(HasFocus(Item(window, secondRadio)));
    });
}

TEST(Driver, WorksAComboBox) {
    TrialDialog dialog;
    Try(dialog, [](User& user, HWND window) {
        const HWND box = Item(window, combo);
        EXPECT_EQ((std::vector<std::string>{"one", "two", "three"}), Entries(box));
        ChooseEntry(box, 1);
        EXPECT_EQ("two", ControlText(box));
        EXPECT_TRUE(HasFocus(box));
        Paste(EditOf(box), "four");
        DropDown(box);
        FoldUp(box);
        user.Settle();
        EXPECT_EQ("four", ControlText(box));
    });
}

TEST(Driver, TakesAMenuItem) {
    TrialDialog dialog;
    Try(dialog, [&](User& user, HWND window) {
        Click(Item(window, menuButton));
        const PopupMenu menu(user);
        EXPECT_EQ(4, menu.Count());
        EXPECT_EQ("First", menu.Text(0));
        EXPECT_FALSE(menu.IsEnabled(1));
        EXPECT_TRUE(menu.IsSeparator(2));
        EXPECT_EQ(menu.Command(3), third);
        menu.Choose(3);
        user.Settle();
        EXPECT_EQ(dialog.menuChoice, third);
        Click(Item(window, menuButton));
        PopupMenu(user).Escape();
        user.Settle();
        EXPECT_EQ(0u, dialog.menuChoice);
        dialog.menuChoice = 99;
        Click(Item(window, menuButton));
        const PopupMenu again(user);
        EXPECT_THROW(again.Choose(1), NotSeen) << "a grayed item can't be taken";
        again.Escape();
        user.Settle();
        EXPECT_EQ(0u, dialog.menuChoice);
    });
}

TEST(Driver, MovesTheRealPointer) {
    TrialDialog dialog;
    Try(dialog, [&](User&, HWND window) {
        const ListView view(Item(window, list));
        MovePointer(OnScreen(view.Header(), view.HeaderMiddle(0)));
        PressPointer(PointerButton::Left);
        POINT drop = view.Divider(2);
        drop.x -= 10;  // behind the middle of the column, so that the dragged one goes behind it
        DragPointer(OnScreen(view.Header(), drop));
        ReleasePointer(PointerButton::Left);
        WaitFor("a column that moves", [&] { return view.Order() != std::vector<int>{0, 1, 2}; });
        EXPECT_EQ((std::vector<int>{1, 2, 0}), view.Order());
    });
}

TEST(Driver, PressesRealKeys) {
    TrialDialog dialog;
    Try(dialog, [&](User& user, HWND window) {
        Click(Item(window, edit));
        user.Settle();
        Paste(Item(window, edit), "");
        const HeldKey shift(VK_SHIFT);
        const HeldKey letter('A');
        WaitFor("a capital letter", [&] { return ControlText(Item(window, edit)) == "A"; });
    });
}

TEST(Driver, TakesPicturesWithTheFrame) {
    TrialDialog dialog;
    Try(dialog, [](User& user, HWND window) {
        user.Settle();
        const COLORREF caption = GetSysColor(COLOR_ACTIVECAPTION);
        Picture picture;
        WaitFor("a caption on the screen", [&] {
            picture = TakePicture(window);
            return picture.Count({0, 0, picture.width, 30}, caption) > 300;
        });
        RECT bounds{};
        GetWindowRect(window, &bounds);
        EXPECT_EQ(picture.width, bounds.right - bounds.left);
        EXPECT_GT(picture.Count({20, 60, 120, 120}, GetSysColor(COLOR_WINDOW)), 3000);
        if (const char* path = getenv("NUX_DRIVER_PICTURE"))
            SavePicture(picture, path);
    });
}

}  // namespace
}  // namespace driver
