#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace nux {

/// The distinct values of one dimension, gathered over any number of sources. Values are distinct if a byte
/// differs: "5" and "5.0" are two.
class DistinctValues {
public:
    DistinctValues() = default;
    DistinctValues(const DistinctValues&) = delete;
    DistinctValues& operator=(const DistinctValues&) = delete;

    /// Adds a value, cut by the caller as every cell is, unless it is there. Constant time.
    void Add(std::string_view value);

    /// The values in the order in which they were first added.
    const std::deque<std::string>& Values() const { return values_; }

    /// The numbers at the start of the values, in the order of SortNumbers. As many as there are values.
    std::vector<double> Numbers() const;

    /// The values as `localise` gives them, ascending by their bytes. As many as there are values: two that
    /// localise alike stay two.
    std::vector<std::string> Texts(const std::function<std::string(const std::string&)>& localise) const;

private:
    std::deque<std::string> values_;  // a deque leaves its entries in place, and seen_ looks at them
    std::unordered_set<std::string_view> seen_;
};

/// Sorts ascending. Where that leaves the order open, it is the one of the plain exchange sort, in which each
/// entry in turn changes places with every later one that is less: a NaN stays at its index, and the two
/// signs of zero keep the order that this sort leaves. The value lists have always shown that order.
void SortNumbers(std::vector<double>& numbers);

}  // namespace nux
