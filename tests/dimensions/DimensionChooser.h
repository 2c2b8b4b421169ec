#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "driver/ListView.h"
#include "driver/PopupMenu.h"
#include "driver/User.h"

namespace nux {

/// Positions in the menu of a column.
enum class MenuItem {
    DefineFilter = 0,
    TurnOffFilter = 1,
    SortAscending = 3,
    SortDescending = 4,
    Cancel = 6
};

/// The dialog that defines a filter, once it is open.
class FilterDialog {
public:
    explicit FilterDialog(driver::User& user, const char* caption = "Define filter");

    HWND Window() const { return window_; }
    HWND Item(int id) const;
    HWND LowerBox() const;
    HWND UpperBox() const;
    /// The fields' texts.
    std::string Lower() const;
    std::string Upper() const;
    void SetLower(const std::string& text) const;
    void SetUpper(const std::string& text) const;
    /// Clicks one of the radio buttons.
    void Check(int radioButton) const;
    /// Ends with OK, and waits until the dialog is gone.
    void Ok() const;
    void Cancel() const;
    /// Presses OK where the input is wrong; returns the text of the message that answers, and closes it.
    std::string OkAndReadMessage() const;

private:
    driver::User& user_;
    HWND window_;
};

/// The dimension chooser, once it is open.
class DimensionChooser {
public:
    explicit DimensionChooser(driver::User& user, const char* caption = "Choose dimensions");

    driver::User& User() const { return user_; }
    HWND Window() const { return window_; }
    const driver::ListView& List() const { return list_; }
    HWND OkButton() const;
    HWND CancelButton() const;
    HWND FiltersOffButton() const;
    bool CanTurnOffAll() const { return IsWindowEnabled(FiltersOffButton()); }

    /// The cells of each row, joined with "|", from top to bottom.
    std::vector<std::string> Rows() const;

    /// Ends with OK or Cancel, and waits until the window is gone.
    void Ok() const;
    void Cancel() const;
    /// Selects a row and takes it.
    void Take(int row) const;
    void TurnOffAll() const;

    /// Opens the menu of a column by a click on its header.
    driver::PopupMenu OpenMenu(int column) const;
    /// Opens it, takes an item, and waits until that is done; for DefineFilter, until its dialog is there.
    void Menu(int column, MenuItem item) const;
    FilterDialog DefineFilter(int column) const;

    /// Moves the edges of the window, as a user does with the frame.
    void Resize(int width, int height) const;

private:
    driver::User& user_;
    HWND window_;
    driver::ListView list_;
};

/// The gesture of the quick filter, made with the real right button: pressed on a cell when made, and let go
/// with Release at the latest when it ends.
class QuickFilterGesture {
public:
    QuickFilterGesture(const DimensionChooser& chooser, int row, int column);
    QuickFilterGesture(const QuickFilterGesture&) = delete;
    QuickFilterGesture& operator=(const QuickFilterGesture&) = delete;
    ~QuickFilterGesture();

    HWND Window() const { return window_; }
    HWND Pager() const { return pager_; }
    HWND ValueList() const { return list_; }
    int RowHeight() const { return rowHeight_; }
    /// Screen pixels.
    RECT PagerBounds() const;
    RECT ListBounds() const;
    /// The middle of a value on the screen, wherever the list is scrolled to.
    POINT Value(int index) const;
    /// How far the list is scrolled, in pixels.
    int ScrollPosition() const;
    /// The middle of the lower scroll button.
    POINT LowerButton() const;

    /// Moves the pointer to a point of the screen, as a hand does.
    void MoveTo(POINT screen) const;
    /// Lets go, and waits until the window is gone and its effect is there.
    void Release();

private:
    const DimensionChooser& chooser_;
    HWND window_;
    HWND pager_;
    HWND list_;
    int rowHeight_;
    bool pressed_ = true;
};

}  // namespace nux
