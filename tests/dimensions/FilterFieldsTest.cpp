#include "dimensions/FilterFields.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace nux {
namespace {

constexpr char wrongValue[] = "A wrong value has been encountered.";
constexpr char limitsReversed[] = "The upper limit is less than the lower limit.";
using Field = FilterFormError::Field;

FilterForm Form(std::uint32_t type, const std::string& lower, const std::string& upper = "0.0",
                std::uint32_t database = DatabaseBoth, SortChoice sort = SortChoice::None) {
    return {type, lower, upper, database, sort};
}

DefinedFilter Accepted(const FilterForm& form, const nuxDimFilter& current = {}) {
    const auto result = ReadFilterForm(form, current);
    EXPECT_TRUE(std::holds_alternative<DefinedFilter>(result)) << form.lowerText << " " << form.upperText;
    return std::holds_alternative<DefinedFilter>(result) ? std::get<DefinedFilter>(result) : DefinedFilter{};
}

void ExpectError(const FilterForm& form, const char* message, Field field) {
    const auto result = ReadFilterForm(form, {});
    ASSERT_TRUE(std::holds_alternative<FilterFormError>(result)) << form.lowerText << " " << form.upperText;
    EXPECT_STREQ(std::get<FilterFormError>(result).message, message);
    EXPECT_EQ(std::get<FilterFormError>(result).field, field);
}

TEST(FieldsOfType, NoneHidesBothFields) {
    const auto fields = FieldsOfType(FilterNone);
    ASSERT_TRUE(fields);
    EXPECT_FALSE(fields->lower);
    EXPECT_EQ(nullptr, fields->lowerLabel);
    EXPECT_FALSE(fields->upper);
}

TEST(FieldsOfType, ATypeWithOneValueShowsTheFirstFieldAsFilterValue) {
    for (const DimFilterType type : {FilterEqual, FilterSmallerOrEqual, FilterGreaterOrEqual}) {
        const auto fields = FieldsOfType(type);
        ASSERT_TRUE(fields);
        EXPECT_TRUE(fields->lower);
        EXPECT_STREQ("Filter value:", fields->lowerLabel);
        EXPECT_FALSE(fields->upper);
    }
}

TEST(FieldsOfType, BetweenShowsBothFields) {
    const auto fields = FieldsOfType(FilterBetween);
    ASSERT_TRUE(fields);
    EXPECT_TRUE(fields->lower);
    EXPECT_STREQ("Lower limit:", fields->lowerLabel);
    EXPECT_TRUE(fields->upper);
}

TEST(FieldsOfType, ATypeWithoutARadioButtonChangesNothing) {
    EXPECT_FALSE(FieldsOfType(FilterStringEqual));
    EXPECT_FALSE(FieldsOfType(6));
}

TEST(TakesCharacter, DigitsAndBackspaceAlways) {
    for (const char character : std::string("0123456789\b")) {
        EXPECT_TRUE(TakesCharacter(character, "", "."));
        EXPECT_TRUE(TakesCharacter(character, "1.5", "."));
    }
}

TEST(TakesCharacter, TheFirstSeparatorOnly) {
    EXPECT_TRUE(TakesCharacter('.', "", "."));
    EXPECT_TRUE(TakesCharacter('.', "12", "."));
    EXPECT_FALSE(TakesCharacter('.', "1.2", "."));
    EXPECT_FALSE(TakesCharacter('.', ".", "."));
}

TEST(TakesCharacter, OnlyTheSeparatorOfTheUser) {
    EXPECT_TRUE(TakesCharacter(',', "12", ","));
    EXPECT_FALSE(TakesCharacter('.', "12", ","));
    // A point in the text is no separator there.
    EXPECT_TRUE(TakesCharacter(',', "12.5", ","));
    EXPECT_FALSE(TakesCharacter('.', "12", ""));
}

TEST(TakesCharacter, NoSignNoExponentNoLetterNoControlCharacter) {
    for (const char character : std::string("+-eE xX/:\r\t\x03\x16\xb7"))
        EXPECT_FALSE(TakesCharacter(character, "", "."));
    EXPECT_FALSE(TakesCharacter('\0', "", "."));
}

TEST(TakesCharacter, ASeparatorBehindTheFirst127CharactersIsNotSeen) {
    EXPECT_FALSE(TakesCharacter('.', std::string(126, '1') + ".", "."));
    EXPECT_TRUE(TakesCharacter('.', std::string(127, '1') + ".", "."));
}

TEST(UpperLimitChoices, OffersTheValuesFromTheLowerLimitOn) {
    EXPECT_EQ((std::vector<std::string>{"5.0", "5.5", "12.25"}),
              UpperLimitChoices({1.0, 5.0, 5.5, 12.25}, "5", "."));
    EXPECT_EQ((std::vector<std::string>{"1.0", "5.0"}), UpperLimitChoices({1.0, 5.0}, "", "."));
    EXPECT_EQ((std::vector<std::string>{}), UpperLimitChoices({1.0, 5.0}, "6", "."));
    EXPECT_EQ((std::vector<std::string>{"5."}), UpperLimitChoices({-1.0, 5.0}, "", ","));
    EXPECT_EQ((std::vector<std::string>{"5.0"}), UpperLimitChoices({std::nan(""), 5.0}, "0", "."));
    EXPECT_TRUE(UpperLimitChoices({1.0}, "nan", ".").empty());
}

TEST(ReadFilterForm, TakesTypeNumberAndDatabase) {
    const DefinedFilter defined = Accepted(Form(FilterEqual, "12.5", "0.0", DatabaseUser));
    EXPECT_EQ(defined.filter.Type(), FilterEqual);
    EXPECT_EQ(12.5, defined.filter.Lower());
    EXPECT_EQ(0.0, defined.filter.Upper());
    EXPECT_EQ(defined.filter.Database(), DatabaseUser);
}

TEST(ReadFilterForm, AFirstFieldThatIsNoNumberIsAWrongValue) {
    for (const std::uint32_t type :
         {FilterEqual, FilterBetween, FilterSmallerOrEqual, FilterGreaterOrEqual}) {
        for (const char* text : {"", "x", "12x", "12 ", " ", "1,5", "-1", "-0.5", "nan", "."})
            ExpectError(Form(type, text, "5"), wrongValue, Field::Lower);
    }
}

TEST(ReadFilterForm, AFirstFieldOfZeroOrWithLeadingBlanksIsANumber) {
    EXPECT_EQ(0.0, Accepted(Form(FilterEqual, "0")).filter.Lower());
    EXPECT_EQ(0.0, Accepted(Form(FilterEqual, "-0")).filter.Lower());
    EXPECT_EQ(12.0, Accepted(Form(FilterEqual, " 12")).filter.Lower());
    EXPECT_EQ(100.0, Accepted(Form(FilterEqual, "1e2")).filter.Lower());
}

TEST(ReadFilterForm, OnlyTheFirst127CharactersOfAFieldAreRead) {
    EXPECT_EQ(7.0, Accepted(Form(FilterEqual, std::string(126, '0') + "7x")).filter.Lower());
    ExpectError(Form(FilterEqual, std::string(125, '0') + "7x"), wrongValue, Field::Lower);
    EXPECT_EQ(7.0, Accepted(Form(FilterBetween, "1", std::string(126, '0') + "7x")).filter.Upper());
}

TEST(ReadFilterForm, TypeNoneTakesAnyTextAndStoresWhatItReads) {
    const DefinedFilter defined = Accepted(Form(FilterNone, "-3x", "word", DatabaseStandard));
    EXPECT_EQ(defined.filter.Type(), FilterNone);
    EXPECT_EQ(-3.0, defined.filter.Lower());
    EXPECT_EQ(0.0, defined.filter.Upper());
    EXPECT_EQ(defined.filter.Database(), DatabaseStandard);
    EXPECT_FALSE(defined.filter.IsInactive());
    EXPECT_TRUE(Accepted(Form(FilterNone, "", "")).filter.IsInactive());
}

TEST(ReadFilterForm, ATypeWithoutUpperLimitStoresWhatItsFieldReads) {
    EXPECT_EQ(7.5, Accepted(Form(FilterEqual, "1", "7.5mm")).filter.Upper());
    EXPECT_EQ(-4.0, Accepted(Form(FilterGreaterOrEqual, "9", "-4")).filter.Upper());
    EXPECT_EQ(0.0, Accepted(Form(FilterSmallerOrEqual, "9", "")).filter.Upper());
}

TEST(ReadFilterForm, BetweenTakesALimitAtOrAboveTheLower) {
    EXPECT_EQ(10.0, Accepted(Form(FilterBetween, "5", "10")).filter.Upper());
    EXPECT_EQ(5.0, Accepted(Form(FilterBetween, "5", "5.0")).filter.Upper());
    EXPECT_TRUE(std::isnan(Accepted(Form(FilterBetween, "5", "nan")).filter.Upper())) << "it is not below 5";
}

TEST(ReadFilterForm, AnUpperLimitBelowTheLowerIsSaidSo) {
    ExpectError(Form(FilterBetween, "10", "5"), limitsReversed, Field::Upper);
    ExpectError(Form(FilterBetween, "0", "-1"), limitsReversed, Field::Upper);
}

TEST(ReadFilterForm, AnUpperLimitThatIsNoNumberIsAWrongValueAlsoIfItLiesBelow) {
    for (const char* text : {"", "x", "5x", "12 ", "1,5"})
        ExpectError(Form(FilterBetween, "10", text), wrongValue, Field::Upper);
}

TEST(ReadFilterForm, BothFieldsWrongIsSaidOfTheFirst) {
    ExpectError(Form(FilterBetween, "", ""), wrongValue, Field::Lower);
}

TEST(ReadFilterForm, DescendingSortsAscendingToo) {
    EXPECT_EQ(Accepted(Form(FilterNone, "", "", 3, SortChoice::Ascending)).sortMode, SortModeAscending);
    EXPECT_EQ(Accepted(Form(FilterNone, "", "", 3, SortChoice::Descending)).sortMode, SortModeAscending);
    EXPECT_EQ(Accepted(Form(FilterNone, "", "", 3, SortChoice::None)).sortMode, SortModeNone);
}

TEST(ReadFilterForm, TheTextOfTheFilterStays) {
    nuxDimFilter current;
    current.SetText(FilterStringEqual, "steel", DatabaseUser);
    EXPECT_EQ("steel", Accepted(Form(FilterEqual, "1"), current).filter.Text());
}

TEST(ReadFilterForm, AGroupWithoutACheckedButtonKeepsWhatTheFilterHas) {
    nuxDimFilter current;
    current.SetText(FilterStringEqual, "steel", 7);
    const FilterForm form{std::nullopt, "0.0", "0.0", std::nullopt, SortChoice::Ascending};
    const DefinedFilter defined = Accepted(form, current);
    EXPECT_EQ(defined.filter.Type(), FilterStringEqual);
    EXPECT_EQ(7u, defined.filter.Database());
    EXPECT_EQ("steel", defined.filter.Text());
}

}  // namespace
}  // namespace nux
