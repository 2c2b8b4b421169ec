#include "tests/dimensions/DimensionChooser.h"

#include <commctrl.h>

#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/PointerInput.h"
#include "driver/Waiting.h"
#include "resources/resource.h"

namespace nux {

FilterDialog::FilterDialog(driver::User& user, const char* caption)
    : user_(user), window_(user.Dialog(caption)) {}

HWND FilterDialog::Item(int id) const {
    return driver::Item(window_, id);
}

HWND FilterDialog::LowerBox() const {
    return Item(IDC_LOWER_LIMIT);
}

HWND FilterDialog::UpperBox() const {
    return Item(IDC_UPPER_LIMIT);
}

std::string FilterDialog::Lower() const {
    return driver::ControlText(LowerBox());
}

std::string FilterDialog::Upper() const {
    return driver::ControlText(UpperBox());
}

void FilterDialog::SetLower(const std::string& text) const {
    driver::Paste(driver::EditOf(LowerBox()), text);
}

void FilterDialog::SetUpper(const std::string& text) const {
    driver::Paste(driver::EditOf(UpperBox()), text);
}

void FilterDialog::Check(int radioButton) const {
    driver::Click(Item(radioButton));
    user_.Settle();
}

void FilterDialog::Ok() const {
    driver::Click(Item(IDOK));
    driver::WaitUntilGone(window_);
    user_.Settle();
}

void FilterDialog::Cancel() const {
    driver::Click(Item(IDCANCEL));
    driver::WaitUntilGone(window_);
    user_.Settle();
}

std::string FilterDialog::OkAndReadMessage() const {
    constexpr int messageText = 0xFFFF;
    driver::Click(Item(IDOK));
    const HWND box = user_.Dialog("Error");
    const std::string text = driver::ControlText(driver::Item(box, messageText));
    driver::Click(driver::Item(box, IDOK));
    driver::WaitUntilGone(box);
    user_.Settle();
    return text;
}

DimensionChooser::DimensionChooser(driver::User& user, const char* caption)
    : user_(user), window_(user.Dialog(caption)), list_(driver::Item(window_, IDC_SIZES)) {
    user.Settle();
}

HWND DimensionChooser::OkButton() const {
    return driver::Item(window_, IDOK);
}

HWND DimensionChooser::CancelButton() const {
    return driver::Item(window_, IDCANCEL);
}

HWND DimensionChooser::FiltersOffButton() const {
    return driver::Item(window_, IDC_ALL_FILTERS_OFF);
}

std::vector<std::string> DimensionChooser::Rows() const {
    const int columns = list_.ColumnCount();
    std::vector<std::string> rows(list_.RowCount());
    for (int row = 0; row < static_cast<int>(rows.size()); ++row)
        for (int column = 1; column < columns; ++column)
            rows[row] += (column > 1 ? "|" : "") + list_.Cell(row, column);
    return rows;
}

void DimensionChooser::Ok() const {
    driver::Click(OkButton());
    driver::WaitUntilGone(window_);
}

void DimensionChooser::Cancel() const {
    driver::Click(CancelButton());
    driver::WaitUntilGone(window_);
}

void DimensionChooser::Take(int row) const {
    list_.ClickRow(row);
    Ok();
}

void DimensionChooser::TurnOffAll() const {
    driver::Click(FiltersOffButton());
    user_.Settle();
}

driver::PopupMenu DimensionChooser::OpenMenu(int column) const {
    list_.ClickHeader(column);
    return driver::PopupMenu(user_);
}

void DimensionChooser::Menu(int column, MenuItem item) const {
    OpenMenu(column).Choose(static_cast<int>(item));
    user_.Settle();
}

FilterDialog DimensionChooser::DefineFilter(int column) const {
    Menu(column, MenuItem::DefineFilter);
    return FilterDialog(user_);
}

void DimensionChooser::Resize(int width, int height) const {
    SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

QuickFilterGesture::QuickFilterGesture(const DimensionChooser& chooser, int row, int column)
    : chooser_(chooser) {
    const driver::ListView& list = chooser.List();
    driver::MovePointer(driver::OnScreen(list.Handle(), list.CellMiddle(row, column)));
    driver::PressPointer(driver::PointerButton::Right);
    const driver::User& user = chooser.User();
    const auto withPager = [&]() -> HWND {
        for (const HWND window : user.Windows())
            if (FindWindowExA(window, nullptr, WC_PAGESCROLLERA, nullptr))
                return window;
        return nullptr;
    };
    try {
        window_ = driver::WaitFor("the quick filter window", withPager);
    } catch (const driver::NotSeen&) {
        driver::ReleasePointer(driver::PointerButton::Right);
        throw;
    }
    pager_ = FindWindowExA(window_, nullptr, WC_PAGESCROLLERA, nullptr);
    list_ = GetWindow(pager_, GW_CHILD);
    chooser_.User().Settle();
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ old = SelectObject(screen, GetStockObject(DEFAULT_GUI_FONT));
    TEXTMETRICA metrics{};
    GetTextMetricsA(screen, &metrics);
    SelectObject(screen, old);
    ReleaseDC(nullptr, screen);
    rowHeight_ = metrics.tmHeight;
}

QuickFilterGesture::~QuickFilterGesture() {
    try {
        if (pressed_)
            driver::ReleasePointer(driver::PointerButton::Right);
    } catch (const driver::NotSeen&) {
        // The test that left the button pressed has failed already.
    }
}

RECT QuickFilterGesture::PagerBounds() const {
    RECT bounds{};
    GetWindowRect(pager_, &bounds);
    return bounds;
}

RECT QuickFilterGesture::ListBounds() const {
    RECT bounds{};
    GetWindowRect(list_, &bounds);
    return bounds;
}

POINT QuickFilterGesture::Value(int index) const {
    const RECT bounds = ListBounds();
    return {(bounds.left + bounds.right) / 2, bounds.top + rowHeight_ * index + rowHeight_ / 2};
}

int QuickFilterGesture::ScrollPosition() const {
    return static_cast<int>(driver::Ask(pager_, PGM_GETPOS));
}

POINT QuickFilterGesture::LowerButton() const {
    const RECT bounds = PagerBounds();
    const auto size = static_cast<int>(driver::Ask(pager_, PGM_GETBUTTONSIZE));
    return {(bounds.left + bounds.right) / 2, bounds.bottom - size / 2};
}

void QuickFilterGesture::MoveTo(POINT screen) const {
    driver::DragPointer(screen);
}

void QuickFilterGesture::Release() {
    driver::ReleasePointer(driver::PointerButton::Right);
    pressed_ = false;
    driver::WaitUntilGone(window_);
    chooser_.User().Settle();
}

}  // namespace nux
