#include "driver/PopupMenu.h"

#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/PointerInput.h"
#include "driver/Waiting.h"

namespace driver {
namespace {

MENUITEMINFOA ItemInfo(HMENU menu, int position, UINT mask, char* text = nullptr, UINT capacity = 0) {
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = mask;
    info.dwTypeData = text;
    info.cch = capacity;
    GetMenuItemInfoA(menu, position, TRUE, &info);
    return info;
}

}  // namespace

PopupMenu::PopupMenu(const Application& application)
    : window_(application.MenuWindow()), menu_(reinterpret_cast<HMENU>(Ask(window_, MN_GETHMENU))) {}

int PopupMenu::Count() const {
    return GetMenuItemCount(menu_);
}

bool PopupMenu::IsSeparator(int position) const {
    return ItemInfo(menu_, position, MIIM_FTYPE).fType & MFT_SEPARATOR;
}

bool PopupMenu::IsEnabled(int position) const {
    return !(ItemInfo(menu_, position, MIIM_STATE).fState & MFS_DISABLED);
}

std::string PopupMenu::Text(int position) const {
    char text[256] = "";
    ItemInfo(menu_, position, MIIM_STRING, text, sizeof text);
    return text;
}

UINT PopupMenu::Command(int position) const {
    return ItemInfo(menu_, position, MIIM_ID).wID;
}

RECT PopupMenu::Bounds(int position) const {
    RECT bounds{};
    if (!GetMenuItemRect(nullptr, menu_, position, &bounds))
        throw NotSeen("the place of a menu item");
    return bounds;
}

void PopupMenu::Highlight(int position) const {
    const RECT bounds = Bounds(position);
    MovePointer({(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2});
    WaitFor("a marked menu item",
            [&] { return (ItemInfo(menu_, position, MIIM_STATE).fState & MFS_HILITE) != 0; });
}

void PopupMenu::Choose(int position) const {
    if (!IsEnabled(position))
        throw NotSeen("a menu item that can be taken");
    Highlight(position);
    PressPointer(PointerButton::Left);
    ReleasePointer(PointerButton::Left);
    WaitUntilGone(window_);
}

void PopupMenu::Escape() const {
    PressKey(window_, VK_ESCAPE);
    WaitUntilGone(window_);
}

}  // namespace driver
