#include "dimensions/nuxChooseStdDims.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "dimensions/CMenuExImpl.h"
#include "dimensions/Columns.h"
#include "dimensions/DimNumber.h"
#include "dimensions/DimensionKeys.h"
#include "dimensions/QuickFilter.h"
#include "dimensions/nuxDefineDimFilter.h"
#include "dimensions/nuxLVSort.h"
#include "dimensions/nuxQFWindow.h"
#include "environment/Localisation.h"
#include "framework/Icons.h"
#include "framework/RedrawPause.h"
#include "resources/resource.h"

namespace nux {
namespace {

constexpr DWORD listStyle = LVS_EX_SUBITEMIMAGES | LVS_EX_HEADERDRAGDROP | LVS_EX_FULLROWSELECT |
                            LVS_EX_ONECLICKACTIVATE | LVS_EX_UNDERLINEHOT | LVS_EX_LABELTIP;

/// Image of a column with an active filter in the list of the header.
constexpr int filterHeaderImage = 0;

/// The buttons that move with the window's corner, in the order of DialogLayout.
constexpr std::array<int, DialogLayout::buttonCount> buttons{IDC_ALL_FILTERS_OFF, IDOK, IDCANCEL};

PixelRectangle ToPixels(const RECT& rectangle) noexcept {
    return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

PixelRectangle WindowRectangle(HWND window) noexcept {
    RECT rectangle{};
    GetWindowRect(window, &rectangle);
    return ToPixels(rectangle);
}

}  // namespace

nuxChooseStdDims::nuxChooseStdDims(const std::string& catalogId, const std::string& componentId,
                                   IXMLDOMNodeList* names, IXMLDOMNode* defaults, IXMLDOMNodeList* stdRows,
                                   IXMLDOMNodeList* usrRows)
    : table_(catalogId, names, stdRows, usrRows),
      defaults_(defaults),
      settings_(catalogId, componentId),
      listEvents_([this](int column) { ShowQuickFilter(column); }) {}

INT_PTR nuxChooseStdDims::Run(HWND parent) {
    const INT_PTR code = RunModal(parent, IDD_CHOOSE_DIMENSIONS);
    listEvents_.RethrowFailure();
    return code;
}

std::optional<LRESULT> nuxChooseStdDims::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog();
            return TRUE;
        case WM_GETMINMAXINFO:
            if (!layout_)
                return std::nullopt;
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {layout_->MinimumSize().width,
                                                                     layout_->MinimumSize().height};
            return 0;
        case WM_WINDOWPOSCHANGING:
            if (!layout_)
                return std::nullopt;
            OnPosChanging(*reinterpret_cast<WINDOWPOS*>(lParam));
            return 0;
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
            return std::nullopt;
    }
}

std::optional<LRESULT> nuxChooseStdDims::OnNotify(const NMHDR& notification) {
    if (notification.idFrom != IDC_SIZES)
        return std::nullopt;
    switch (notification.code) {
        case LVN_COLUMNCLICK:
            ShowColumnMenu(reinterpret_cast<const NMLISTVIEW&>(notification).iSubItem);
            return 0;
        case NM_DBLCLK:  // wherever it fell: the selected row is taken
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
    list_ = Item(IDC_SIZES);
    ListView_SetExtendedListViewStyle(list_, listStyle);
    // The list destroys its image list itself, the header does not.
    ListView_SetImageList(list_, LoadSmallIcons({IDI_USER_ROW}).Detach(), LVSIL_SMALL);
    const HWND header = ListView_GetHeader(list_);
    SetWindowLongPtrA(header, GWL_STYLE, GetWindowLongPtrA(header, GWL_STYLE) | HDS_HOTTRACK);
    headerImages_ = LoadSmallIcons({IDI_FILTER, IDI_USER_ROW});
    Header_SetImageList(header, headerImages_.Get());
    layout_ = MeasureLayout();
    icon_ = LoadSmallIcon(IDI_DIMENSION_CHOOSER);
    SendMessageA(Handle(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon_.Get()));

    table_.InitColumns(list_);
    listEvents_.Attach(list_);
    LoadFilters();
    {
        const RedrawPause pause(list_);
        table_.FillRows();
    }
    for (int column = 1; column < table_.ColumnCount(); ++column)
        SetColumnFormat(column);
    LoadLayout();
    SelectDefaultRow();
}

void nuxChooseStdDims::OnDestroy() {
    if (!layout_)
        return;  // the start failed
    SaveFilters();
    SaveLayout();
    table_.ReleaseRows();
}

void nuxChooseStdDims::TakeSelectedRow() {
    const int item = ListView_GetNextItem(list_, -1, LVNI_SELECTED);
    if (item < 0)
        return;
    LVITEMA selected{};
    selected.mask = LVIF_PARAM;
    selected.iItem = item;
    if (SendMessageA(list_, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&selected)))
        chosen_ = ComPtr<IXMLDOMNode>(reinterpret_cast<IXMLDOMNode*>(selected.lParam));
}

