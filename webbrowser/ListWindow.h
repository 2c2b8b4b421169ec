#pragma once

#include <windows.h>

#include <unknwn.h>

#include <functional>
#include <optional>
#include <vector>

#include "framework/Window.h"
#include "webbrowser/ListSelection.h"

namespace nux::webbrowser {

/// The list of an element `select`, dropped down over all windows. The keyboard stays where it is: who has it
/// gives the list its keys. The list ends with a choice, with a click elsewhere, or with whatever takes the
/// mouse away.
class ListWindow : private Window {
public:
    /// @param holder  whose part it is, held while the user scrolls
    /// @param ended   told the chosen entry, or -1, when the list has gone by the user's doing
    ListWindow(IUnknown& holder, std::function<void(int entry)> ended)
        : holder_(holder), ended_(std::move(ended)) {}

    /// Shows a list; one that is open goes without a word.
    /// @param owner  who has the keyboard
    /// @param place  screen pixels of what the list belongs to
    /// Throws HResultError.
    void Open(HWND owner, const RECT& place, std::vector<ListEntry> entries, int marked);
    /// Ends it without a word.
    void Close() noexcept;
    bool IsOpen() const noexcept { return Handle() != nullptr; }

    /// WM_KEYDOWN, WM_SYSKEYDOWN, WM_CHAR and the wheel of whoever has the keyboard. Only while it is open.
    void Take(UINT message, WPARAM wParam);

private:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnKey(WPARAM key);
    void OnPress(POINT at);
    void Paint() const;
    void ScrollBy(WORD request);
    void UpdateScrollBar() const noexcept;
    void Refresh() const noexcept;
    /// The entry in a row; -1 beside them.
    int EntryAt(POINT at) const noexcept;
    void End(int entry);

    IUnknown& holder_;
    std::function<void(int)> ended_;
    std::optional<ListSelection> selection_;
    int rowHeight_ = 1;
    POINT opened_{};         ///< where the pointer was, in screen pixels
    bool hasMoved_ = false;  ///< the pointer, since then
    bool isScrolling_ = false;
};

}  // namespace nux::webbrowser
