#include "dimensions/nuxChooseStdDims.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "dimensions/CMenuExImpl.h"
#include "dimensions/CellText.h"
#include "dimensions/Columns.h"
#include "dimensions/DimNumber.h"
#include "dimensions/DimensionKeys.h"
#include "dimensions/QuickFilter.h"
#include "dimensions/nuxDefineDimFilter.h"
#include "dimensions/nuxLVSort.h"
#include "dimensions/nuxQFWindow.h"
#include "environment/Environment.h"
#include "environment/Localisation.h"
#include "environment/XMLAccess.h"
#include "framework/RedrawPause.h"
#include "resources/resource.h"

namespace nux {
namespace {

constexpr DWORD listStyle = LVS_EX_SUBITEMIMAGES | LVS_EX_HEADERDRAGDROP | LVS_EX_FULLROWSELECT |
                            LVS_EX_ONECLICKACTIVATE | LVS_EX_UNDERLINEHOT | LVS_EX_LABELTIP;

}  // namespace

nuxChooseStdDims::nuxChooseStdDims(const std::string& catalogId, const std::string& componentId,
                                   IXMLDOMNodeList* names, IXMLDOMNode* defaults, IXMLDOMNodeList* stdRows,
                                   IXMLDOMNodeList* usrRows)
    : table_(catalogId, names, stdRows, usrRows),
      defaults_(defaults),
      settings_(catalogId, componentId),
      list_(this, [this](int column) { ShowQuickFilter(column); }) {}

INT_PTR nuxChooseStdDims::Run(HWND parent) {
    return RunModal(parent, IDD_CHOOSE_DIMENSIONS);
}

std::optional<LRESULT> nuxChooseStdDims::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog();
            return TRUE;
        case WM_DESTROY:
            OnDestroy();
            return std::nullopt;
        case WM_COMMAND:
            switch (LOWORD(wParam)) {
                case IDC_ALL_FILTERS_OFF:
                    TurnOffAllFilters();
                    return 0;
                case IDOK:
                    TakeSelectedRow();
                    End(IDOK);
                    return 0;
                case IDCANCEL:
                    End(IDCANCEL);
                    return 0;
            }
            return std::nullopt;
        case WM_NOTIFY:
            return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
        default:
            return ResizableDialog::OnMessage(message, wParam, lParam);
    }
}

std::optional<LRESULT> nuxChooseStdDims::OnNotify(const NMHDR& notification) {
    if (notification.idFrom != IDC_SIZES)
        return std::nullopt;
    switch (notification.code) {
        case LVN_COLUMNCLICK:
            ShowColumnMenu(reinterpret_cast<const NMLISTVIEW&>(notification).iSubItem);
            return 0;
        case NM_DBLCLK:
            // Wherever it fell: the selected row is taken. The first click of one that falls beside the rows
            // has left none.
            TakeSelectedRow();
            End(IDOK);
            return 0;
        case LVN_DELETEALLITEMS:
            return TRUE;  // the references belong to the table: no need to be told of each item
        default:
            return std::nullopt;
    }
}

void nuxChooseStdDims::OnInitDialog() {
    list_.Attach(Item(IDC_SIZES));
    list_.SetExtendedStyle(listStyle);
    const HWND header = list_.Header();
    SetWindowLongPtrA(header, GWL_STYLE, GetWindowLongPtrA(header, GWL_STYLE) | HDS_HOTTRACK);
    StartLayout({{list_.Handle(), growsWide | growsTall},
                 {Item(IDC_ALL_FILTERS_OFF), movesRight | movesDown},
                 {Item(IDOK), movesRight | movesDown},
                 {Item(IDCANCEL), movesRight | movesDown}});
    SetIcon(IDI_DIMENSION_CHOOSER);

    table_.InitColumns(list_);
    LoadFilters();
    {
        const RedrawPause pause(list_.Handle());
        table_.FillRows();
    }
    for (int column = 1; column < table_.ColumnCount(); ++column)
        table_.ShowFormat(column);
    LoadLayout();
    SelectDefaultRow();
}

