#include "dimensions/DistinctValues.h"

#include <algorithm>
#include <cmath>

#include "dimensions/DimNumber.h"

namespace nux {

void DistinctValues::Add(std::string_view value) {
    if (!seen_.contains(value))
        seen_.insert(values_.emplace_back(value));
}

std::vector<double> DistinctValues::Numbers() const {
    std::vector<double> numbers;
    numbers.reserve(values_.size());
    for (const std::string& value : values_)
        numbers.push_back(ReadDimNumber(value).value);
    SortNumbers(numbers);
    return numbers;
}

std::vector<std::string> DistinctValues::Texts(
    const std::function<std::string(const std::string&)>& localise) const {
    std::vector<std::string> texts;
    texts.reserve(values_.size());
    for (const std::string& value : values_)
        texts.push_back(localise(value));
    std::sort(texts.begin(), texts.end());
    return texts;
}

void SortNumbers(std::vector<double>& numbers) {
    std::vector<double> sorted;
    sorted.reserve(numbers.size());
    // The exchange sort brings the negative numbers to the front one by one, in the order of their places.
    // Each time, the first of the zeros that stand before such a place is exchanged into it, and so comes
    // behind the others. Nothing else moves a zero past another.
    std::deque<double> zeros;
    for (const double number : numbers) {
        if (std::isnan(number))
            continue;
        sorted.push_back(number);
        if (number == 0.0) {
            zeros.push_back(number);
        } else if (number < 0.0 && !zeros.empty()) {
            zeros.push_back(zeros.front());
            zeros.pop_front();
        }
    }
    std::sort(sorted.begin(), sorted.end());
    std::copy(zeros.begin(), zeros.end(), std::lower_bound(sorted.begin(), sorted.end(), 0.0));

    auto next = sorted.begin();
    for (double& number : numbers) {
        if (!std::isnan(number))
            number = *next++;
    }
}

}  // namespace nux
