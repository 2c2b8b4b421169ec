#include "driver/ListView.h"

#include <commctrl.h>

#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/PointerInput.h"

namespace driver {
namespace {

constexpr int textCapacity = 1024;

POINT MiddleOf(const RECT& bounds) {
    return {(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
}

HDITEMA HeaderItem(HWND header, int column, UINT mask) {
    HDITEMA item{};
    item.mask = mask;
    AskWith(header, HDM_GETITEMA, column, item);
    return item;
}

}  // namespace

ListView::ListView(HWND list) : list_(list), header_(reinterpret_cast<HWND>(Ask(list, LVM_GETHEADER))) {}

int ListView::RowCount() const {
    return static_cast<int>(Ask(list_, LVM_GETITEMCOUNT));
}

int ListView::ColumnCount() const {
    return static_cast<int>(Ask(header_, HDM_GETITEMCOUNT));
}

std::string ListView::Cell(int row, int column) const {
    SharedBlock block(list_, sizeof(LVITEMA) + textCapacity);
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = reinterpret_cast<char*>(block.Address(sizeof item));
    item.cchTextMax = textCapacity;
    block.Write(0, &item, sizeof item);
    Ask(list_, LVM_GETITEMTEXTA, row, block.Address());
    return block.ReadText(sizeof item);
}

std::vector<std::string> ListView::Column(int column) const {
    std::vector<std::string> cells;
    for (int row = 0, count = RowCount(); row < count; ++row)
        cells.push_back(Cell(row, column));
    return cells;
}

int ListView::Image(int row) const {
    LVITEMA item{};
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    AskWith(list_, LVM_GETITEMA, 0, item);
    return item.iImage;
}

std::vector<int> ListView::Selected() const {
    std::vector<int> rows;
    for (int row = -1;;) {
        row = static_cast<int>(Ask(list_, LVM_GETNEXTITEM, row, LVNI_SELECTED));
        if (row < 0)
            return rows;
        rows.push_back(row);
    }
}

int ListView::Focused() const {
    return static_cast<int>(Ask(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
}

bool ListView::InSight(int row) const {
    const auto top = static_cast<int>(Ask(list_, LVM_GETTOPINDEX));
    const auto page = static_cast<int>(Ask(list_, LVM_GETCOUNTPERPAGE));
    return row >= top && row < top + page;
}

RECT ListView::CellBounds(int row, int column) const {
    RECT bounds{};
    bounds.left = LVIR_BOUNDS;
    bounds.top = column;
    AskWith(list_, LVM_GETSUBITEMRECT, row, bounds);
    if (column == 0)  // for which the platform answers with the whole row
        bounds.right = bounds.left + Width(0);
    return bounds;
}

POINT ListView::CellMiddle(int row, int column) const {
    return MiddleOf(CellBounds(row, column));
}

std::string ListView::Caption(int column) const {
    SharedBlock block(header_, sizeof(HDITEMA) + textCapacity);
    HDITEMA item{};
    item.mask = HDI_TEXT;
    item.pszText = reinterpret_cast<char*>(block.Address(sizeof item));
    item.cchTextMax = textCapacity;
    block.Write(0, &item, sizeof item);
    Ask(header_, HDM_GETITEMA, column, block.Address());
    return block.ReadText(sizeof item);
}

int ListView::Width(int column) const {
    return static_cast<int>(Ask(list_, LVM_GETCOLUMNWIDTH, column));
}

std::vector<int> ListView::Order() const {
    std::vector<int> order(ColumnCount());
    SharedBlock block(list_, order.size() * sizeof(int) + 1);
    Ask(list_, LVM_GETCOLUMNORDERARRAY, order.size(), block.Address());
    block.Read(0, order.data(), order.size() * sizeof(int));
    return order;
}

int ListView::HeaderFormat(int column) const {
    return HeaderItem(header_, column, HDI_FORMAT).fmt;
}

int ListView::HeaderImage(int column) const {
    const HDITEMA item = HeaderItem(header_, column, HDI_FORMAT | HDI_IMAGE);
    return item.fmt & HDF_IMAGE ? item.iImage : -1;
}

RECT ListView::HeaderBounds(int column) const {
    RECT bounds{};
    AskWith(header_, HDM_GETITEMRECT, column, bounds);
    return bounds;
}

POINT ListView::HeaderMiddle(int column) const {
    return MiddleOf(HeaderBounds(column));
}

POINT ListView::Divider(int column) const {
    const RECT bounds = HeaderBounds(column);
    return {bounds.right - 1, MiddleOf(bounds).y};
}

void ListView::ClickRow(int row) const {
    Click(list_, CellMiddle(row, 1));
}

void ListView::ClickHeader(int column) const {
    // The pointer goes there first: a movement of it elsewhere, between press and release, would be a drag.
    MovePointer(OnScreen(header_, HeaderMiddle(column)));
    Click(header_, HeaderMiddle(column));
}

}  // namespace driver
