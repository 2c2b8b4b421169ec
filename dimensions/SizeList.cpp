#include "dimensions/SizeList.h"

#include "dimensions/Columns.h"
#include "framework/RedrawPause.h"

namespace nux {

LRESULT SizeList::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NOTIFY: {
            const auto& notification = *reinterpret_cast<const NMHDR*>(lParam);
            if (notification.hwndFrom != Header())
                break;
            // Wine 8.0 leaves the place of a dragged header unpainted, and the frame around it
            // (Columns.NothingOfTheDraggedCaptionStays).
            if (notification.code == static_cast<UINT>(NM_RELEASEDCAPTURE))
                RedrawWindow(GetParent(Handle()), nullptr, nullptr,
                             RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
            else if (!AllowsHeader(reinterpret_cast<const NMHEADERA&>(notification)))
                return TRUE;
            break;
        }
        case WM_RBUTTONDOWN: {
            LVHITTESTINFO hit{};
            GetCursorPos(&hit.pt);
            ScreenToClient(Handle(), &hit.pt);
            if (ListView_SubItemHitTest(Handle(), &hit) < 0 || hit.iSubItem == 0)
                break;
            cellPressed_(hit.iSubItem);
            return 0;
        }
    }
    return Default(message, wParam, lParam);
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
    const ColumnDrop drop = DropColumn(ColumnOrder(), notification.iItem, newOrder);
    if (drop.order) {
        {
            const RedrawPause pause(Handle());
            SetColumnOrder(*drop.order);
        }
        InvalidateRect(Handle(), nullptr, TRUE);
        UpdateWindow(Handle());
    }
    return drop.allowed;
}

}  // namespace nux
