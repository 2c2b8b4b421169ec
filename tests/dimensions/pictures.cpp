// Takes the pictures of the documentation: the windows of the dimension chooser in each of their states, for
// a component of the sample installation.
//   chooser_pictures INSTALLATION FOLDER      both with a closing backslash; the language is the user's
// tests/dimensions/take_pictures runs it and makes the pictures small.

#include <windows.h>

#include <commctrl.h>

#include <ole2.h>

#include <cstdio>
#include <string>
#include <vector>

#include "control/nuxStdParts.h"
#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/Picture.h"
#include "driver/PointerInput.h"
#include "driver/Waiting.h"
#include "framework/ComObject.h"
#include "framework/Module.h"
#include "framework/Text.h"
#include "resources/resource.h"
#include "tests/dimensions/DimensionChooser.h"
#include "tests/support/Dom.h"
#include "tests/support/RawVariant.h"
#include "tests/support/WithUser.h"

namespace nux {
namespace {

constexpr int threadColumn = 1;
constexpr int lengthColumn = 2;

// Pixels.
constexpr int wideColumn = 76;
constexpr int markerAndFrame = 80;

class Photographer {
public:
    Photographer(driver::User& user, const std::string& folder, bool german)
        : user_(user),
          folder_(folder),
          filterCaption_(german ? "Filter definieren" : "Define filter"),
          chooser_(user, german ? "Ma\xDF"
                                  "e ausw\xE4hlen"
                                : "Choose dimensions") {}

