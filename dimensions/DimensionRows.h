#pragma once

#include <windows.h>

#include <msxml2.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "framework/ComPtr.h"

namespace nux {

/// The rows that stand in the chooser's list, in the order in which they were added. It owns the list's
/// references on the row nodes, and keeps the texts of the cells for the one who needs those of many rows:
/// asking the list for them costs as much as sorting it.
class DimensionRows {
public:
    /// Adds a row with its cells, one for each dimension. Of a cell its first 127 bytes are kept.
    /// Throws std::bad_alloc.
    void Add(IXMLDOMNode* node, const std::vector<std::string>& cells);

    /// Lets go of all rows.
    void Clear() noexcept;

    std::size_t Count() const noexcept { return rows_.size(); }
    IXMLDOMNode* Node(std::size_t row) const noexcept { return rows_[row].node.Get(); }
    /// The row whose node is known by this number, or null: the number is a list's, where others may have set
    /// it.
    ComPtr<IXMLDOMNode> Find(LPARAM node) const noexcept;
    std::string_view Cell(std::size_t row, std::size_t dimension) const noexcept;

private:
    struct Row {
        ComPtr<IXMLDOMNode> node;
        std::size_t cells;  ///< where the row's cells start in cells_
    };

    std::vector<Row> rows_;
    std::string cells_;  ///< of each cell its length in one byte, and its text
};

}  // namespace nux