void nuxChooseStdDims::SelectDefaultRow() {
    if (table_.Rows().Count() > 0)
        SizeList::SelectRow(list_, DefaultRow());
}

int nuxChooseStdDims::DefaultRow() const {
    if (!defaults_)
        return 0;
    std::vector<std::string> wanted;
    for (int column = 1; column < table_.ColumnCount(); ++column) {
        CellText text;
        ReadChildElement(defaults_.Get(), table_.At(column).name, &text);
        wanted.emplace_back(text.View());
    }
    const DimensionRows& rows = table_.Rows();
    const auto matches = [&](std::size_t row) {
        for (std::size_t dimension = 0; dimension < wanted.size(); ++dimension) {
            if (!wanted[dimension].empty() && wanted[dimension] != rows.Cell(row, dimension))
                return false;
        }
        return true;
    };
    for (std::size_t row = 0; row < rows.Count(); ++row) {
        if (matches(row))
            return static_cast<int>(row);
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
    const PixelPoint initial = layout_->InitialPosition();
    const PixelSize aboveMinimum{
        settings_.Number(DialogValues::widthAboveMinimum, DialogValues::defaultAboveMinimum),
        settings_.Number(DialogValues::heightAboveMinimum, DialogValues::defaultAboveMinimum)};
    const PixelSize size = layout_->WindowSize(aboveMinimum);
    // The window goes where it stood last, also if no screen is there any more.
    MoveWindow(Handle(), settings_.Number(DialogValues::left, initial.x),
               settings_.Number(DialogValues::top, initial.y), size.width, size.height, FALSE);

    std::vector<StoredColumn> stored;
    stored.push_back({true, 0});
    ListView_SetColumnWidth(list_, 0, ColumnValues::markerWidth);
    for (int column = 1; column < table_.ColumnCount(); ++column) {
        const std::string& caption = table_.At(column).caption;
        stored.push_back({caption.empty(),
                          settings_.ColumnNumber(caption, ColumnValues::order, ColumnValues::defaultOrder)});
        ListView_SetColumnWidth(list_, column,
                                caption.empty() ? ColumnValues::markerWidth
                                                : settings_.ColumnNumber(caption, ColumnValues::width,
                                                                         ColumnValues::defaultWidth));
    }
    if (const auto order = StoredColumnOrder(stored))
        SizeList::SetColumnOrder(list_, *order);
}

void nuxChooseStdDims::SaveLayout() {
    const PixelRectangle window = WindowRectangle(Handle());
    const PixelSize aboveMinimum =
        layout_->AboveMinimum({window.right - window.left, window.bottom - window.top});
    settings_.SetNumber(DialogValues::left, window.left);
    settings_.SetNumber(DialogValues::top, window.top);
    settings_.SetNumber(DialogValues::widthAboveMinimum, aboveMinimum.width);
    settings_.SetNumber(DialogValues::heightAboveMinimum, aboveMinimum.height);

    // Of columns with equal captions the last one counts, wherever it stands: columns go by their index here.
    const std::vector<int> order = SizeList::ColumnOrder(list_);
    for (int column = 1; column < table_.ColumnCount(); ++column) {
        const auto position = std::find(order.begin(), order.end(), column) - order.begin();
        const std::string& caption = table_.At(column).caption;
        settings_.SetColumnNumber(caption, ColumnValues::width, ListView_GetColumnWidth(list_, column));
        settings_.SetColumnNumber(caption, ColumnValues::order, static_cast<int>(position));
    }
}

DialogLayout nuxChooseStdDims::MeasureLayout() const {
    DialogLayout::Buttons places{};
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const PixelRectangle button = WindowRectangle(Item(buttons[i]));
        POINT place{button.left, button.top};
        ScreenToClient(Handle(), &place);
        places[i] = {place.x, place.y};
    }
    return DialogLayout(WindowRectangle(Handle()), WindowRectangle(list_), places);
}

