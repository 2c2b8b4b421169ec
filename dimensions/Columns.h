#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace nux {

// A column is one of the list, by its index from 0, wherever it stands. Column 0 is that of the markers;
// behind it comes one for each dimension, which counts from 0 as well.

constexpr int ColumnOf(int dimension) {
    return dimension + 1;
}

constexpr int DimensionOf(int column) {
    return column - 1;
}

/// What a column that was dragged and let go in the header leads to.
struct ColumnDrop {
    bool allowed;
    /// The order array to set, if there is one to set. Entry i is the column at position i from the left.
    std::optional<std::vector<int>> order;
};

/// Decides on a drop. `order` is the order array of the list, `column` the dragged column, `newOrder` the
/// position that it was dropped at, if the header told one. Column 0 stays where it is, and no other can be
/// put before it. A position that the array doesn't have (-1 for a drop outside the header) is refused.
ColumnDrop DropColumn(const std::vector<int>& order, int column, std::optional<int> newOrder);

/// What the stored layout says of one list column.
struct StoredColumn {
    bool captionEmpty;  ///< The marker column: it always takes position 0.
    std::int32_t
        order;  ///< The stored position, -1 if none is stored. Not looked at if the caption is empty.
};

/// The order array that the stored positions of all list columns make, from column 0 on. Nothing if they
/// don't: a position is negative, beyond the columns, or taken twice. One bad position loses the whole order.
std::optional<std::vector<int>> StoredColumnOrder(const std::vector<StoredColumn>& columns);

/// The commands of the menu that a click on a column's header opens. The menu answers 0 too if nothing was
/// chosen.
enum class ColumnCommand : unsigned {
    Cancel = 0,
    DefineFilter = 1,
    TurnOffFilter = 2,
    SortAscending = 3,
    SortDescending = 4,
};

/// One position of the menu.
struct ColumnMenuItem {
    const char* text;       ///< English text, to be localised from the common catalogue; null: a separator.
    ColumnCommand command;  ///< Cancel for a separator.
    int icon;               ///< Resource of the picture beside it, 0 for none.
    bool enabled;
};

/// The menu of a column, from top to bottom. Filters are defined for numeric columns only, and only an active
/// filter can be turned off.
std::array<ColumnMenuItem, 7> ColumnMenu(bool numericColumn, bool filterActive);

}  // namespace nux
