#include "dimensions/CMenuExImpl.h"

#include <optional>
#include <utility>

#include "framework/HResult.h"
#include "framework/Icons.h"
#include "framework/SubclassedWindow.h"

namespace nux {
namespace {

/// Whether menus heed the transparency of their pictures. Wine 8.0 draws black in its place, and inverts the
/// picture of the marked item (ColumnMenuWindow.ShowsAnImageBesideEachAction).
bool MenusKnowTransparency() noexcept {
    return !GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version");
}

/// The owner of an open menu on Wine, which draws the pictures itself.
class PictureDrawer : public SubclassedWindow {
public:
    explicit PictureDrawer(HWND owner) : SubclassedWindow(nullptr) { Attach(owner); }

private:
    // Blank pixels around a picture, and between it and the text.
    static constexpr int margin = 2;
    static constexpr int textDistance = 6;

    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_MEASUREITEM) {
            auto& item = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
            if (item.CtlType == ODT_MENU) {
                item.itemWidth = margin + smallIconSize + textDistance;
                item.itemHeight = smallIconSize + 2 * margin;
                return TRUE;
            }
        } else if (message == WM_DRAWITEM) {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            if (item.CtlType == ODT_MENU) {
                DrawMenuPicture(reinterpret_cast<HBITMAP>(item.itemData), item.hDC, item.rcItem.left + margin,
                                (item.rcItem.top + item.rcItem.bottom - smallIconSize) / 2);
                return TRUE;
            }
        }
        return Default(message, wParam, lParam);
    }
};

}  // namespace

CMenuExImpl::CMenuExImpl() : menu_(CreatePopupMenu()) {
    if (!menu_)
        throw HResultError(E_OUTOFMEMORY);
    MENUINFO info{};
    info.cbSize = sizeof info;
    info.fMask = MIM_STYLE;
    info.dwStyle = MNS_NOCHECK;  // no item of it is ever checked
    SetMenuInfo(menu_.Get(), &info);
}

void CMenuExImpl::AppendItem(UINT command, const std::string& text, UINT icon, bool enabled) {
    MENUITEMINFOA item{};
    item.fMask = MIIM_ID | MIIM_STRING | MIIM_STATE;
    item.wID = command;
    item.dwTypeData = const_cast<char*>(text.c_str());
    item.fState = enabled ? MFS_ENABLED : MFS_GRAYED;
    if (UniqueBitmap picture = icon ? LoadMenuPicture(icon, !enabled) : UniqueBitmap()) {
        item.fMask |= MIIM_BITMAP | MIIM_DATA;
        item.hbmpItem = MenusKnowTransparency() ? picture.Get() : HBMMENU_CALLBACK;
        item.dwItemData = reinterpret_cast<ULONG_PTR>(picture.Get());
        pictures_.push_back(std::move(picture));
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

UINT CMenuExImpl::TrackAtPointer(HWND owner) const {
    std::optional<PictureDrawer> drawer;
    if (!MenusKnowTransparency())
        drawer.emplace(owner);
    POINT pointer{};
    GetCursorPos(&pointer);
    return static_cast<UINT>(
        TrackPopupMenu(menu_.Get(), TPM_RETURNCMD | TPM_NONOTIFY, pointer.x, pointer.y, 0, owner, nullptr));
}

}  // namespace nux
