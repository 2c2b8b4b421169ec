#include "dimensions/DistinctValues.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <utility>

namespace nux {
namespace {

std::vector<std::string> Gathered(const DistinctValues& values) {
    return {values.Values().begin(), values.Values().end()};
}

/// The plain exchange sort whose results SortNumbers promises.
void SortByExchange(std::vector<double>& numbers) {
    for (std::size_t i = 0; i + 1 < numbers.size(); ++i) {
        for (std::size_t j = i + 1; j < numbers.size(); ++j) {
            if (numbers[i] > numbers[j])
                std::swap(numbers[i], numbers[j]);
        }
    }
}

/// The numbers with the signs of zero and NaN told apart.
std::string Spelled(const std::vector<double>& numbers) {
    std::string text;
    for (const double number : numbers)
        text += (std::signbit(number) ? "-" : "") + std::to_string(std::fabs(number)) + " ";
    return text;
}

void ExpectSortedAsByExchange(std::vector<double> numbers) {
    std::vector<double> expected = numbers;
    const std::string before = Spelled(numbers);
    SortByExchange(expected);
    SortNumbers(numbers);
    EXPECT_EQ(Spelled(expected), Spelled(numbers)) << before;
}

TEST(DistinctValues, AValueOfBothSourcesCountsOnceAndTheFirstPlaceStays) {
    DistinctValues values;
    for (const char* value : {"10", "5", "10", "7"})
        values.Add(value);
    for (const char* value : {"7", "3", "10"})
        values.Add(value);
    EXPECT_EQ((std::vector<std::string>{"10", "5", "7", "3"}), Gathered(values));
}

TEST(DistinctValues, ValuesAreTheSameOnlyIfEveryByteIs) {
    DistinctValues values;
    for (const char* value : {"5", "5.0", "a", "A", "a ", "", "5", ""})
        values.Add(value);
    EXPECT_EQ((std::vector<std::string>{"5", "5.0", "a", "A", "a ", ""}), Gathered(values));
}

TEST(DistinctValues, AnAddedTextMayChangeAfterwards) {
    DistinctValues values;
    std::string text = "a value that is too long to be stored inside a string";
    values.Add(text);
    text[0] = 'b';
    values.Add(text);
    text[0] = 'a';
    values.Add(text);
    EXPECT_EQ(2u, values.Values().size());
}

TEST(DistinctValues, ManyValuesStayDistinct) {
    DistinctValues values;
    for (int pass = 0; pass < 2; ++pass) {
        for (int i = 0; i < 50000; ++i)
            values.Add(std::to_string(i));
    }
    ASSERT_EQ(50000u, values.Values().size());
    for (int i = 0; i < 50000; ++i)
        ASSERT_EQ(values.Values()[i], std::to_string(i));
}

TEST(DistinctValues, NumbersAreSortedByValueAndTextsOfOneValueStayTwo) {
    DistinctValues values;
    for (const char* value : {"10", "5", "9", "5.0", "word", "3 mm", "-1"})
        values.Add(value);
    EXPECT_EQ((std::vector<double>{-1.0, 0.0, 3.0, 5.0, 5.0, 9.0, 10.0}), values.Numbers());
}

TEST(DistinctValues, TextsAreSortedByTheBytesOfTheirLocalisedForm) {
    DistinctValues values;
    for (const char* value : {"steel", "Brass", "\xe4", "brass", ""})
        values.Add(value);
    const auto localise = [](const std::string& text) { return text == "steel" ? std::string("Alu") : text; };
    EXPECT_EQ((std::vector<std::string>{"", "Alu", "Brass", "brass", "\xe4"}), values.Texts(localise));
}

TEST(DistinctValues, ValuesThatLocaliseAlikeStayTwo) {
    DistinctValues values;
    values.Add("steel");
    values.Add("iron");
    const auto localise = [](const std::string&) { return std::string("metal"); };
    EXPECT_EQ((std::vector<std::string>{"metal", "metal"}), values.Texts(localise));
}

TEST(DistinctValues, WithoutValuesThereAreNoNumbersAndNoTexts) {
    const DistinctValues values;
    EXPECT_TRUE(values.Numbers().empty());
    EXPECT_TRUE(values.Texts([](const std::string& text) { return text; }).empty());
}

TEST(SortNumbers, ANaNStaysAtItsIndexAndTheOthersAreSortedAroundIt) {
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    std::vector<double> numbers{3.0, notANumber, 2.0, 1.0, notANumber};
    SortNumbers(numbers);
    EXPECT_EQ(1.0, numbers[0]);
    EXPECT_TRUE(std::isnan(numbers[1]));
    EXPECT_EQ(2.0, numbers[2]);
    EXPECT_EQ(3.0, numbers[3]);
    EXPECT_TRUE(std::isnan(numbers[4]));
}

TEST(SortNumbers, ANegativeNumberBehindTwoZerosTurnsThemAround) {
    std::vector<double> numbers{0.0, -0.0, -5.0};
    SortNumbers(numbers);
    EXPECT_EQ(Spelled(numbers), Spelled({-5.0, -0.0, 0.0}));
    numbers = {0.0, -0.0, 5.0};
    SortNumbers(numbers);
    EXPECT_EQ(Spelled(numbers), Spelled({0.0, -0.0, 5.0}));
}

TEST(SortNumbers, GivesWhatTheExchangeSortGives) {
    ExpectSortedAsByExchange({});
    ExpectSortedAsByExchange({1.0});
    const double infinite = std::numeric_limits<double>::infinity();
    const double choice[] = {
        -infinite, -2.0, -1.0, -0.0, 0.0, 1.0, 2.0, infinite, std::numeric_limits<double>::quiet_NaN()};
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        std::vector<double> numbers(random() % 12);
        for (double& number : numbers)
            number = choice[random() % std::size(choice)];
        ExpectSortedAsByExchange(numbers);
    }
}

}  // namespace
}  // namespace nux
