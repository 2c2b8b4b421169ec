#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "framework/Handles.h"

namespace nux {

/// A popup menu with a picture of 16 by 16 pixels beside some of its items. The system draws it, so that it
/// looks and reads like any other menu. Pictures bring their transparency along: on Windows, a menu that
/// calls back for one of its pictures loses its visual style.
class CMenuExImpl {
public:
    /// Throws HResultError if the platform refuses.
    CMenuExImpl();

    /// Adds an item at the end. An item that is not enabled has a pale picture.
    /// @param icon  resource of its picture, 0 for none; the item does without one that is missing
    void AppendItem(UINT command, const std::string& text, UINT icon, bool enabled);
    void AppendSeparator();

    /// Opens the menu at the pointer and returns when it is closed.
    /// @param owner  window of this thread that owns the menu
    /// @return the command that was chosen, 0 for none
    UINT TrackAtPointer(HWND owner) const;

private:
    void Append(const MENUITEMINFOA& item);

    std::vector<UniqueBitmap> pictures_;  ///< a menu doesn't own those of its items
    UniqueMenu menu_;
};

}  // namespace nux
