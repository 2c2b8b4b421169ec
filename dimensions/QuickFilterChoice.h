#pragma once

#include <string>
#include <vector>

#include "dimensions/nuxDimFilter.h"

namespace nux {

// The filter that a row chosen in the quick filter window stands for. It takes the place of the column's
// filter. A row beyond the values gives an inactive filter, which turns off the column's; a negative row is
// no choice, and the caller doesn't ask.

/// For a numeric column: equal to the chosen number, in both databases.
nuxDimFilter FilterOfChosenNumber(int row, const std::vector<double>& numbers);

/// For a text column: equal to the chosen text, in both databases.
nuxDimFilter FilterOfChosenText(int row, const std::vector<std::string>& texts);

}  // namespace nux
