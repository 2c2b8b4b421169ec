// Column orders: drops and stored positions are held against a plain walk through their steps.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <numeric>
#include <utility>
#include <vector>

#include "dimensions/Columns.h"

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

void CheckDrop(const std::vector<int>& order, int column, std::optional<int> position) {
    const nux::ColumnDrop drop = nux::DropColumn(order, column, position);
    const int count = static_cast<int>(order.size());
    if (column == 0 ||
        (position && (*position <= 0 || *position >= count || column < 0 || column >= count))) {
        Require(!drop.allowed && !drop.order);
        return;
    }
    Require(drop.allowed && drop.order.has_value() == position.has_value());
    if (!position)
        return;
    std::vector<int> expected;
    for (const int other : order) {
        if (other != column)
            expected.push_back(other);
    }
    expected.push_back(0);
    for (int i = count - 1; i > *position; --i)
        expected[i] = expected[i - 1];
    expected[*position] = column;
    Require(*drop.order == expected);
    Require(order[0] != 0 || (*drop.order)[0] == 0);
}

void CheckStored(const std::vector<nux::StoredColumn>& columns) {
    const int count = static_cast<int>(columns.size());
    std::vector<int> expected(count, -1);
    bool bad = false;
    for (int i = 0; i < count; ++i) {
        const int position = columns[i].captionEmpty ? 0 : columns[i].order;
        if (position < 0) {
            bad = true;
            continue;
        }
        if (position >= count || expected[position] != -1)
            bad = true;
        else
            expected[position] = i;
    }
    const auto order = nux::StoredColumnOrder(columns);
    Require(order.has_value() == !bad);
    Require(bad || *order == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    const auto integer = [&](int last) {
        return data.ConsumeIntegralInRange(0, 9) == 0 ? data.ConsumeIntegral<int>()
                                                      : data.ConsumeIntegralInRange(-1, last);
    };

    std::vector<int> order(data.ConsumeIntegralInRange<std::size_t>(0, 12));
    std::iota(order.begin(), order.end(), 0);
    for (std::size_t i = 1; i < order.size(); ++i)
        std::swap(order[i], order[data.ConsumeIntegralInRange<std::size_t>(0, i)]);
    const int last = static_cast<int>(order.size());
    std::optional<int> position;
    if (data.ConsumeIntegralInRange(0, 9) != 0)
        position = integer(last);
    CheckDrop(order, integer(last), position);

    // The positions of an order are good; a few of them are spoilt.
    std::vector<nux::StoredColumn> columns;
    for (const int place : order)
        columns.push_back({place == 0, place});
    CheckStored(columns);
    for (int spoilt = data.ConsumeIntegralInRange(0, 2); spoilt != 0 && !columns.empty(); --spoilt)
        columns[data.ConsumeIntegralInRange<std::size_t>(0, columns.size() - 1)] = {data.ConsumeBool(),
                                                                                    integer(last)};
    CheckStored(columns);
    return 0;
}
