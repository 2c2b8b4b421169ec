#include "framework/ListView.h"

namespace nux {

void ListView::SetExtendedStyle(DWORD style) const noexcept {
    SendMessageA(Handle(), LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(style));
}

void ListView::SetImages(UniqueImageList images) const noexcept {
    const UniqueImageList before(
        reinterpret_cast<HIMAGELIST>(Send(LVM_SETIMAGELIST, LVSIL_SMALL, images.Detach())));
}

void ListView::InsertColumn(int column, int format, int width, const std::string& caption) const noexcept {
    LVCOLUMNA description{};
    description.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
    description.fmt = format;
    description.cx = width;
    description.pszText = const_cast<char*>(caption.c_str());
    description.iSubItem = column;
    Send(LVM_INSERTCOLUMNA, column, &description);
}

void ListView::SetColumnFormat(int column, std::optional<int> image, bool centred) const noexcept {
    // On Windows the alignment of the header's item is that of the cells too. Wine 8.0 keeps one for each,
    // and cells of a column of texts would stay centred (Table.AlignsItsColumnsAsTheirCaptions).
    LVCOLUMNA cells{};
    cells.mask = LVCF_FMT;
    cells.fmt = centred ? LVCFMT_CENTER : LVCFMT_LEFT;
    Send(LVM_SETCOLUMNA, column, &cells);
    HDITEMA item{};
    item.mask = HDI_FORMAT;
    item.fmt = HDF_STRING | (centred ? HDF_CENTER : HDF_LEFT);
    if (image) {
        item.mask |= HDI_IMAGE;
        item.fmt |= HDF_IMAGE;
        item.iImage = *image;
    }
    SendMessageA(Header(), HDM_SETITEMA, column, reinterpret_cast<LPARAM>(&item));
}

int ListView::ColumnWidth(int column) const noexcept {
    return static_cast<int>(Send(LVM_GETCOLUMNWIDTH, column));
}

void ListView::SetColumnWidth(int column, int width) const noexcept {
    SendMessageA(Handle(), LVM_SETCOLUMNWIDTH, column, MAKELPARAM(width, 0));
}

std::vector<int> ListView::ColumnOrder() const {
    std::vector<int> order(Header_GetItemCount(Header()));
    Send(LVM_GETCOLUMNORDERARRAY, order.size(), order.data());
    return order;
}

void ListView::SetColumnOrder(const std::vector<int>& order) const noexcept {
    Send(LVM_SETCOLUMNORDERARRAY, order.size(), order.data());
}

void ListView::InsertRow(int row, LPARAM data, int image) const noexcept {
    LVITEMA item{};
    item.mask = LVIF_IMAGE | LVIF_PARAM;
    item.iItem = row;
    item.iImage = image;
    item.lParam = data;
    Default(LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
}

void ListView::SetCell(int row, int column, const std::string& text) const noexcept {
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = const_cast<char*>(text.c_str());
    Default(LVM_SETITEMTEXTA, row, reinterpret_cast<LPARAM>(&item));
}

void ListView::DeleteAllRows() const noexcept {
    Send(LVM_DELETEALLITEMS);
}

LPARAM ListView::RowData(int row) const noexcept {
    LVITEMA item{};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    Send(LVM_GETITEMA, 0, &item);
    return item.lParam;
}

int ListView::SelectedRow() const noexcept {
    return static_cast<int>(SendMessageA(Handle(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void ListView::SelectRow(int row) const noexcept {
    LVITEMA item{};
    item.stateMask = item.state = LVIS_SELECTED | LVIS_FOCUSED;
    Send(LVM_SETITEMSTATE, row, &item);
    SendMessageA(Handle(), LVM_ENSUREVISIBLE, row, FALSE);
}

void ListView::Sort(PFNLVCOMPARE compare, const void* context) const noexcept {
    Send(LVM_SORTITEMS, reinterpret_cast<WPARAM>(context), reinterpret_cast<const void*>(compare));
}

}  // namespace nux
