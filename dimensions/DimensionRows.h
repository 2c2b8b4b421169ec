#pragma once

#include <windows.h>

#include <msxml2.h>

#include <string>
#include <string_view>
#include <vector>

#include "framework/ComPtr.h"

namespace nux {

/// The rows of the chooser's list, in the order in which they were added. It owns the list's references on
/// the row nodes. It keeps the texts of the cells too, for whoever needs many of them: asking the list for
/// them takes as long as sorting it.
class DimensionRows {
public:
    /// Adds a row with its cells, one for each dimension. Of a cell its first 127 bytes are kept.
    /// Throws std::bad_alloc.
    void Add(IXMLDOMNode* node, const std::vector<std::string>& cells);

    /// Lets go of all rows.
    void Clear() noexcept;

    int Count() const noexcept { return static_cast<int>(rows_.size()); }
    IXMLDOMNode* Node(int row) const noexcept { return rows_[row].node.Get(); }
    /// The node that the list knows by this number, its item data; null if that is none of the rows' nodes,
    /// since any program can set a list's item data.
    ComPtr<IXMLDOMNode> Find(LPARAM node) const noexcept;
    /// A cell by the column in which the list shows it, from 1 on.
    std::string_view Cell(int row, int column) const noexcept;

private:
    struct Row {
        ComPtr<IXMLDOMNode> node;
        std::string::size_type cells;  ///< where the row's cells start in cells_
    };

    std::vector<Row> rows_;
    std::string cells_;  ///< for each cell one byte with its length, then its text
};

}  // namespace nux
