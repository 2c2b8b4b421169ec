// Plays the user of the dimension chooser, which a script client in another process has opened: opens a
// column's menu, defines a filter, uses the quick filter, sorts, takes a row. Saves a picture of each step.
//   DemoUser.exe FOLDER      FOLDER receives the pictures

#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <exception>
#include <string>

#include "driver/Application.h"
#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/ListView.h"
#include "driver/Messages.h"
#include "driver/Picture.h"
#include "driver/PointerInput.h"
#include "driver/Waiting.h"
#include "resources/resource.h"

namespace {

constexpr int threadColumn = 1;
constexpr int lengthColumn = 2;

/// How often the arrow key goes down to an item in the menu of a column.
constexpr int defineFilter = 1;
constexpr int sortDescending = 4;

class DemoUser {
public:
    explicit DemoUser(std::string folder)
        : folder_(std::move(folder)),
          process_(ProcessOfChooser()),
          chooser_(process_.Dialog(nullptr)),
          list_(driver::Item(chooser_, IDC_SIZES)) {}

    void Play() {
        driver::WaitFor("the rows of the table", [&] { return list_.RowCount() > 0; });
        Show("the dialog has opened");
        DefineFilter();
        UseQuickFilter();
        SortAndTake();
    }

private:
    static driver::Application ProcessOfChooser() {
        DWORD process = 0;
        const HWND dialog = driver::WaitFor("a dialog", [] { return FindWindowA("#32770", nullptr); });
        GetWindowThreadProcessId(dialog, &process);
        return driver::Application::OfProcess(process);
    }

    void Show(const char* step) {
        const std::string file = std::to_string(++pictures_) + ".bmp";
        driver::SavePicture(driver::TakePictureAtRest(Surroundings()), folder_ + "\\" + file);
        std::printf("  %d  %s\n", pictures_, step);
    }

    /// The chooser with room for what opens over it.
    RECT Surroundings() const {
        RECT bounds{};
        GetWindowRect(chooser_, &bounds);
        InflateRect(&bounds, 60, 40);
        return bounds;
    }

    /// Waits until the table shows another number of rows.
    void AwaitOtherRows(int rows) {
        driver::WaitFor("the table to change", [&] { return list_.RowCount() != rows; });
    }

    /// Opens the menu of the lengths and goes down to an item, for whose picture `step` stands, and takes it.
    void TakeFromMenu(int item, const char* step) {
        list_.ClickHeader(lengthColumn);
        const HWND menu = process_.MenuWindow();
        for (int i = 0, before = -1; i < item; ++i) {
            driver::PressKey(chooser_, VK_DOWN);
            before = driver::WaitFor("the highlight to move", [&] {
                const int top = HighlightTop(menu);
                return top != before ? top : 0;
            });
        }
        Show(step);
        driver::PressKey(chooser_, VK_RETURN);
        driver::WaitUntilGone(menu);
    }

    /// The first row of pixels of a window in which a highlight stands, -1 for none.
    static int HighlightTop(HWND window) {
        const driver::Picture picture = driver::TakePicture(window);
        for (int y = 0; y < picture.height; ++y) {
            if (picture.Count({0, y, picture.width, y + 1}, GetSysColor(COLOR_HIGHLIGHT)) > picture.width / 4)
                return y;
        }
        return -1;
    }

    void DefineFilter() {
        const int rows = list_.RowCount();
        TakeFromMenu(defineFilter, "a click on a column's caption opens its menu");

        const HWND dialog = driver::WaitFor("the filter dialog", [&] {
            const HWND front = process_.Dialog(nullptr);
            return front != chooser_ ? front : nullptr;
        });
        driver::Click(driver::Item(dialog, IDC_FILTER_BETWEEN));
        driver::WaitFor("the field of the upper limit",
                        [&] { return IsWindowVisible(driver::Item(dialog, IDC_UPPER_LIMIT)); });
        driver::Paste(driver::EditOf(driver::Item(dialog, IDC_LOWER_LIMIT)), "20");
        driver::Paste(driver::EditOf(driver::Item(dialog, IDC_UPPER_LIMIT)), "40");
        Show("a filter: lengths between 20 and 40");
        driver::Click(driver::Item(dialog, IDOK));
        driver::WaitUntilGone(dialog);
        AwaitOtherRows(rows);
        Show("the filter is on, its mark stands in the caption");
    }

    void UseQuickFilter() {
        const int rows = list_.RowCount();
        const POINT start =
            driver::OnScreen(list_.Handle(), list_.CellMiddle(FirstRowInSight(), threadColumn));
        driver::MovePointer(start);
        driver::PressPointer(driver::PointerButton::Right);
        const HWND values = driver::WaitFor("the quick filter", [&]() -> HWND {
            const HWND window = WindowFromPoint(start);
            return window != list_.Handle() ? window : nullptr;
        });
        RECT client{};
        GetClientRect(GetParent(values), &client);
        for (int step = 1; step <= 2; ++step)  // down to the second of eight rows
            driver::MovePointer({start.x, start.y + client.bottom * step / 16});
        driver::WaitFor("the highlight", [&] { return HighlightTop(values) > 0; });
        Show("the right button on a cell holds the quick filter open");
        driver::ReleasePointer(driver::PointerButton::Right);
        driver::WaitUntilGone(values);
        AwaitOtherRows(rows);
        Show("only the thread that was let go on is left");
    }

    int FirstRowInSight() const { return static_cast<int>(driver::Ask(list_.Handle(), LVM_GETTOPINDEX)); }

    void SortAndTake() {
        const std::string first = list_.Cell(0, lengthColumn);
        TakeFromMenu(sortDescending, "the menu again, to sort");
        driver::WaitFor("the order to change", [&] { return list_.Cell(0, lengthColumn) != first; });
        list_.ClickRow(1);
        driver::WaitFor("the row to be selected", [&] { return list_.Selected() == std::vector<int>{1}; });
        Show("sorted in descending order, the second row is selected");
        driver::Click(driver::Item(chooser_, IDOK));
        driver::WaitUntilGone(chooser_);
    }

    std::string folder_;
    driver::Application process_;
    HWND chooser_;
    driver::ListView list_;
    int pictures_ = 0;
};

}  // namespace

int main(int count, char** arguments) {
    if (count != 2)
        return 2;
    try {
        DemoUser(arguments[1]).Play();
        return 0;
    } catch (const std::exception& failure) {
        std::printf("the demo's user gave up: %s\n", failure.what());
        return 1;
    }
}
