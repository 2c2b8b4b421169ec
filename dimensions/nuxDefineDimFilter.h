#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "dimensions/FilterFields.h"
#include "dimensions/nuxDimFilter.h"
#include "framework/Dialog.h"
#include "framework/SubclassedWindow.h"

namespace nux {

/// The modal dialog in which the user edits the filter of a numeric column and may ask for a sort.
class nuxDefineDimFilter : private Dialog {
public:
    /// An inactive filter, and no values to choose from.
    nuxDefineDimFilter() = default;
    /// @param values  the distinct values of the column, ascending
    nuxDefineDimFilter(const nuxDimFilter& filter, std::vector<double> values);

    /// Shows the dialog and returns when it ends.
    /// @param parent  owner window, or null
    /// @return IDOK or IDCANCEL; another value if the dialog could not be shown or went with its owner
    /// Throws what failed inside, std::bad_alloc above all.
    INT_PTR Run(HWND parent);

    /// What the user defined, after IDOK.
    const nuxDimFilter& Filter() const noexcept { return defined_.filter; }
    SortMode Sort() const noexcept { return defined_.sortMode; }

private:
    /// The edit field inside a combo box: takes digits and one decimal separator.
    class NumberField : public SubclassedWindow {
    public:
        explicit NumberField(MessageTarget* owner) noexcept : SubclassedWindow(owner) {}

    protected:
        LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    };

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> OnCommand(int control, int notification);
    void OnInitDialog();
    void UpdateFields();
    void RefillUpperLimit();
    /// @return false if the user has been told what is wrong; the dialog stays open then
    bool ValidateAndStore();

    void ShowItem(int control, bool visible) const noexcept;

    DefinedFilter defined_{{}, SortModeNone};
    std::vector<double> values_;
    NumberField lowerField_{this};
    NumberField upperField_{this};
};

}  // namespace nux
