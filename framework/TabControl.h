#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

namespace nux {

/// A tab control of a dialog, which owns the control. Tabs count from 0.
class TabControl {
public:
    explicit TabControl(HWND control = nullptr) noexcept : control_(control) {}

    HWND Handle() const noexcept { return control_; }

    int Count() const noexcept { return TabCtrl_GetItemCount(control_); }
    void Insert(int tab, const std::string& title) const noexcept { Send(TCM_INSERTITEMA, tab, title); }
    void SetTitle(int tab, const std::string& title) const noexcept { Send(TCM_SETITEMA, tab, title); }
    void Delete(int tab) const noexcept { TabCtrl_DeleteItem(control_, tab); }

    /// -1 for none.
    int Selected() const noexcept { return TabCtrl_GetCurSel(control_); }
    /// Selects a tab without telling the dialog.
    void Select(int tab) const noexcept { TabCtrl_SetCurSel(control_, tab); }
    /// The tab at the pointer, -1 for none.
    int AtPointer() const noexcept {
        TCHITTESTINFO hit{};
        GetCursorPos(&hit.pt);
        ScreenToClient(control_, &hit.pt);
        hit.flags = TCHT_ONITEM;
        return TabCtrl_HitTest(control_, &hit);
    }

private:
    void Send(UINT message, int tab, const std::string& title) const noexcept {
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<char*>(title.c_str());
        SendMessageA(control_, message, tab, reinterpret_cast<LPARAM>(&item));
    }

    HWND control_;
};

}  // namespace nux
