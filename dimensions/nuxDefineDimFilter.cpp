#include "dimensions/nuxDefineDimFilter.h"

#include <string>
#include <utility>
#include <variant>

#include "dimensions/DimNumber.h"
#include "environment/Environment.h"
#include "framework/ComboBox.h"
#include "resources/resource.h"

namespace nux {
namespace {

/// A radio button and what it stands for.
template <class Value>
struct Choice {
    int control;
    Value value;
};

constexpr Choice<std::uint32_t> types[] = {
    {IDC_FILTER_NONE, FilterNone},
    {IDC_FILTER_EQUAL, FilterEqual},
    {IDC_FILTER_BETWEEN, FilterBetween},
    {IDC_FILTER_SMALLER_OR_EQUAL, FilterSmallerOrEqual},
    {IDC_FILTER_GREATER_OR_EQUAL, FilterGreaterOrEqual},
};
constexpr Choice<std::uint32_t> databases[] = {
    {IDC_DATABASE_STANDARD, DatabaseStandard},
    {IDC_DATABASE_USER, DatabaseUser},
    {IDC_DATABASE_BOTH, DatabaseBoth},
};
constexpr Choice<SortChoice> sorts[] = {
    {IDC_SORT_ASCENDING, SortChoice::Ascending},
    {IDC_SORT_DESCENDING, SortChoice::Descending},
    {IDC_SORT_NONE, SortChoice::None},
};

template <class Value, std::size_t count>
std::optional<Value> CheckedOf(HWND dialog, const Choice<Value> (&choices)[count]) noexcept {
    for (const Choice<Value>& choice : choices) {
        if (IsDlgButtonChecked(dialog, choice.control) == BST_CHECKED)
            return choice.value;
    }
    return std::nullopt;
}

/// Checks the button of a value. One without a button leaves the group unchecked.
template <class Value, std::size_t count>
void Check(HWND dialog, const Choice<Value> (&choices)[count], Value value) noexcept {
    for (const Choice<Value>& choice : choices)
        CheckDlgButton(dialog, choice.control, choice.value == value ? BST_CHECKED : BST_UNCHECKED);
    if (CheckedOf(dialog, choices))
        return;
    // A button that is unchecked loses its tab stop, and the keyboard would pass by a group without any.
    const HWND first = GetDlgItem(dialog, choices[0].control);
    SetWindowLongPtrA(first, GWL_STYLE, GetWindowLongPtrA(first, GWL_STYLE) | WS_TABSTOP);
}

/// The text of a field, as far as it counts.
std::string TextOf(HWND field) {
    char text[longestCellText + 1] = "";
    GetWindowTextA(field, text, sizeof text);
    return text;
}

/// The text of a field as it stands.
std::string WholeTextOf(HWND field) {
    std::string text(GetWindowTextLengthA(field), '\0');
    text.resize(GetWindowTextA(field, text.data(), static_cast<int>(text.size()) + 1));
    return text;
}

}  // namespace

LRESULT nuxDefineDimFilter::NumberField::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_CHAR)
        return Default(message, wParam, lParam);
    // Enter and Escape come as characters while the list is open: they close it.
    const bool closesList =
        (wParam == VK_RETURN || wParam == VK_ESCAPE) && ComboBox(GetParent(Handle())).IsDropped();
    if (closesList ||
        (wParam <= 0xff && TakesCharacter(static_cast<char>(wParam), TextOf(Handle()), DecimalSeparator())))
        return Default(message, wParam, lParam);
    return 0;
}

nuxDefineDimFilter::nuxDefineDimFilter(const nuxDimFilter& filter, std::vector<double> values)
    : defined_{filter, SortModeNone}, values_(std::move(values)) {}

INT_PTR nuxDefineDimFilter::Run(HWND parent) {
    return RunModal(parent, IDD_DEFINE_FILTER);
}

