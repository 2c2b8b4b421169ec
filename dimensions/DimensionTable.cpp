#include "dimensions/DimensionTable.h"

#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "dimensions/CellText.h"
#include "dimensions/DimNumber.h"
#include "dimensions/DimensionKeys.h"
#include "environment/Localisation.h"
#include "environment/XMLAccess.h"
#include "framework/DebugOutput.h"
#include "framework/Icons.h"
#include "resources/resource.h"

namespace nux {
namespace {

// The images of the list: only the user's rows are marked, that of the others doesn't exist.
enum ListImage { UserRowImage, StandardRowImage };
UniqueImageList LoadListImages() noexcept {
    return LoadSmallIcons({IDI_USER_ROW});
}

// The images of the header.
enum HeaderImage { FilterImage, MarkerImage };
UniqueImageList LoadHeaderImages() noexcept {
    return LoadSmallIcons({IDI_FILTER, IDI_USER_ROW});
}
constexpr int headerBitmapMargin = 2;

/// The caption's message ID: the first text inside the node, or its name if there is none.
std::string CaptionKey(IXMLDOMNode* node, const Bstr& name) {
    const ComPtr<IXMLDOMNode> text = SelectNode(node, "text()");
    return text ? GetWholeNodeText(text.Get()) : Narrow(name.Get());
}

}  // namespace

DimensionTable::DimensionTable(std::string catalogId, IXMLDOMNodeList* names, IXMLDOMNodeList* stdRows,
                               IXMLDOMNodeList* usrRows)
    : catalogId_(std::move(catalogId)), names_(names), stdRows_(stdRows), usrRows_(usrRows) {}

void DimensionTable::InitColumns(const ListView& list) {
    list_ = &list;
    dimensions_.clear();
    list.SetImages(LoadListImages());
    headerImages_ = LoadHeaderImages();
    Header_SetImageList(list.Header(), headerImages_.Get());
    InsertMarkerColumn();
    ForEachNode(names_.Get(), [&](IXMLDOMNode* node) {
        Bstr name;
        if (FAILED(node->get_nodeName(name.Receive())) || name.Length() == 0)
            return false;
        InsertDimension(node, std::move(name));
        return true;
    });
    cells_.resize(dimensions_.size());
}

void DimensionTable::InsertMarkerColumn() {
    list_->InsertColumn(0, LVCFMT_RIGHT, ColumnValues::markerWidth, {});
    HDITEMA item{};
    item.mask = HDI_FORMAT | HDI_IMAGE;
    item.fmt = HDF_STRING | HDF_IMAGE;
    item.iImage = MarkerImage;
    SendMessageA(list_->Header(), HDM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    Header_SetBitmapMargin(list_->Header(), headerBitmapMargin);
}

void DimensionTable::InsertDimension(IXMLDOMNode* node, Bstr name) {
    Dimension dimension;
    dimension.caption = GetLocalizedMessage(catalogId_, CaptionKey(node, name));
    dimension.name = std::move(name);
    list_->InsertColumn(ColumnCount(), LVCFMT_CENTER, ColumnValues::defaultWidth, dimension.caption);
    dimensions_.push_back(std::move(dimension));
}

bool DimensionTable::AllFiltersInactive() const noexcept {
    return std::all_of(dimensions_.begin(), dimensions_.end(),
                       [](const Dimension& dimension) { return dimension.filter.IsInactive(); });
}

void DimensionTable::ShowFormat(int column) const noexcept {
    const Dimension& dimension = At(column);
    list_->SetColumnFormat(column,
                           dimension.filter.IsInactive() ? std::nullopt : std::optional<int>(FilterImage),
                           dimension.numeric);
}

void DimensionTable::FillRows() {
    list_->DeleteAllRows();
    rows_.Clear();
    FillRows(stdRows_.Get(), DatabaseStandard);
    FillRows(usrRows_.Get(), DatabaseUser);
}

void DimensionTable::FillRows(IXMLDOMNodeList* rows, std::uint32_t source) {
    ForEachNode(rows, [&](IXMLDOMNode* row) {
        const RowState state = ReadRow(row, source);
        if (state == RowState::Passes)
            InsertRow(row, source);
        if (state == RowState::Incomplete && !(std::exchange(toldSources_, toldSources_ | source) & source))
            TellDebugger(L"a row of source " + std::to_wstring(source) +
                         L" lacks a value: it ends its source.");
        return state != RowState::Incomplete;
    });
}

DimensionTable::RowState DimensionTable::ReadRow(IXMLDOMNode* row, std::uint32_t source) {
    const ComPtr<IXMLDOMElement> element = Query<IXMLDOMElement>(row);
    Variant value;
    CellText text;
    auto cell = cells_.begin();
    for (Dimension& dimension : dimensions_) {
        if (!element || !ReadAttribute(element.Get(), dimension.name, value))
            return RowState::Incomplete;
        text.Assign(value);
        *cell = text.View();
        // The number stays that of the untranslated text.
        const DimNumber number = ReadDimNumber(text.View());
        if (!number.whole) {
            dimension.numeric = false;
            *cell = GetLocalizedMessage(catalogId_, *cell);
        }
        if (!dimension.filter.PassesCell(*cell, number.value, source))
            return RowState::Refused;
        ++cell;
    }
    return RowState::Passes;
}

void DimensionTable::InsertRow(IXMLDOMNode* row, std::uint32_t source) {
    const int index = rows_.Count();
    rows_.Add(row, cells_);
    list_->InsertRow(index, reinterpret_cast<LPARAM>(row),
                     source == DatabaseUser ? UserRowImage : StandardRowImage);
    for (int column = 1; column < ColumnCount(); ++column)
        list_->SetCell(index, column, cells_[DimensionOf(column)]);
}

void DimensionTable::CollectColumnValues(const Bstr& name, IXMLDOMNodeList* rows,
                                         DistinctValues& values) const {
    Variant value;
    CellText text;
    ForEachNode(rows, [&](IXMLDOMNode* row) {
        if (!ReadChildElement(row, name.View(), value))
            return false;
        text.Assign(value);
        values.Add(text.View());
        return true;
    });
}

void DimensionTable::CollectValues(int column, DistinctValues& values) const {
    if (!IsDimension(column))
        return;
    CollectColumnValues(At(column).name, stdRows_.Get(), values);
    CollectColumnValues(At(column).name, usrRows_.Get(), values);
}

std::vector<double> DimensionTable::CollectNumericValues(int column) const {
    DistinctValues values;
    CollectValues(column, values);
    return values.Numbers();
}

std::vector<std::string> DimensionTable::CollectTextValues(int column) const {
    DistinctValues values;
    CollectValues(column, values);
    return values.Texts([&](const std::string& value) { return GetLocalizedMessage(catalogId_, value); });
}

}  // namespace nux
