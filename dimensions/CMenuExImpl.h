#pragma once

#include <windows.h>

#include <string>

#include "framework/Handles.h"
#include "framework/SubclassedWindow.h"

namespace nux {

/// A popup menu with a picture of 16 by 16 pixels beside some of its items. The system draws the items
/// themselves, so that they look and read like those of any menu; only the pictures are drawn here.
class CMenuExImpl : private SubclassedWindow {
public:
    /// @param images  the pictures; without one the menu has texts only
    /// Throws HResultError if the platform refuses.
    explicit CMenuExImpl(UniqueImageList images);

    /// Adds an item at the end.
    /// @param image  index of its picture, negative for none
    void AppendItem(UINT command, const std::string& text, int image, bool enabled);
    void AppendSeparator();

    /// Opens the menu at the pointer and returns when it is closed.
    /// @param owner  window of this thread that owns the menu
    /// @return the command that was chosen, 0 for none
    UINT TrackAtPointer(HWND owner);

private:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void Append(const MENUITEMINFOA& item);
    void Draw(const DRAWITEMSTRUCT& item) const noexcept;

    UniqueImageList images_;
    UniqueMenu menu_;
};

}  // namespace nux
