#pragma once

#include <windows.h>

#include <msxml2.h>

#include <optional>
#include <string>

#include "dimensions/DimensionSettings.h"
#include "dimensions/DimensionTable.h"
#include "dimensions/FilterFields.h"
#include "dimensions/SizeList.h"
#include "framework/ComPtr.h"
#include "framework/ResizableDialog.h"

namespace nux {

/// The modal dialog in which the user picks one size of a component, from the rows of its standard and of its
/// user's dimension file. Filters, columns and the window's place are kept in the registry for the next
/// opening, also after Cancel. One run per object.
class nuxChooseStdDims : private ResizableDialog {
public:
    /// @param catalogId    catalogue whose messages translate the texts; with componentId the name of the
    ///                     registry key, neither may be empty
    /// @param names        one node for each dimension: its name is that of the attribute in the rows, its
    ///                     text the caption
    /// @param defaults     child elements of the dimensions' names hold the texts of the row to select; may
    ///                     be null
    /// @param stdRows      rows of the standard source, may be null
    /// @param usrRows      rows of the user's source, may be null
    nuxChooseStdDims(const std::string& catalogId, const std::string& componentId, IXMLDOMNodeList* names,
                     IXMLDOMNode* defaults, IXMLDOMNodeList* stdRows, IXMLDOMNodeList* usrRows);

    /// Shows the dialog and returns when it ends.
    /// @param parent  owner window, or null
    /// @return IDOK or IDCANCEL; another value if the dialog could not be shown or went with its owner
    /// Throws what failed inside, std::bad_alloc above all.
    INT_PTR Run(HWND parent);

    /// The row that was chosen, or null: after Cancel, and after OK without a selected row.
    const ComPtr<IXMLDOMNode>& ChosenRow() const noexcept { return chosen_; }

private:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnInitDialog();
    void OnDestroy();
    std::optional<LRESULT> OnNotify(const NMHDR& notification);

    void TakeSelectedRow();
    void SelectDefaultRow();
    /// Index of the first row that has the default values; 0 if there is none.
    int DefaultRow() const;

    void LoadFilters();
    void SaveFilters();
    void LoadLayout();
    void SaveLayout();
    void OnControlsPlaced() override;

    /// Replaces the filter of a column and fills the list anew.
    void ApplyColumnFilter(int column, const nuxDimFilter& filter, SortMode sortMode);
    void TurnOffAllFilters();
    void EnableAllFiltersOff(bool enable);
    void Sort(int column, bool numeric, bool ascending);

    void ShowColumnMenu(int column);
    void DefineFilter(int column);
    void ShowQuickFilter(int column);

    DimensionTable table_;
    ComPtr<IXMLDOMNode> defaults_;
    ComPtr<IXMLDOMNode> chosen_;
    DimensionSettings settings_;
    SizeList list_;
};

}  // namespace nux
