#include "dimensions/ColumnMenu.h"

namespace nux {

std::array<ColumnMenuItem, 7> ColumnMenu(bool numericColumn, bool filterActive) {
    constexpr ColumnMenuItem separator{nullptr, ColumnCommand::Cancel, -1, true};
    return {{
        {"Define filter...", ColumnCommand::DefineFilter, 0, numericColumn},
        {"Turn off filter", ColumnCommand::TurnOffFilter, 1, filterActive},
        separator,
        {"Sort in ascending order", ColumnCommand::SortAscending, 2, true},
        {"Sort in descending order", ColumnCommand::SortDescending, 3, true},
        separator,
        {"Cancel", ColumnCommand::Cancel, -1, true},
    }};
}

}  // namespace nux
