#pragma once

#include <windows.h>

#include "dimensions/DimensionRows.h"
#include "framework/ListView.h"

namespace nux {

/// Sorts the rows of the chooser's list once, by the cells of one column. The list control does the sorting
/// with the keys and the comparison of this class; items keep their data, and the order of equal keys is
/// whatever the control leaves.
class nuxLVSort {
public:
    /// @param list     the list view
    /// @param rows     its rows; the list has no others
    /// @param column   list column whose cells are the keys, from 1 on
    /// @param numeric  compare the numbers at the start of the cells instead of their texts
    /// Both list and rows must outlive the object. Does no work yet.
    nuxLVSort(const ListView& list, const DimensionRows& rows, int column, bool numeric) noexcept
        : list_(list), rows_(rows), column_(column), numeric_(numeric) {}
    virtual ~nuxLVSort() = default;

    /// Throws std::bad_alloc; the list is unsorted then.
    void Sort(bool ascending);

private:
    void SortByNumber(bool ascending);
    void SortByText(bool ascending);

    const ListView& list_;
    const DimensionRows& rows_;
    int column_;
    bool numeric_;
};

}  // namespace nux