void nuxChooseStdDims::OnDestroy() {
    if (!IsLaidOut())
        return;  // the start failed
    SaveFilters();
    SaveLayout();
    table_.ReleaseRows();
}

void nuxChooseStdDims::TakeSelectedRow() {
    const int row = list_.SelectedRow();
    if (row >= 0)
        chosen_ = table_.Rows().Find(list_.RowData(row));
}

void nuxChooseStdDims::SelectDefaultRow() {
    if (table_.Rows().Count() > 0)
        list_.SelectRow(DefaultRow());
}

int nuxChooseStdDims::DefaultRow() const {
    if (!defaults_)
        return 0;
    std::vector<std::string> wanted;
    for (int column = 1; column < table_.ColumnCount(); ++column) {
        Variant value;
        ReadChildElement(defaults_.Get(), table_.At(column).name.View(), value);
        CellText text;
        text.Assign(value);
        wanted.emplace_back(text.View());
    }
    const DimensionRows& rows = table_.Rows();
    const auto matches = [&](int row) {
        for (int column = 1; column < table_.ColumnCount(); ++column) {
            const std::string& text = wanted[DimensionOf(column)];
            if (!text.empty() && text != rows.Cell(row, column))
                return false;
        }
        return true;
    };
    for (int row = 0; row < rows.Count(); ++row) {
        if (matches(row))
            return row;
    }
    return 0;
}

void nuxChooseStdDims::LoadFilters() {
    for (int column = 1; column < table_.ColumnCount(); ++column) {
        table_.SetFilter(column, settings_.Filter(table_.At(column).caption));
        if (!table_.At(column).filter.IsInactive())
            EnableAllFiltersOff(true);
    }
}

void nuxChooseStdDims::SaveFilters() {
    for (int column = 1; column < table_.ColumnCount(); ++column)
        settings_.SetFilter(table_.At(column).caption, table_.At(column).filter);
}

void nuxChooseStdDims::LoadLayout() {
    SetFrame(settings_.Frame(InitialFrame()));

    std::vector<StoredColumn> stored;
    stored.push_back({true, 0});
    list_.SetColumnWidth(0, ColumnValues::markerWidth);
    for (int column = 1; column < table_.ColumnCount(); ++column) {
        const std::string& caption = table_.At(column).caption;
        stored.push_back({caption.empty(),
                          settings_.ColumnNumber(caption, ColumnValues::order, ColumnValues::defaultOrder)});
        list_.SetColumnWidth(column, caption.empty() ? ColumnValues::markerWidth
                                                     : settings_.ColumnNumber(caption, ColumnValues::width,
                                                                              ColumnValues::defaultWidth));
    }
    if (const auto order = StoredColumnOrder(stored))
        list_.SetColumnOrder(*order);
}

void nuxChooseStdDims::SaveLayout() {
    settings_.SetFrame(Frame());

    // Of columns with equal captions the last one counts, wherever it stands: columns go by their index here.
    const std::vector<int> order = list_.ColumnOrder();
    for (int column = 1; column < table_.ColumnCount(); ++column) {
        const auto position = std::find(order.begin(), order.end(), column) - order.begin();
        const std::string& caption = table_.At(column).caption;
        settings_.SetColumnNumber(caption, ColumnValues::width, list_.ColumnWidth(column));
        settings_.SetColumnNumber(caption, ColumnValues::order, static_cast<int>(position));
    }
}

void nuxChooseStdDims::OnControlsPlaced() {
    InvalidateRect(list_.Header(), nullptr, TRUE);  // its old right edge would stay
}

