#include "dimensions/FilterFields.h"

#include "dimensions/DimNumber.h"

namespace nux {
namespace {

constexpr char wrongValue[] = "A wrong value has been encountered.";
constexpr char limitsReversed[] = "The upper limit is less than the lower limit.";

bool IsSeparator(char character, std::string_view separators) {
    return separators.find(character) != std::string_view::npos;
}

}  // namespace

std::optional<FilterFieldVisibility> FieldsOfType(std::uint32_t type) {
    switch (type) {
        case FilterNone:
            return FilterFieldVisibility{false, nullptr, false};
        case FilterEqual:
        case FilterSmallerOrEqual:
        case FilterGreaterOrEqual:
            return FilterFieldVisibility{true, "Filter value:", false};
        case FilterBetween:
            return FilterFieldVisibility{true, "Lower limit:", true};
        default:
            return std::nullopt;
    }
}

bool TakesCharacter(char character, std::string_view text, std::string_view separators) {
    if ((character >= '0' && character <= '9') || character == '\b')
        return true;
    return IsSeparator(character, separators) &&
           CutCellText(text).find_first_of(separators) == std::string_view::npos;
}

std::vector<std::string> UpperLimitChoices(const std::vector<double>& values, std::string_view lowerText,
                                           std::string_view separators) {
    const double lower = ReadDimNumber(CutCellText(lowerText)).value;
    std::vector<std::string> choices;
    for (const double value : values) {
        if (value >= lower)
            choices.push_back(FormatDimNumber(value, separators));
    }
    return choices;
}

std::variant<DefinedFilter, FilterFormError> ReadFilterForm(const FilterForm& form,
                                                            const nuxDimFilter& current) {
    using Field = FilterFormError::Field;
    const std::uint32_t type = form.type.value_or(current.Type());

    const std::string_view lowerText = CutCellText(form.lowerText);
    const DimNumber lower = ReadDimNumber(lowerText);
    if (type != FilterNone && !(lower.whole && !lowerText.empty() && lower.value >= 0.0))
        return FilterFormError{wrongValue, Field::Lower};

    // Read for every type: a filter without an upper limit carries what the hidden field holds.
    const std::string_view upperText = CutCellText(form.upperText);
    const DimNumber upper = ReadDimNumber(upperText);
    if (type == FilterBetween) {
        // The sign of the upper limit needs no test: a negative one lies below the lower limit.
        if (!upper.whole || upperText.empty())
            return FilterFormError{wrongValue, Field::Upper};
        if (lower.value > upper.value)
            return FilterFormError{limitsReversed, Field::Upper};
    }

    DefinedFilter defined{current, SortModeAscending};
    defined.filter.SetNumber(type, lower.value, upper.value, form.database.value_or(current.Database()));
    // Descending asks for the ascending sort too. That is wanted: the dialog has only ever sorted ascending,
    // and the other direction is the popup menu's.
    if (form.sort == SortChoice::None)
        defined.sortMode = SortModeNone;
    return defined;
}

}  // namespace nux
