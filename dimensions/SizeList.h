#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <vector>

#include "framework/Window.h"

namespace nux {

/// The list view of the dimension chooser: what it does beyond the control itself. The marker column 0 can be
/// neither sized nor moved, and no column comes to stand before it.
class SizeList : public SubclassedWindow {
public:
    /// The user pressed the right button on a cell of a column from 1 on.
    using CellPressed = std::function<void(int column)>;

    explicit SizeList(CellPressed cellPressed) : cellPressed_(std::move(cellPressed)) {}

    /// Aligns a column, and puts an image beside its caption or takes it away.
    /// @param image  index in the header's image list
    static void SetColumnFormat(HWND list, int column, std::optional<int> image, bool centred) noexcept;

    /// The columns as they stand, from left to right.
    static std::vector<int> ColumnOrder(HWND list);
    static void SetColumnOrder(HWND list, const std::vector<int>& order) noexcept;

    /// Selects a row, gives it the focus and brings it into sight.
    static void SelectRow(HWND list, int row) noexcept;

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    /// Closes the dialog, whose run then raises the exception.
    void OnFailure() noexcept override;

private:
    bool AllowsHeader(const NMHEADERA& notification);
    bool AllowsDrop(const NMHEADERA& notification);

    CellPressed cellPressed_;
};

}  // namespace nux
