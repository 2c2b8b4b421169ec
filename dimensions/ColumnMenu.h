#pragma once

#include <array>

namespace nux {

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
    int image;              ///< 0 to 3: filter, filter turned off, ascending, descending; -1 for none.
    bool enabled;
};

/// The menu of a column, from top to bottom. Filters are defined for numeric columns only, and only an active
/// filter can be turned off.
std::array<ColumnMenuItem, 7> ColumnMenu(bool numericColumn, bool filterActive);

}  // namespace nux
