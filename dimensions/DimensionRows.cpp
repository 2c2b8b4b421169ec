#include "dimensions/DimensionRows.h"

#include "dimensions/Columns.h"
#include "dimensions/DimNumber.h"

namespace nux {
namespace {

static_assert(longestCellText <= 0xff, "the length of a cell takes one byte");

}  // namespace

void DimensionRows::Add(IXMLDOMNode* node, const std::vector<std::string>& cells) {
    const auto start = cells_.size();
    for (const std::string& cell : cells) {
        const std::string_view kept = CutCellText(cell);
        cells_.push_back(static_cast<char>(kept.size()));
        cells_.append(kept);
    }
    rows_.push_back({ComPtr<IXMLDOMNode>(node), start});
}

void DimensionRows::Clear() noexcept {
    std::vector<Row>().swap(rows_);
    std::string().swap(cells_);
}

ComPtr<IXMLDOMNode> DimensionRows::Find(LPARAM node) const noexcept {
    for (const Row& row : rows_) {
        if (reinterpret_cast<LPARAM>(row.node.Get()) == node)
            return row.node;
    }
    return nullptr;
}

std::string_view DimensionRows::Cell(int row, int column) const noexcept {
    auto at = rows_[row].cells;
    const auto length = [&] { return static_cast<std::size_t>(static_cast<unsigned char>(cells_[at])); };
    for (int dimension = DimensionOf(column); dimension > 0; --dimension)
        at += 1 + length();
    return {cells_.data() + at + 1, length()};
}

}  // namespace nux
