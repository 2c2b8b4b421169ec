#include "dimensions/CMenuExImpl.h"

#include <utility>

#include "framework/HResult.h"
#include "framework/Icons.h"

namespace nux {
namespace {

// Blank pixels around a picture.
constexpr int pictureMargin = 2;
constexpr int textDistance = 6;

}  // namespace

CMenuExImpl::CMenuExImpl(UniqueImageList images)
    : SubclassedWindow(nullptr), images_(std::move(images)), menu_(CreatePopupMenu()) {
    if (!menu_)
        throw HResultError(E_OUTOFMEMORY);
    MENUINFO info{};
    info.cbSize = sizeof info;
    info.fMask = MIM_STYLE;
    info.dwStyle = MNS_NOCHECK;  // no item of it is ever checked
    SetMenuInfo(menu_.Get(), &info);
}

void CMenuExImpl::AppendItem(UINT command, const std::string& text, int image, bool enabled) {
    MENUITEMINFOA item{};
    item.fMask = MIIM_ID | MIIM_STRING | MIIM_STATE;
    item.wID = command;
    item.dwTypeData = const_cast<char*>(text.c_str());
    item.fState = enabled ? MFS_ENABLED : MFS_GRAYED;
    if (image >= 0 && images_) {
        item.fMask |= MIIM_BITMAP | MIIM_DATA;
        item.hbmpItem = HBMMENU_CALLBACK;
        item.dwItemData = static_cast<ULONG_PTR>(image);
    }
    Append(item);
}

void CMenuExImpl::AppendSeparator() {
    MENUITEMINFOA item{};
    item.fMask = MIIM_FTYPE;
    item.fType = MFT_SEPARATOR;
    Append(item);
}

void CMenuExImpl::Append(const MENUITEMINFOA& item) {
    MENUITEMINFOA sized = item;
    sized.cbSize = sizeof sized;
    if (!InsertMenuItemA(menu_.Get(), GetMenuItemCount(menu_.Get()), TRUE, &sized))
        throw HResultError(E_OUTOFMEMORY);
}

UINT CMenuExImpl::TrackAtPointer(HWND owner) {
    POINT pointer{};
    GetCursorPos(&pointer);
    Attach(owner);
    const BOOL command =
        TrackPopupMenu(menu_.Get(), TPM_RETURNCMD | TPM_NONOTIFY, pointer.x, pointer.y, 0, owner, nullptr);
    Detach();
    return static_cast<UINT>(command);
}

LRESULT CMenuExImpl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_MEASUREITEM) {
        auto& item = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
        if (item.CtlType == ODT_MENU) {
            item.itemWidth = pictureMargin + smallIconSize + textDistance;
            item.itemHeight = smallIconSize + 2 * pictureMargin;
            return TRUE;
        }
    } else if (message == WM_DRAWITEM) {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (item.CtlType == ODT_MENU) {
            Draw(item);
            return TRUE;
        }
    }
    return Default(message, wParam, lParam);
}

void CMenuExImpl::Draw(const DRAWITEMSTRUCT& item) const noexcept {
    const int x = item.rcItem.left + pictureMargin;
    const int y = (item.rcItem.top + item.rcItem.bottom - smallIconSize) / 2;
    // The picture of a greyed item is mixed with the menu's colour, as pale as its text.
    const bool greyed = (item.itemState & (ODS_GRAYED | ODS_DISABLED)) != 0;
    ImageList_DrawEx(images_.Get(), static_cast<int>(item.itemData), item.hDC, x, y, smallIconSize,
                     smallIconSize, CLR_NONE, GetSysColor(COLOR_MENU),
                     greyed ? ILD_TRANSPARENT | ILD_BLEND50 : ILD_TRANSPARENT);
}

}  // namespace nux
