#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>
#include <vector>

#include "framework/Handles.h"
#include "framework/SubclassedWindow.h"

namespace nux {

/// A list view in report form with its header. All operations need an attached control. Columns are indices
/// of the list, in whatever order they are shown.
class ListView : public SubclassedWindow {
public:
    HWND Header() const noexcept { return ListView_GetHeader(Handle()); }

    /// @param style  LVS_EX_ flags, which take the place of all others
    void SetExtendedStyle(DWORD style) const noexcept;
    /// Images in front of the rows. The control owns them from here on; those of before go.
    void SetImages(UniqueImageList images) const noexcept;

    /// @param format  LVCFMT_ alignment
    /// @param width   pixels
    void InsertColumn(int column, int format, int width, const std::string& caption) const noexcept;
    /// Aligns a column, and puts an image beside its caption or takes it away.
    /// @param image  index in the header's image list
    void SetColumnFormat(int column, std::optional<int> image, bool centred) const noexcept;
    /// In pixels.
    int ColumnWidth(int column) const noexcept;
    void SetColumnWidth(int column, int width) const noexcept;
    /// The columns as they stand, from left to right. Throws std::bad_alloc.
    std::vector<int> ColumnOrder() const;
    void SetColumnOrder(const std::vector<int>& order) const noexcept;

    // Rows are filled past all subclasses: on Wine 8.0 one costs more than all that the list does, and a row
    // takes a dozen messages.

    /// @param data   what RowData gives back
    /// @param image  index in the images of SetImages; one that doesn't exist shows none
    void InsertRow(int row, LPARAM data, int image) const noexcept;
    void SetCell(int row, int column, const std::string& text) const noexcept;
    void DeleteAllRows() const noexcept;
    LPARAM RowData(int row) const noexcept;

    /// The first selected row, -1 for none.
    int SelectedRow() const noexcept;
    /// Selects a row, gives it the focus and brings it into sight.
    void SelectRow(int row) const noexcept;

    /// Sorts the rows by a comparison of their data. `context` is handed to it.
    void Sort(PFNLVCOMPARE compare, const void* context) const noexcept;

protected:
    using SubclassedWindow::SubclassedWindow;

private:
    LRESULT Send(UINT message, WPARAM wParam = 0, const void* lParam = nullptr) const noexcept {
        return SendMessageA(Handle(), message, wParam, reinterpret_cast<LPARAM>(lParam));
    }
};

}  // namespace nux
