#include "dimensions/SizeList.h"

#include <windowsx.h>

#include "dimensions/Columns.h"
#include "framework/RedrawPause.h"

namespace nux {

void SizeList::SetColumnFormat(HWND list, int column, std::optional<int> image, bool centred) noexcept {
    // Not every system has one alignment for the cells and the header of a column.
    LVCOLUMNA cells{};
    cells.mask = LVCF_FMT;
    cells.fmt = centred ? LVCFMT_CENTER : LVCFMT_LEFT;
    SendMessageA(list, LVM_SETCOLUMNA, column, reinterpret_cast<LPARAM>(&cells));
    HDITEMA item{};
    item.mask = HDI_FORMAT;
    item.fmt = HDF_STRING | (centred ? HDF_CENTER : HDF_LEFT);
    if (image) {
        item.mask |= HDI_IMAGE;
        item.fmt |= HDF_IMAGE;
        item.iImage = *image;
    }
    SendMessageA(ListView_GetHeader(list), HDM_SETITEMA, column, reinterpret_cast<LPARAM>(&item));
}

std::vector<int> SizeList::ColumnOrder(HWND list) {
    std::vector<int> order(Header_GetItemCount(ListView_GetHeader(list)));
    ListView_GetColumnOrderArray(list, static_cast<int>(order.size()), order.data());
    return order;
}

void SizeList::SetColumnOrder(HWND list, const std::vector<int>& order) noexcept {
    ListView_SetColumnOrderArray(list, static_cast<int>(order.size()), order.data());
}

void SizeList::SelectRow(HWND list, int row) noexcept {
    ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(list, row, FALSE);
}

LRESULT SizeList::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NOTIFY: {
            const auto& notification = *reinterpret_cast<const NMHDR*>(lParam);
            if (notification.hwndFrom != ListView_GetHeader(Handle()))
                break;
            // Some systems leave the place of a dragged header unpainted, and the frame around it.
            if (notification.code == static_cast<UINT>(NM_RELEASEDCAPTURE))
                RedrawWindow(GetParent(Handle()), nullptr, nullptr,
                             RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
            else if (!AllowsHeader(reinterpret_cast<const NMHEADERA&>(notification)))
                return TRUE;
            break;
        }
        case WM_RBUTTONDOWN: {
            LVHITTESTINFO hit{};
            hit.pt = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
            if (ListView_SubItemHitTest(Handle(), &hit) < 0 || hit.iSubItem == 0)
                break;
            cellPressed_(hit.iSubItem);
            return 0;
        }
    }
    return Default(message, wParam, lParam);
}

void SizeList::OnFailure() noexcept {
    EndDialog(GetParent(Handle()), IDABORT);
}

bool SizeList::AllowsHeader(const NMHEADERA& notification) {
    switch (notification.hdr.code) {
        case HDN_BEGINTRACKA:
        case HDN_BEGINTRACKW:
        case HDN_DIVIDERDBLCLICKA:
        case HDN_DIVIDERDBLCLICKW:
            return notification.iItem != 0;
        case HDN_ENDDRAG:
            return AllowsDrop(notification);
        default:
            return true;
    }
}

bool SizeList::AllowsDrop(const NMHEADERA& notification) {
    const HDITEMA* item = notification.pitem;
    std::optional<int> newOrder;
    if (item && (item->mask & HDI_ORDER))
        newOrder = item->iOrder;
    const ColumnDrop drop = DropColumn(ColumnOrder(Handle()), notification.iItem, newOrder);
    if (drop.order) {
        {
            const RedrawPause pause(Handle());
            SetColumnOrder(Handle(), *drop.order);
        }
        InvalidateRect(Handle(), nullptr, TRUE);
        UpdateWindow(Handle());
    }
    return drop.allowed;
}

}  // namespace nux
