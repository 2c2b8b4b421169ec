#include "bench/PlainDialog.h"

#include <commctrl.h>

#include <string>

#include "bench/Sizes.h"
#include "bench/TestFiles.h"
#include "dimensions/SizeList.h"
#include "framework/Icons.h"
#include "framework/RedrawPause.h"
#include "framework/Window.h"
#include "resources/resource.h"

namespace nux::bench {
namespace {

class PlainDialog : public Dialog {
public:
    explicit PlainDialog(const std::function<void(HWND list)>& fill) : fill_(fill) {}

private:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_INITDIALOG:
                PrepareList(Item(IDC_SIZES));
                MakeColumns(Item(IDC_SIZES));
                Fill();
                SizeList::SelectRow(Item(IDC_SIZES), 0);
                return TRUE;
            case WM_COMMAND:
                if (LOWORD(wParam) == IDC_ALL_FILTERS_OFF)
                    Fill();
                if (LOWORD(wParam) == IDCANCEL)
                    End(IDCANCEL);
                return 0;
            case WM_NOTIFY:
                // As in the component: without this answer the list tells of each item that goes.
                return reinterpret_cast<const NMHDR*>(lParam)->code == LVN_DELETEALLITEMS
                           ? std::optional<LRESULT>(TRUE)
                           : std::nullopt;
            default:
                return std::nullopt;
        }
    }

    void Fill() {
        const RedrawPause pause(Item(IDC_SIZES));
        fill_(Item(IDC_SIZES));
    }

    const std::function<void(HWND list)>& fill_;
};

}  // namespace

void PrepareList(HWND list) {
    ListView_SetExtendedListViewStyle(list, LVS_EX_SUBITEMIMAGES | LVS_EX_HEADERDRAGDROP |
                                                LVS_EX_FULLROWSELECT | LVS_EX_ONECLICKACTIVATE |
                                                LVS_EX_UNDERLINEHOT | LVS_EX_LABELTIP);
    ListView_SetImageList(list, LoadSmallIcons({IDI_USER_ROW}).Detach(), LVSIL_SMALL);
}

void MakeColumns(HWND list) {
    LVCOLUMNA column{};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
    for (column.iSubItem = 0; column.iSubItem <= SizeFile::dimensions; ++column.iSubItem) {
        std::string caption = column.iSubItem == 0 ? "" : DimensionCaption(column.iSubItem - 1);
        column.fmt = LVCFMT_CENTER;
        column.cx = column.iSubItem == 0 ? 20 : 50;
        column.pszText = caption.data();
        SendMessageA(list, LVM_INSERTCOLUMNA, column.iSubItem, reinterpret_cast<LPARAM>(&column));
    }
}

void RunPlainDialog(HWND parent, const std::function<void(HWND list)>& fill) {
    PlainDialog(fill).RunModal(parent, IDD_CHOOSE_DIMENSIONS);
}

}  // namespace nux::bench