void nuxChooseStdDims::OnPosChanging(WINDOWPOS& position) {
    if (!(position.flags & SWP_NOSIZE)) {
        const PixelSize raised = layout_->RaisedToMinimum({position.cx, position.cy});
        position.cx = raised.width;
        position.cy = raised.height;
    }
    // The system has the last word on the size that the controls are placed for.
    DefWindowProcA(Handle(), WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&position));
    if (!(position.flags & SWP_NOSIZE))
        RepositionControls({position.cx, position.cy});
}

void nuxChooseStdDims::RepositionControls(PixelSize window) {
    const DialogLayout::Placement placement = layout_->PlaceControls(window);
    SetWindowPos(list_, nullptr, 0, 0, placement.list.width, placement.list.height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    InvalidateRect(ListView_GetHeader(list_), nullptr, TRUE);  // its old right edge would stay
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const HWND button = Item(buttons[i]);
        SetWindowPos(button, nullptr, placement.buttons[i].x, placement.buttons[i].y, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        InvalidateRect(button, nullptr, TRUE);
    }
}

void nuxChooseStdDims::ApplyColumnFilter(int column, const nuxDimFilter& filter, SortMode sortMode) {
    table_.SetFilter(column, filter);
    {
        const RedrawPause pause(list_);
        table_.FillRows();
        if (sortMode != SortModeNone)
            Sort(column, true, sortMode == SortModeAscending);
    }
    SetColumnFormat(column);
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
        SetColumnFormat(column);
        changed = true;
    }
    if (changed) {
        const RedrawPause pause(list_);
        table_.FillRows();
    }
    EnableAllFiltersOff(false);
}

void nuxChooseStdDims::SetColumnFormat(int column) {
    const Dimension& dimension = table_.At(column);
    SizeList::SetColumnFormat(
        list_, column, dimension.filter.IsInactive() ? std::nullopt : std::optional<int>(filterHeaderImage),
        dimension.numeric);
}

void nuxChooseStdDims::EnableAllFiltersOff(bool enable) {
    const HWND button = Item(IDC_ALL_FILTERS_OFF);
    // A disabled button that keeps the focus would keep the keyboard from the dialog.
    if (!enable && GetFocus() == button)
        SendMessageA(Handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(list_), TRUE);
    EnableWindow(button, enable);
}

void nuxChooseStdDims::Sort(int column, bool numeric, bool ascending) {
    nuxLVSort(list_, table_.Rows(), static_cast<unsigned>(column), numeric).Sort(ascending);
}

void nuxChooseStdDims::ShowColumnMenu(int column) {
    if (!table_.IsDimension(column))
        return;
    CMenuExImpl menu(LoadSmallIcons({IDI_FILTER, IDI_FILTER_OFF, IDI_SORT_ASCENDING, IDI_SORT_DESCENDING}));
    for (const ColumnMenuItem& item :
         ColumnMenu(table_.At(column).numeric, !table_.At(column).filter.IsInactive())) {
        if (item.text)
            menu.AppendItem(static_cast<UINT>(item.command), GetLocalizedMessage("", item.text), item.image,
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