void nuxChooseStdDims::ApplyColumnFilter(int column, const nuxDimFilter& filter, SortMode sortMode) {
    table_.SetFilter(column, filter);
    {
        const RedrawPause pause(list_.Handle());
        table_.FillRows();
        if (sortMode != SortModeNone)
            Sort(column, true, sortMode == SortModeAscending);
    }
    table_.ShowFormat(column);
    if (!filter.IsInactive())
        EnableAllFiltersOff(true);
    else if (table_.AllFiltersInactive())
        EnableAllFiltersOff(false);
}

void nuxChooseStdDims::TurnOffAllFilters() {
    bool changed = false;
    for (int column = 1; column < table_.ColumnCount(); ++column) {
        nuxDimFilter filter = table_.At(column).filter;
        if (filter.IsInactive())
            continue;
        filter.SetNumber(FilterNone, 0.0, 0.0, DatabaseBoth);
        table_.SetFilter(column, filter);
        table_.ShowFormat(column);
        changed = true;
    }
    if (changed) {
        const RedrawPause pause(list_.Handle());
        table_.FillRows();
    }
    EnableAllFiltersOff(false);
}

void nuxChooseStdDims::EnableAllFiltersOff(bool enable) {
    const HWND button = Item(IDC_ALL_FILTERS_OFF);
    // A disabled button that keeps the focus would keep the keyboard from the dialog.
    if (!enable && GetFocus() == button)
        SendMessageA(Handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(list_.Handle()), TRUE);
    EnableWindow(button, enable);
}

void nuxChooseStdDims::Sort(int column, bool numeric, bool ascending) {
    nuxLVSort(list_, table_.Rows(), column, numeric).Sort(ascending);
}

void nuxChooseStdDims::ShowColumnMenu(int column) {
    if (!table_.IsDimension(column))
        return;
    CMenuExImpl menu;
    for (const ColumnMenuItem& item :
         ColumnMenu(table_.At(column).numeric, !table_.At(column).filter.IsInactive())) {
        if (item.text)
            menu.AppendItem(static_cast<UINT>(item.command), GetLocalizedMessage("", item.text), item.icon,
                            item.enabled);
        else
            menu.AppendSeparator();
    }
    switch (static_cast<ColumnCommand>(menu.TrackAtPointer(Handle()))) {
        case ColumnCommand::Cancel:
            break;
        case ColumnCommand::DefineFilter:
            DefineFilter(column);
            break;
        case ColumnCommand::TurnOffFilter: {
            nuxDimFilter filter = table_.At(column).filter;
            filter.SetNumber(FilterNone, 0.0, 0.0, DatabaseBoth);
            ApplyColumnFilter(column, filter, SortModeNone);
            break;
        }
        case ColumnCommand::SortAscending:
            Sort(column, table_.At(column).numeric, true);
            break;
        case ColumnCommand::SortDescending:
            Sort(column, table_.At(column).numeric, false);
            break;
    }
}

void nuxChooseStdDims::DefineFilter(int column) {
    nuxDefineDimFilter dialog(table_.At(column).filter, table_.CollectNumericValues(column));
    if (dialog.Run(GetActiveWindow()) == IDOK)
        ApplyColumnFilter(column, dialog.Filter(), dialog.Sort());
}

void nuxChooseStdDims::ShowQuickFilter(int column) {
    if (!table_.IsDimension(column))
        return;
    if (table_.At(column).numeric) {
        const std::vector<double> numbers = table_.CollectNumericValues(column);
        std::vector<std::string> texts;
        texts.reserve(numbers.size());
        for (const double number : numbers)
            texts.push_back(FormatDimNumber(number, DecimalSeparator()));
        const int row = nuxQFWindow(std::move(texts)).RunQuickFilter(Handle());
        if (row >= 0)
            ApplyColumnFilter(column, FilterOfChosenNumber(row, numbers), SortModeNone);
    } else {
        const std::vector<std::string> texts = table_.CollectTextValues(column);
        const int row = nuxQFWindow(texts).RunQuickFilter(Handle());
        if (row >= 0)
            ApplyColumnFilter(column, FilterOfChosenText(row, texts), SortModeNone);
    }
}

}  // namespace nux
