// Value lists: gathering and sorting are held against the plain quadratic search and exchange sort.

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "dimensions/DistinctValues.h"

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

bool Same(double a, double b) {
    return std::signbit(a) == std::signbit(b) && (std::isnan(a) ? std::isnan(b) : a == b);
}

std::string Localise(const std::string& text) {
    return text.size() % 2 ? "word" : text + "s";
}

std::vector<std::string> Gather(const std::vector<std::string>& values) {
    std::vector<std::string> distinct;
    for (const std::string& value : values) {
        bool isNew = true;
        for (const std::string& known : distinct)
            isNew = isNew && known != value;
        if (isNew)
            distinct.push_back(value);
    }
    return distinct;
}

void SortByExchange(std::vector<double>& numbers) {
    for (std::size_t i = 0; i + 1 < numbers.size(); ++i) {
        for (std::size_t j = i + 1; j < numbers.size(); ++j) {
            if (numbers[i] > numbers[j])
                std::swap(numbers[i], numbers[j]);
        }
    }
}

void SortByExchange(std::vector<std::string>& texts) {
    for (std::size_t i = 0; i + 1 < texts.size(); ++i) {
        for (std::size_t j = i + 1; j < texts.size(); ++j) {
            if (texts[j].compare(texts[i]) < 0)
                std::swap(texts[i], texts[j]);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    const double special[] = {-std::numeric_limits<double>::infinity(), -1.0, -0.0, 0.0, 1.0,
                              std::numeric_limits<double>::quiet_NaN()};
    static constexpr const char* words[] = {"0", "-0", "5", "5.0", "-3", "nan", "-nan", "inf", "", "steel"};

    std::vector<double> numbers;
    for (std::size_t count = data.ConsumeIntegralInRange<std::size_t>(0, 60); count != 0; --count)
        numbers.push_back(data.ConsumeBool() ? data.PickValueInArray(special)
                                             : data.ConsumeIntegral<std::int8_t>());
    std::vector<double> expected = numbers;
    SortByExchange(expected);
    nux::SortNumbers(numbers);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        Require(Same(numbers[i], expected[i]));

    std::vector<std::string> values;
    nux::DistinctValues distinct;
    while (data.remaining_bytes() != 0) {
        values.push_back(data.ConsumeBool() ? data.PickValueInArray(words)
                                            : data.ConsumeRandomLengthString(20));
        distinct.Add(values.back());
    }
    std::vector<std::string> texts = Gather(values);
    Require(std::vector<std::string>(distinct.Values().begin(), distinct.Values().end()) == texts);
    Require(distinct.Numbers().size() == texts.size());
    for (std::string& text : texts)
        text = Localise(text);
    SortByExchange(texts);
    Require(distinct.Texts(Localise) == texts);
    return 0;
}
