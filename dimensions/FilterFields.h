#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "dimensions/nuxDimFilter.h"

namespace nux {

// The decisions of the dialog that defines the filter of a numeric column. Texts are those of its two edit
// fields, of which the first 127 bytes count.

/// Which of the dialog's fields and labels are to be seen.
struct FilterFieldVisibility {
    bool lower;              ///< The first field and its label.
    const char* lowerLabel;  ///< The text that its label gets, null if the label is hidden.
    bool upper;              ///< The second field and its label.
};

/// The fields that a filter type needs. Nothing, if the type has no radio button: all stays as it is.
std::optional<FilterFieldVisibility> FieldsOfType(std::uint32_t type);

/// Whether an edit field takes a typed character: a digit, a backspace, or one of `separators` (the user's
/// decimal separators) if `text`, what the field holds, has none of them yet.
bool TakesCharacter(char character, std::string_view text, std::string_view separators);

/// What the list of the upper limit offers: those of `values` that are at least the number at the start of
/// `lowerText`, in their order and as FormatDimNumber writes them.
std::vector<std::string> UpperLimitChoices(const std::vector<double>& values, std::string_view lowerText,
                                           std::string_view separators);

/// The radio buttons of the sort group.
enum class SortChoice { Ascending, Descending, None };

/// What the dialog asks of the list beside the filter.
enum SortMode : std::uint32_t {
    SortModeNone = 0,
    SortModeAscending = 1,
};

/// The state of the dialog's controls. A group of radio buttons without a checked one has no value.
struct FilterForm {
    std::optional<std::uint32_t> type;
    std::string lowerText;
    std::string upperText;
    std::optional<std::uint32_t> database;
    SortChoice sort;
};

struct DefinedFilter {
    nuxDimFilter filter;
    SortMode sortMode;
};

/// Why a form can't be taken: the message to show and the field that gets the focus.
struct FilterFormError {
    enum class Field { Lower, Upper };
    const char* message;
    Field field;
};

/// The filter that the form describes, or why it describes none. What the form leaves open (the text, and
/// type or database without a checked button) stays as in `current`.
std::variant<DefinedFilter, FilterFormError> ReadFilterForm(const FilterForm& form,
                                                            const nuxDimFilter& current);

}  // namespace nux
