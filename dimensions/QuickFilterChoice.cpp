#include "dimensions/QuickFilterChoice.h"

#include <cstddef>

namespace nux {

nuxDimFilter FilterOfChosenNumber(int row, const std::vector<double>& numbers) {
    nuxDimFilter filter;
    if (static_cast<std::size_t>(row) < numbers.size())
        filter.SetNumber(FilterEqual, numbers[row], 0.0, DatabaseBoth);
    return filter;
}

nuxDimFilter FilterOfChosenText(int row, const std::vector<std::string>& texts) {
    nuxDimFilter filter;
    if (static_cast<std::size_t>(row) < texts.size())
        filter.SetText(FilterStringEqual, texts[row], DatabaseBoth);
    return filter;
}

}  // namespace nux
