#pragma once

#include <windows.h>

#include <string>

namespace nux {

/// A combo box of a dialog, which owns the control.
class ComboBox {
public:
    explicit ComboBox(HWND control) noexcept : control_(control) {}

    /// Adds an entry at the end of the list.
    void Add(const std::string& text) const noexcept {
        SendMessageA(control_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    /// Deletes all entries, and the text of the edit field.
    void Clear() const noexcept { SendMessageA(control_, CB_RESETCONTENT, 0, 0); }
    bool IsDropped() const noexcept { return SendMessageA(control_, CB_GETDROPPEDSTATE, 0, 0) != 0; }
    /// The edit field inside.
    HWND EditField() const noexcept { return GetWindow(control_, GW_CHILD); }

private:
    HWND control_;
};

}  // namespace nux
