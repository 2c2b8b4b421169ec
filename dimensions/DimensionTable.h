#pragma once

#include <windows.h>

#include <msxml2.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "dimensions/Columns.h"
#include "dimensions/DimensionRows.h"
#include "dimensions/DistinctValues.h"
#include "dimensions/nuxDimFilter.h"
#include "framework/ComPtr.h"
#include "framework/Handles.h"
#include "framework/ListView.h"
#include "framework/Text.h"

namespace nux {

/// One dimension of a component: a column of the chooser's list.
struct Dimension {
    Bstr name;            ///< of the attribute, or child element, that holds its value in a row
    std::string caption;  ///< in the interface language
    nuxDimFilter filter;
    /// Until a cell that is no number has been read; from then on it is a column of texts for good.
    bool numeric = true;
};

/// What the list of the dimension chooser shows: one column for each dimension, behind a narrow column of
/// markers without a text, and one row for each size that all filters accept. Rows of the standard source
/// come before those of the user's. A row is known by its node, which is the item's data.
class DimensionTable {
public:
    /// @param catalogId  catalogue whose messages translate captions and texts
    /// @param names      one node for each dimension
    /// @param stdRows    rows of the standard source (code 1), may be null
    /// @param usrRows    rows of the user's source (code 2), may be null
    DimensionTable(std::string catalogId, IXMLDOMNodeList* names, IXMLDOMNodeList* stdRows,
                   IXMLDOMNodeList* usrRows);

    /// Makes the columns in an empty list view and gives it and its header their images. The list must live
    /// as long as the table is used. Throws std::bad_alloc, as all below.
    void InitColumns(const ListView& list);

    int ColumnCount() const noexcept { return ColumnOf(static_cast<int>(dimensions_.size())); }
    /// Whether the column is one of a dimension.
    bool IsDimension(int column) const noexcept { return column >= 1 && column < ColumnCount(); }
    const Dimension& At(int column) const noexcept { return dimensions_[DimensionOf(column)]; }
    void SetFilter(int column, const nuxDimFilter& filter) {
        dimensions_[DimensionOf(column)].filter = filter;
    }
    bool AllFiltersInactive() const noexcept;
    /// Shows in a column's caption whether it has an active filter, and aligns the column by its kind.
    void ShowFormat(int column) const noexcept;

    /// Deletes the rows of the list, and fills it with those of both sources that pass all filters. The
    /// caller pauses the redrawing.
    void FillRows();

    /// The rows in the list, as they came from the sources. A sort of the list changes nothing here.
    const DimensionRows& Rows() const noexcept { return rows_; }
    /// Lets go of the rows. After that the list's item data means nothing.
    void ReleaseRows() noexcept { rows_.Clear(); }

    /// The distinct values of a column over all rows of both sources, be they shown or not, ascending. A row
    /// without a child element of the dimension's name ends the gathering of its source. Empty for a column
    /// that is none of a dimension.
    std::vector<double> CollectNumericValues(int column) const;
    /// The same as localised texts.
    std::vector<std::string> CollectTextValues(int column) const;

private:
    enum class RowState { Passes, Refused, Incomplete };

    void InsertMarkerColumn();
    void InsertDimension(IXMLDOMNode* node, Bstr name);
    void FillRows(IXMLDOMNodeList* rows, std::uint32_t source);
    /// Reads a row into cells_ until a filter refuses a cell.
    RowState ReadRow(IXMLDOMNode* row, std::uint32_t source);
    void InsertRow(IXMLDOMNode* row, std::uint32_t source);
    void CollectValues(int column, DistinctValues& values) const;
    void CollectColumnValues(const Bstr& name, IXMLDOMNodeList* rows, DistinctValues& values) const;

    std::string catalogId_;
    ComPtr<IXMLDOMNodeList> names_;
    ComPtr<IXMLDOMNodeList> stdRows_;
    ComPtr<IXMLDOMNodeList> usrRows_;
    const ListView* list_ = nullptr;
    UniqueImageList headerImages_;  ///< a header doesn't own its images
    std::vector<Dimension> dimensions_;
    DimensionRows rows_;
    std::vector<std::string> cells_;  ///< of the row that is being read
    std::uint32_t toldSources_ = 0;   ///< of which a debugger was told that a row has ended them
};

}  // namespace nux
