#include "dimensions/DimensionTable.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "dimensions/DimNumber.h"
#include "dimensions/DimensionKeys.h"
#include "environment/Localisation.h"

namespace nux {
namespace {

// Images of the list: only the user's rows are marked. That of the standard rows doesn't exist.
constexpr int userRowImage = 0;
constexpr int standardRowImage = 1;

/// Image of the marker column in the list of the header.
constexpr int markerHeaderImage = 1;
constexpr int headerBitmapMargin = 2;

/// The caption's message ID: the first text inside the node, or its name if there is none.
std::string CaptionKey(IXMLDOMNode* node, const Bstr& name) {
    ComPtr<IXMLDOMNode> text;
    if (node->selectSingleNode(Bstr(L"text()").Get(), text.Receive()) != S_OK || !text)
        return Narrow(name.Get());
    Variant value;
    if (FAILED(text->get_nodeTypedValue(&value)) || !value.IsString())
        return {};
    return Narrow(value.bstrVal);
}

void InsertColumn(HWND list, int column, int format, int width, const std::string& caption) {
    LVCOLUMNA description{};
    description.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
    description.fmt = format;
    description.cx = width;
    description.pszText = const_cast<char*>(caption.c_str());
    description.iSubItem = column;
    SendMessageA(list, LVM_INSERTCOLUMNA, column, reinterpret_cast<LPARAM>(&description));
}

}  // namespace

DimensionTable::DimensionTable(std::string catalogId, IXMLDOMNodeList* names, IXMLDOMNodeList* stdRows,
                               IXMLDOMNodeList* usrRows)
    : catalogId_(std::move(catalogId)), names_(names), stdRows_(stdRows), usrRows_(usrRows) {}

void DimensionTable::InitColumns(HWND list) {
    list_ = list;
    listProcedure_ = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(list, GWLP_WNDPROC));
    dimensions_.clear();
    names_->reset();
    InsertMarkerColumn();
    ComPtr<IXMLDOMNode> node;
    while (names_->nextNode(node.Receive()) == S_OK && node) {
        Bstr name;
        if (FAILED(node->get_nodeName(name.Receive())) || name.Length() == 0)
            break;
        InsertDimension(node.Get(), std::move(name));
    }
    cells_.resize(dimensions_.size());
}

void DimensionTable::InsertMarkerColumn() {
    InsertColumn(list_, 0, LVCFMT_RIGHT, ColumnValues::markerWidth, {});
    const HWND header = ListView_GetHeader(list_);
    HDITEMA item{};
    item.mask = HDI_FORMAT | HDI_IMAGE;
    item.fmt = HDF_STRING | HDF_IMAGE;
    item.iImage = markerHeaderImage;
    SendMessageA(header, HDM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    Header_SetBitmapMargin(header, headerBitmapMargin);
}

void DimensionTable::InsertDimension(IXMLDOMNode* node, Bstr name) {
    Dimension dimension;
    dimension.caption = GetLocalizedMessage(catalogId_, CaptionKey(node, name));
    dimension.name = std::move(name);
    InsertColumn(list_, ColumnCount(), LVCFMT_CENTER, ColumnValues::defaultWidth, dimension.caption);
    dimensions_.push_back(std::move(dimension));
}

bool DimensionTable::AllFiltersInactive() const noexcept {
    return std::all_of(dimensions_.begin(), dimensions_.end(),
                       [](const Dimension& dimension) { return dimension.filter.IsInactive(); });
}

void DimensionTable::FillRows() {
    ListView_DeleteAllItems(list_);
    rows_.Clear();
    FillRows(stdRows_.Get(), DatabaseStandard);
    FillRows(usrRows_.Get(), DatabaseUser);
}

void DimensionTable::FillRows(IXMLDOMNodeList* rows, std::uint32_t source) {
    if (!rows)
        return;
    rows->reset();
    ComPtr<IXMLDOMNode> row;
    while (rows->nextNode(row.Receive()) == S_OK && row) {
        switch (ReadRow(row.Get(), source)) {
            case RowState::Passes:
                InsertRow(row.Get(), source);
                break;
            case RowState::Refused:
                break;
            case RowState::Incomplete:
                return;
        }
    }
}

DimensionTable::RowState DimensionTable::ReadRow(IXMLDOMNode* row, std::uint32_t source) {
    const ComPtr<IXMLDOMElement> element = Query<IXMLDOMElement>(row, IID_IXMLDOMElement);
    CellText text;
    auto cell = cells_.begin();
    for (Dimension& dimension : dimensions_) {
        if (!element || !ReadAttribute(element.Get(), dimension.name, &text))
            return RowState::Incomplete;
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
    const int index = static_cast<int>(rows_.Count());
    rows_.Add(row, cells_);
    LVITEMA item{};
    item.mask = LVIF_IMAGE | LVIF_PARAM;
    item.iItem = index;
    item.iImage = source == DatabaseUser ? userRowImage : standardRowImage;
    item.lParam = reinterpret_cast<LPARAM>(row);
    Send(LVM_INSERTITEMA, 0, &item);
    item.mask = LVIF_TEXT;
    for (const std::string& cell : cells_) {
        ++item.iSubItem;
        item.pszText = const_cast<char*>(cell.c_str());
        Send(LVM_SETITEMTEXTA, index, &item);
    }
}

void DimensionTable::CollectColumnValues(const Bstr& name, IXMLDOMNodeList* rows,
                                         DistinctValues& values) const {
    if (!rows)
        return;
    rows->reset();
    CellText text;
    ComPtr<IXMLDOMNode> row;
    while (rows->nextNode(row.Receive()) == S_OK && row && ReadChildElement(row.Get(), name, &text))
        values.Add(text.View());
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
