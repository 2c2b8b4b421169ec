#include "tests/driver/PopupMenu.h"

#include "tests/driver/Input.h"
#include "tests/driver/Messages.h"
#include "tests/driver/Waiting.h"

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
    const auto highlighted = [&](int at) {
        return (ItemInfo(menu_, at, MIIM_STATE).fState & MFS_HILITE) != 0;
    };
    const auto current = [&] {
        for (int at = 0; at < Count(); ++at)
            if (highlighted(at))
                return at;
        return -1;
    };
    while (!highlighted(position)) {
        const int before = current();
        PressKey(window_, VK_DOWN);
        WaitFor("a highlight that moves", [&] { return current() != before; });
    }
}

void PopupMenu::Choose(int position) const {
    if (!IsEnabled(position))
        throw NotSeen("a menu item that can be taken");
    Highlight(position);
    PressKey(window_, VK_RETURN);
    WaitUntilGone(window_);
}

void PopupMenu::Escape() const {
    PressKey(window_, VK_ESCAPE);
    WaitUntilGone(window_);
}

}  // namespace driver
