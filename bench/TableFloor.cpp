#include "bench/TableFloor.h"

#include <commctrl.h>

#include <functional>

#include "bench/TestFiles.h"
#include "framework/Variant.h"

namespace nux::bench::floor {
namespace {

using Cell = char[128];

/// The texts of this bench are plain ASCII.
void Copy(const VARIANT& value, Cell& cell) {
    const UINT length = SysStringLen(value.bstrVal);
    for (UINT i = 0; i < length; ++i)
        cell[i] = static_cast<char>(value.bstrVal[i]);
    cell[length] = '\0';
}

class Names {
public:
    Names() {
        for (int dimension = 0; dimension < SizeFile::dimensions; ++dimension)
            names_.emplace_back(DimensionName(dimension));
    }
    BSTR operator[](int dimension) const { return names_[dimension].Get(); }

private:
    std::vector<Bstr> names_;
};

void ReadCell(IXMLDOMElement* row, BSTR name, Cell& cell) {
    Variant value;
    row->getAttribute(name, value.Receive());
    Copy(value.Get(), cell);
}

void InsertRow(HWND list, int index, LPARAM data, Cell (&cells)[SizeFile::dimensions]) {
    LVITEMA item{};
    item.mask = LVIF_IMAGE | LVIF_PARAM;
    item.iItem = index;
    item.iImage = 1;
    item.lParam = data;
    SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    item.mask = LVIF_TEXT;
    for (Cell& cell : cells) {
        ++item.iSubItem;
        item.pszText = cell;
        SendMessageA(list, LVM_SETITEMTEXTA, index, reinterpret_cast<LPARAM>(&item));
    }
}

void Fill(HWND list, const Sizes& sizes, bool everySecond, RowReferences& references,
          const std::function<LPARAM(IXMLDOMNode* row, int index)>& dataOf) {
    const Names names;
    Cell cells[SizeFile::dimensions];
    ListView_DeleteAllItems(list);
    references.clear();
    sizes.rows->reset();
    ComPtr<IXMLDOMNode> row;
    int inserted = 0;
    for (int index = 0; sizes.rows->nextNode(row.Receive()) == S_OK; ++index) {
        const ComPtr<IXMLDOMElement> element = row.As<IXMLDOMElement>();
        if (everySecond && index % 2 != 0) {
            ReadCell(element.Get(), names[0], cells[0]);
            ReadCell(element.Get(), names[1], cells[1]);
            continue;
        }
        for (int dimension = 0; dimension < SizeFile::dimensions; ++dimension)
            ReadCell(element.Get(), names[dimension], cells[dimension]);
        InsertRow(list, inserted++, dataOf(row.Get(), index), cells);
    }
}

}  // namespace

void FillRows(HWND list, const Sizes& sizes, bool everySecond, RowReferences& references) {
    Fill(list, sizes, everySecond, references, [&](IXMLDOMNode* row, int) {
        references.push_back(ComPtr<IXMLDOMNode>(row));
        return reinterpret_cast<LPARAM>(row);
    });
}

void FillRowsWithKeys(HWND list, const Sizes& sizes, const std::vector<int>& keys) {
    RowReferences none;
    Fill(list, sizes, false, none, [&](IXMLDOMNode*, int index) { return static_cast<LPARAM>(keys[index]); });
}

int CALLBACK Compare(LPARAM a, LPARAM b, LPARAM) {
    return (a > b) - (a < b);
}

void Sort(HWND list) {
    SendMessageA(list, LVM_SORTITEMS, 0, reinterpret_cast<LPARAM>(Compare));
}

void ReadValues(const Sizes& sizes, int dimension) {
    Cell cell;
    sizes.rows->reset();
    ComPtr<IXMLDOMNode> row;
    while (sizes.rows->nextNode(row.Receive()) == S_OK) {
        ComPtr<IXMLDOMNode> child;
        row->get_firstChild(child.Receive());
        for (int i = 0; i < dimension; ++i) {
            ComPtr<IXMLDOMNode> next;
            child->get_nextSibling(next.Receive());
            child = std::move(next);
        }
        Variant value;
        child->get_nodeTypedValue(value.Receive());
        Copy(value.Get(), cell);
    }
}

}  // namespace nux::bench::floor