    void TakeAll() {
        SetWindowPos(chooser_.Window(), nullptr, 300, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        // Wine 8.0 draws the caption of a process's first window as that of an inactive one, until another
        // has been closed.
        driver::Click(OpenFilterDialog().Item(IDCANCEL));
        driver::WaitFor("the active dialog", [&] { return GetForegroundWindow() == chooser_.Window(); });
        Rest();
        Save("opened", chooser_.Window());
        Menus();
        FilterDialogs();
        QuickFilters();
        Sorted();
        Resized();
        chooser_.Cancel();
    }

private:
    /// Puts the pointer where it marks nothing.
    void Rest() {
        driver::MovePointer({5, 5});
        user_.Settle();
    }

    static RECT BoundsOf(HWND window) {
        RECT bounds{};
        GetWindowRect(window, &bounds);
        return bounds;
    }

    void Save(const char* state, HWND window) { Save(state, BoundsOf(window)); }
    void Save(const char* state, const RECT& bounds) {
        driver::SavePicture(driver::TakePictureAtRest(bounds), folder_ + state + ".bmp");
        std::printf("%s\n", state);
    }
    /// The chooser and what stands before it.
    RECT With(HWND window) const {
        const RECT chooser = BoundsOf(chooser_.Window());
        const RECT other = BoundsOf(window);
        RECT both{};
        UnionRect(&both, &chooser, &other);
        return both;
    }

    void Menus() {
        const driver::ListView& list = chooser_.List();
        for (const int column : {lengthColumn, threadColumn}) {
            POINT pointer = list.HeaderMiddle(column);
            pointer.y += 8;
            driver::MovePointer(driver::OnScreen(list.Header(), pointer));
            const driver::PopupMenu menu = chooser_.OpenMenu(column);
            menu.Highlight(column == lengthColumn ? 0 : 3);
            Save(column == lengthColumn ? "menu" : "menu-of-text", With(menu.Window()));
            menu.Escape();
            Rest();
        }
    }

    FilterDialog OpenFilterDialog() {
        chooser_.Menu(lengthColumn, MenuItem::DefineFilter);
        Rest();
        return FilterDialog(user_, filterCaption_);
    }

    void FilterDialogs() {
        const FilterDialog dialog = OpenFilterDialog();
        Save("filter-none", dialog.Window());
        dialog.Check(IDC_FILTER_EQUAL);
        driver::ChooseEntry(dialog.LowerBox(), 3);
        Save("filter-equal", dialog.Window());
        dialog.Check(IDC_FILTER_BETWEEN);
        // A caret between two digits would read as a broken character.
        driver::Ask(driver::EditOf(dialog.LowerBox()), EM_SETSEL, 99, 99);
        driver::DropDown(dialog.UpperBox());
        driver::Ask(driver::EditOf(dialog.UpperBox()), EM_SETSEL, 99, 99);
        user_.Settle();
        Save("filter-between", dialog.Window());  // the open list lies within it
        driver::FoldUp(dialog.UpperBox());
        dialog.SetUpper("5");
        driver::Click(dialog.Item(IDOK));
        const HWND message = user_.Dialog("Error");
        Rest();
        RECT both{};
        const RECT dialogBounds = BoundsOf(dialog.Window());
        const RECT messageBounds = BoundsOf(message);
        UnionRect(&both, &dialogBounds, &messageBounds);
        Save("filter-refused", both);
        driver::Click(driver::Item(message, IDOK));
        driver::WaitUntilGone(message);
        dialog.SetUpper("40");
        dialog.Check(IDC_SORT_NONE);
        dialog.Ok();
        Rest();
        Save("filtered", chooser_.Window());
        chooser_.TurnOffAll();
    }

    void QuickFilters() {
        chooser_.Resize(360, 330);
        {
            QuickFilterGesture gesture(chooser_, 1, threadColumn);
            gesture.MoveTo(gesture.Value(2));
            user_.Settle();
            Save("quick-filter", With(gesture.Window()));
            gesture.MoveTo(Beside(gesture));
            gesture.Release();
        }
        QuickFilterGesture gesture(chooser_, 2, lengthColumn);
        gesture.MoveTo(gesture.LowerButton());
        driver::WaitFor("a list that scrolls",
                        [&] { return gesture.ScrollPosition() >= 3 * gesture.RowHeight(); });
        const RECT pager = gesture.PagerBounds();
        gesture.MoveTo({pager.left + 30, (pager.top + pager.bottom) / 2});
        user_.Settle();
        Save("quick-filter-scrolled", With(gesture.Window()));
        gesture.MoveTo(Beside(gesture));
        gesture.Release();
    }

    static POINT Beside(const QuickFilterGesture& gesture) {
        const RECT pager = gesture.PagerBounds();
        return {pager.right + 60, pager.top};
    }

    void Sorted() {
        chooser_.Menu(lengthColumn, MenuItem::SortDescending);
        chooser_.List().ClickRow(1);
        Rest();
        Save("sorted", chooser_.Window());
    }

    void Resized() {
        const driver::ListView& list = chooser_.List();
        const std::vector<int> before = list.Order();
        const POINT thread = list.HeaderMiddle(threadColumn);
        driver::MovePointer(driver::OnScreen(list.Header(), list.HeaderMiddle(lengthColumn)));
        driver::PressPointer(driver::PointerButton::Left);
        driver::DragPointer(driver::OnScreen(list.Header(), {thread.x - 8, thread.y}));
        driver::ReleasePointer(driver::PointerButton::Left);
        driver::WaitFor("the column to be dropped", [&] { return list.Order() != before; });
        for (int column = 1; column < list.ColumnCount(); ++column)
            driver::Ask(list.Handle(), LVM_SETCOLUMNWIDTH, column, MAKELPARAM(wideColumn, 0));
        chooser_.Resize(markerAndFrame + wideColumn * (list.ColumnCount() - 1), 420);
        driver::MovePointer(
            driver::OnScreen(list.Handle(), list.CellMiddle(0, 1)));  // the header sees it leave
        Rest();
        Save("resized", chooser_.Window());
    }

    driver::User& user_;
    std::string folder_;
    const char* filterCaption_;
    DimensionChooser chooser_;
};

ComPtr<IDispatch> NodesBelow(const ComPtr<IDispatch>& node, const wchar_t* expression) {
    const auto parent = node.As<IXMLDOMNode>();
    return parent ? SelectNodes(parent, expression).As<IDispatch>() : nullptr;
}

int TakePictures(const std::string& installation, const std::string& folder) {
    const Bstr catalog(L"SCREWS"), component(L"ISO4762");
    const auto parts = MakeObject<nuxStdParts>();
    const auto path = [&](const char* name) { return Bstr(installation + name, CP_ACP); };
    parts->SetTRNVPaths(path("catalogs\\").Get(), path("data\\").Get(), path("gui\\").Get(),
                        path("custom\\").Get());
    ComPtr<IDispatch> document, standard, users;
    parts->GetComponentsDocument(catalog.Get(), document.Receive());
    parts->GetStdDimensionNode(catalog.Get(), component.Get(), standard.Receive());
    parts->GetUsrDimensionNode(catalog.Get(), component.Get(), users.Receive());
    const ComPtr<IDispatch> names = NodesBelow(document, L"//Part[ID='ISO4762']/Dimensions/*");
    RawVariant none, standardRows, usersRows;
    standardRows.vt = usersRows.vt = VT_DISPATCH;
    standardRows.pdispVal = NodesBelow(standard, L"Row").Detach();
    usersRows.pdispVal = NodesBelow(users, L"Row").Detach();
    ComPtr<IDispatch> chosen;
    const bool german = PRIMARYLANGID(GetUserDefaultLangID()) == LANG_GERMAN;
    int result = 0;
    WithUser(
        [&] {
            parts->ChooseDimensions(catalog.Get(), component.Get(), names.Get(), none, standardRows,
                                    usersRows, chosen.Receive());
        },
        [&](driver::User& user) {
            try {
                Photographer(user, folder, german).TakeAll();
            } catch (const std::exception& failure) {
                std::printf("%s\n", failure.what());
                result = 1;
            }
        });
    return result;
}

}  // namespace
}  // namespace nux

int main(int count, char** arguments) {
    if (count != 3)
        return 2;
    nux::SetThisModule(GetModuleHandleA(nullptr));
    OleInitialize(nullptr);
    const int result = nux::TakePictures(arguments[1], arguments[2]);
    OleUninitialize();
    return result;
}