std::optional<LRESULT> nuxDefineDimFilter::OnMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog();
            return TRUE;
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam), HIWORD(wParam));
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> nuxDefineDimFilter::OnCommand(int control, int notification) {
    switch (control) {
        case IDOK:
            if (ValidateAndStore())
                End(IDOK);
            return 0;
        case IDCANCEL:
            End(IDCANCEL);
            return 0;
        case IDC_UPPER_LIMIT:
            if (notification == CBN_DROPDOWN)
                RefillUpperLimit();
            return 0;
        case IDC_FILTER_NONE:
        case IDC_FILTER_EQUAL:
        case IDC_FILTER_BETWEEN:
        case IDC_FILTER_SMALLER_OR_EQUAL:
        case IDC_FILTER_GREATER_OR_EQUAL:
            if (notification == BN_CLICKED)
                UpdateFields();
            return 0;
        default:
            return std::nullopt;
    }
}

void nuxDefineDimFilter::OnInitDialog() {
    const HWND lower = Item(IDC_LOWER_LIMIT);
    const HWND upper = Item(IDC_UPPER_LIMIT);
    lowerField_.Attach(ComboBox(lower).EditField());
    upperField_.Attach(ComboBox(upper).EditField());
    SetIcon(IDI_FILTER);

    const nuxDimFilter& filter = defined_.filter;
    const char* separators = DecimalSeparator();
    for (const double value : values_)
        ComboBox(lower).Add(FormatDimNumber(value, separators));
    Check(Handle(), types, filter.Type());
    SetWindowTextA(lower, FormatDimNumber(filter.Lower(), separators).c_str());
    SetWindowTextA(upper, FormatDimNumber(filter.Upper(), separators).c_str());
    Check(Handle(), databases, filter.Database());
    Check(Handle(), sorts, SortChoice::Ascending);  // each time: the last choice is not remembered
    UpdateFields();
}

void nuxDefineDimFilter::UpdateFields() {
    const auto type = CheckedOf(Handle(), types);
    const auto fields = type ? FieldsOfType(*type) : std::nullopt;
    if (!fields)
        return;
    // These two texts stay English in every language, as they always have.
    if (fields->lowerLabel)
        SetDlgItemTextA(Handle(), IDC_LOWER_LIMIT_LABEL, fields->lowerLabel);
    ShowItem(IDC_LOWER_LIMIT_LABEL, fields->lower);
    ShowItem(IDC_LOWER_LIMIT, fields->lower);
    ShowItem(IDC_UPPER_LIMIT_LABEL, fields->upper);
    ShowItem(IDC_UPPER_LIMIT, fields->upper);
}

void nuxDefineDimFilter::RefillUpperLimit() {
    const HWND upper = Item(IDC_UPPER_LIMIT);
    const std::string typed = WholeTextOf(upper);
    ComboBox(upper).Clear();
    for (const std::string& choice :
         UpperLimitChoices(values_, TextOf(Item(IDC_LOWER_LIMIT)), DecimalSeparator()))
        ComboBox(upper).Add(choice);
    SetWindowTextA(upper, typed.c_str());
}

bool nuxDefineDimFilter::ValidateAndStore() {
    const FilterForm form{
        CheckedOf(Handle(), types),
        TextOf(Item(IDC_LOWER_LIMIT)),
        TextOf(Item(IDC_UPPER_LIMIT)),
        CheckedOf(Handle(), databases),
        CheckedOf(Handle(), sorts).value_or(SortChoice::Ascending),
    };
    auto result = ReadFilterForm(form, defined_.filter);
    if (const auto* error = std::get_if<FilterFormError>(&result)) {
        MessageBoxA(Handle(), error->message, "Error", MB_ICONERROR);
        SetFocus(Item(error->field == FilterFormError::Field::Lower ? IDC_LOWER_LIMIT : IDC_UPPER_LIMIT));
        return false;
    }
    defined_ = std::get<DefinedFilter>(std::move(result));
    return true;
}

void nuxDefineDimFilter::ShowItem(int control, bool visible) const noexcept {
    ShowWindow(Item(control), visible ? SW_SHOW : SW_HIDE);
}

}  // namespace nux
