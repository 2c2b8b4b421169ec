#include "framework/TreeView.h"

namespace nux {

HTREEITEM TreeView::Insert(const std::string& label, HTREEITEM parent) const noexcept {
    TVINSERTSTRUCTA insertion{};
    insertion.hParent = parent;
    insertion.hInsertAfter = parent ? TVI_LAST : TVI_ROOT;
    insertion.item.mask = TVIF_TEXT;
    insertion.item.pszText = const_cast<char*>(label.c_str());
    return reinterpret_cast<HTREEITEM>(
        SendMessageA(control_, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insertion)));
}

void TreeView::DeleteAll() const noexcept {
    SendMessageA(control_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
}

std::string TreeView::Label(HTREEITEM item) const {
    char text[labelBuffer] = "";
    TVITEMA asked{};
    asked.mask = TVIF_TEXT;
    asked.hItem = item;
    asked.pszText = text;
    asked.cchTextMax = sizeof text;
    SendMessageA(control_, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&asked));
    text[labelBuffer - 1] =
        '\0';  // Wine 8.0 doesn't end a label that it cuts (TreeViewTest.LabelsAreReadUpTo63Bytes)
    return text;
}

void TreeView::SetLabel(HTREEITEM item, const std::string& label) const noexcept {
    TVITEMA changed{};
    changed.mask = TVIF_TEXT;
    changed.hItem = item;
    changed.pszText = const_cast<char*>(label.c_str());
    SendMessageA(control_, TVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&changed));
}

LPARAM TreeView::Data(HTREEITEM item) const noexcept {
    TVITEMA asked{};
    asked.mask = TVIF_PARAM;
    asked.hItem = item;
    return item && SendMessageA(control_, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&asked)) ? asked.lParam
                                                                                             : 0;
}

void TreeView::SetData(HTREEITEM item, LPARAM data) const noexcept {
    TVITEMA changed{};
    changed.mask = TVIF_PARAM;
    changed.hItem = item;
    changed.lParam = data;
    SendMessageA(control_, TVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&changed));
}

bool TreeView::IsExpanded(HTREEITEM item) const noexcept {
    return (SendMessageA(control_, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), TVIS_EXPANDED) &
            TVIS_EXPANDED) != 0;
}

}  // namespace nux
