#include "dimensions/Columns.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "resources/resource.h"

namespace nux {

ColumnDrop DropColumn(const std::vector<int>& order, int column, std::optional<int> newOrder) {
    if (column == 0)
        return {false, std::nullopt};
    if (!newOrder)
        return {true, std::nullopt};
    const auto dragged = std::find(order.begin(), order.end(), column);
    if (*newOrder <= 0 || static_cast<std::size_t>(*newOrder) >= order.size() || dragged == order.end())
        return {false, std::nullopt};
    std::vector<int> changed(order);
    changed.erase(changed.begin() + (dragged - order.begin()));
    changed.insert(changed.begin() + *newOrder, column);
    return {true, std::move(changed)};
}

std::optional<std::vector<int>> StoredColumnOrder(const std::vector<StoredColumn>& columns) {
    std::vector<int> order(columns.size(), -1);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::int32_t position = columns[i].captionEmpty ? 0 : columns[i].order;
        if (position < 0 || static_cast<std::size_t>(position) >= order.size() || order[position] != -1)
            return std::nullopt;
        order[position] = static_cast<int>(i);
    }
    return order;
}

std::array<ColumnMenuItem, 7> ColumnMenu(bool numericColumn, bool filterActive) {
    constexpr ColumnMenuItem separator{nullptr, ColumnCommand::Cancel, 0, true};
    return {{
        {"Define filter...", ColumnCommand::DefineFilter, IDI_FILTER, numericColumn},
        {"Turn off filter", ColumnCommand::TurnOffFilter, IDI_FILTER_OFF, filterActive},
        separator,
        {"Sort in ascending order", ColumnCommand::SortAscending, IDI_SORT_ASCENDING, true},
        {"Sort in descending order", ColumnCommand::SortDescending, IDI_SORT_DESCENDING, true},
        separator,
        {"Cancel", ColumnCommand::Cancel, 0, true},
    }};
}

}  // namespace nux
