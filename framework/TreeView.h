#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <string>

namespace nux {

/// A tree view of a dialog, which owns the control. Items are known by the control's handles; null stands for
/// none.
class TreeView {
public:
    /// So many bytes of a label are read, one of them for the end: a longer label is cut.
    static constexpr std::size_t labelBuffer = 64;

    explicit TreeView(HWND control = nullptr) noexcept : control_(control) {}

    HWND Handle() const noexcept { return control_; }

    /// Adds an item behind its siblings, with data 0.
    /// @param parent  null for an item of the top level
    /// @return null if the control refuses
    HTREEITEM Insert(const std::string& label, HTREEITEM parent) const noexcept;
    void DeleteAll() const noexcept;

    HTREEITEM Root() const noexcept { return TreeView_GetRoot(control_); }
    HTREEITEM FirstChild(HTREEITEM item) const noexcept { return TreeView_GetChild(control_, item); }
    HTREEITEM NextSibling(HTREEITEM item) const noexcept { return TreeView_GetNextSibling(control_, item); }
    HTREEITEM Parent(HTREEITEM item) const noexcept { return TreeView_GetParent(control_, item); }

    /// The first characters of the label. Throws std::bad_alloc.
    std::string Label(HTREEITEM item) const;
    void SetLabel(HTREEITEM item, const std::string& label) const noexcept;
    /// What SetData stored; 0 for no item.
    LPARAM Data(HTREEITEM item) const noexcept;
    void SetData(HTREEITEM item, LPARAM data) const noexcept;

    HTREEITEM Selected() const noexcept { return TreeView_GetSelection(control_); }
    void Select(HTREEITEM item) const noexcept { TreeView_SelectItem(control_, item); }
    bool IsExpanded(HTREEITEM item) const noexcept;
    void Expand(HTREEITEM item) const noexcept { TreeView_Expand(control_, item, TVE_EXPAND); }
    void BringIntoSight(HTREEITEM item) const noexcept { TreeView_EnsureVisible(control_, item); }

private:
    HWND control_;
};

}  // namespace nux
