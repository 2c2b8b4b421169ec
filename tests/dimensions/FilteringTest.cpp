// Filters as the chooser applies them: their evaluation, how they are turned off, and their stored form.

#include "tests/dimensions/DimensionChooserFixture.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;

class Filter : public DimensionChooserFixture {
protected:
    /// The rows of two sources that a stored filter on column A leaves.
    Texts Left(const SizeTable& standard, const SizeTable& users = {{"A"}, {}}) {
        return RowsOf(Call(standard, users));
    }
    static constexpr int mark = 0;
    static constexpr int noMark = -1;
};

TEST_F(Filter, EqualComparesNumbersExactly) {
    StoreFilter("A", 1, "12.1");
    EXPECT_EQ(Left({{"A"}, {{"12.1"}, {"12.10"}, {"12.100000001"}, {"12"}, {"1.21e1"}}}),
              (Texts{"12.1", "12.10", "1.21e1"}));
}

TEST_F(Filter, BetweenTakesBothEnds) {
    StoreFilter("A", 2, "5", "7");
    const SizeTable table{{"A"}, {{"4.999"}, {"5"}, {"6"}, {"7"}, {"7.001"}}};
    EXPECT_EQ(Left(table), (Texts{"5", "6", "7"}));
    StoreFilter("A", 2, "5", "5");
    EXPECT_EQ(Left(table), (Texts{"5"}));
}

TEST_F(Filter, SmallerOrEqualLooksAtTheFirstValueOnly) {
    StoreFilter("A", 3, "5", "100");
    EXPECT_EQ(Left({{"A"}, {{"4"}, {"5"}, {"6"}}}), (Texts{"4", "5"}));
}

TEST_F(Filter, GreaterOrEqualLooksAtTheFirstValueOnly) {
    StoreFilter("A", 4, "5", "1");
    EXPECT_EQ(Left({{"A"}, {{"4"}, {"5"}, {"6"}}}), (Texts{"5", "6"}));
}

TEST_F(Filter, ATextThatStartsWithALetterCountsAsZero) {
    StoreFilter("A", 4, "0");
    EXPECT_EQ(Left({{"A"}, {{"long"}, {"12 mm"}, {"-1"}}}), (Texts{"long", "12 mm"}));
    StoreFilter("A", 1, "12");
    EXPECT_EQ(Left({{"A"}, {{"long"}, {"12 mm"}, {"12"}}}), (Texts{"12 mm", "12"}));
}

TEST_F(Filter, AnUnknownTypeRefusesEveryRow) {
    StoreFilter("A", 6, "0");
    EXPECT_EQ(Left({{"A"}, {{"0"}, {"1"}}}), Texts{});
}

TEST_F(Filter, NotANumberRefusesEveryRow) {
    StoreFilter("A", 4, "nan");
    EXPECT_EQ(Left({{"A"}, {{"0"}, {"nan"}}}), Texts{});
}

TEST_F(Filter, OneDatabaseHidesTheRowsOfTheOther) {
    const SizeTable standard{{"A"}, {{"1"}}}, users{{"A"}, {{"2"}}};
    StoreFilter("A", 0, "0", "0", 1);
    EXPECT_EQ(Left(standard, users), (Texts{"1"}));
    StoreFilter("A", 0, "0", "0", 2);
    EXPECT_EQ(Left(standard, users), (Texts{"2"}));
    StoreFilter("A", 0, "0", "0", 3);
    EXPECT_EQ(Left(standard, users), (Texts{"1", "2"}));
    StoreFilter("A", 0, "0", "0", 7);
    EXPECT_EQ(Left(standard, users), Texts{}) << "an unknown database is neither of the two";
}

TEST_F(Filter, OneDatabaseAloneIsAnActiveFilter) {
    StoreFilter("A", 0, "0", "0", 2);
    Look(Call({{"A"}, {{"1"}}}, {{"A"}, {{"2"}}}), [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.List().HeaderImage(1), mark);
        EXPECT_TRUE(chooser.CanTurnOffAll());
    });
}

TEST_F(Filter, TextEqualComparesTheShownTextByteForByte) {
    StoreNumber("A", "FilterType", 5);
    StoreText("A", "FilterString", "5");
    EXPECT_EQ(Left({{"A"}, {{"5"}, {"5.0"}, {"x"}}}), (Texts{"5"})) << "a number compares by its raw text";
    StoreText("A", "FilterString", "Round");
    EXPECT_EQ(Left({{"A"}, {{"round"}, {"Round"}, {"Rounded"}}}), (Texts{"Round"}));
    StoreNumber("A", "Database", 2);
    EXPECT_EQ(Left({{"A"}, {{"Round"}}}, {{"A"}, {{"Round"}, {"x"}}}), (Texts{"Round"}));
}

TEST_F(Filter, TextEqualComparesTranslatedTexts) {
    Translate("SHAPES", {{"round", "circular"}});
    DimensionsCall call = Call({{"A"}, {{"round"}, {"square"}}});
    call.catalog = "SHAPES";
    const DWORD type = 5;
    RegSetKeyValueA(HKEY_LOCAL_MACHINE, Key("A", "SHAPES").c_str(), "FilterType", REG_DWORD, &type, 4);
    RegSetKeyValueA(HKEY_LOCAL_MACHINE, Key("A", "SHAPES").c_str(), "FilterString", REG_SZ, "circular", 9);
    EXPECT_EQ(RowsOf(call), (Texts{"circular"}));
}

TEST_F(Filter, AllColumnsMustAccept) {
    StoreFilter("A", 4, "2");
    StoreFilter("B", 3, "5");
    EXPECT_EQ(Left({{"A", "B"}, {{"1", "1"}, {"2", "9"}, {"3", "5"}, {"2", "4"}}}, {{"A", "B"}, {}}),
              (Texts{"3|5", "2|4"}));
}

TEST_F(Filter, AStoredFilterIsShownAtTheOpening) {
    StoreFilter("B", 1, "2");
    Look(Call({{"A", "B"}, {{"1", "1"}, {"2", "2"}}}), [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"2|2"}));
        EXPECT_EQ(chooser.List().HeaderImage(1), noMark);
        EXPECT_EQ(chooser.List().HeaderImage(2), mark);
        EXPECT_TRUE(chooser.CanTurnOffAll());
    });
}

TEST_F(Filter, WithoutOneTheButtonIsGrayAndNoHeaderHasAMark) {
    Look(Call({{"A", "B"}, {{"1", "x"}}}), [](DimensionChooser& chooser) {
        EXPECT_FALSE(chooser.CanTurnOffAll());
        EXPECT_EQ(chooser.List().HeaderImage(1), noMark);
        EXPECT_EQ(chooser.List().HeaderImage(2), noMark);
    });
}

TEST_F(Filter, TheMarkLeavesTheAlignmentOfACaption) {
    StoreFilter("A", 4, "0");
    StoreFilter("B", 4, "0");
    Look(Call({{"A", "B"}, {{"1", "x"}}}), [](DimensionChooser& chooser) {
        EXPECT_EQ(HDF_CENTER, chooser.List().HeaderFormat(1) & HDF_JUSTIFYMASK);
        EXPECT_EQ(HDF_LEFT, chooser.List().HeaderFormat(2) & HDF_JUSTIFYMASK);
        chooser.TurnOffAll();
        EXPECT_EQ(HDF_CENTER, chooser.List().HeaderFormat(1) & (HDF_JUSTIFYMASK | HDF_IMAGE));
        EXPECT_EQ(HDF_LEFT, chooser.List().HeaderFormat(2) & (HDF_JUSTIFYMASK | HDF_IMAGE));
        EXPECT_TRUE(chooser.List().HeaderFormat(1) & HDF_STRING);
    });
}

TEST_F(Filter, AllAreTurnedOffAtOnce) {
    StoreFilter("A", 1, "1");
    StoreFilter("C", 0, "0", "0", 1);
    const DimensionsCall call =
        Call({{"A", "B", "C"}, {{"1", "2", "3"}, {"4", "5", "6"}}}, {{"A", "B", "C"}, {{"1", "8", "9"}}});
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"1|2|3"}));
        chooser.TurnOffAll();
        EXPECT_EQ(chooser.Rows(), (Texts{"1|2|3", "4|5|6", "1|8|9"}));
        for (const int column : {1, 2, 3})
            EXPECT_EQ(chooser.List().HeaderImage(column), noMark);
        EXPECT_FALSE(chooser.CanTurnOffAll());
    });
    EXPECT_EQ(0u, StoredNumber("A", "FilterType"));
    EXPECT_EQ(3u, StoredNumber("C", "Database"));
}

TEST_F(Filter, OneIsTurnedOffInTheMenuAndTheButtonGraysWithTheLast) {
    StoreFilter("A", 1, "1");
    StoreFilter("B", 1, "2");
    Look(Call({{"A", "B"}, {{"1", "2"}, {"1", "3"}, {"4", "2"}}}), [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"1|2"}));
        chooser.Menu(1, MenuItem::TurnOffFilter);
        EXPECT_EQ(chooser.Rows(), (Texts{"1|2", "4|2"}));
        EXPECT_EQ(chooser.List().HeaderImage(1), noMark);
        EXPECT_EQ(chooser.List().HeaderImage(2), mark);
        EXPECT_TRUE(chooser.CanTurnOffAll());
        chooser.Menu(2, MenuItem::TurnOffFilter);
        EXPECT_EQ(chooser.Rows(), (Texts{"1|2", "1|3", "4|2"}));
        EXPECT_EQ(chooser.List().HeaderImage(2), noMark);
        EXPECT_FALSE(chooser.CanTurnOffAll());
    });
}

TEST_F(Filter, TurnedOffInTheMenuTakesBothDatabasesAgain) {
    StoreFilter("A", 1, "1", "5", 1);
    Look(Call({{"A"}, {{"1"}}}, {{"A"}, {{"1"}}}), [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"1"}));
        chooser.Menu(1, MenuItem::TurnOffFilter);
        EXPECT_EQ(chooser.Rows(), (Texts{"1", "1"}));
    });
    EXPECT_EQ(0u, StoredNumber("A", "FilterType"));
    EXPECT_EQ(3u, StoredNumber("A", "Database"));
    EXPECT_EQ(StoredText("A", "LowerLimit"), Whole("0"));
    EXPECT_EQ(StoredText("A", "UpperLimit"), Whole("0"));
}

TEST_F(Filter, IsKeptAfterCancelAndAfterOk) {
    const DimensionsCall call = Call({{"A"}, {{"1"}, {"2"}, {"3"}}});
    Look(call, [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        dialog.Check(IDC_FILTER_GREATER_OR_EQUAL);
        dialog.SetLower("2");
        dialog.Ok();
    });
    EXPECT_EQ(4u, StoredNumber("A", "FilterType"));
    EXPECT_EQ(RowsOf(call), (Texts{"2", "3"}));
    Choose(call, [](DimensionChooser& chooser) {
        chooser.TurnOffAll();
        chooser.Ok();
    });
    EXPECT_EQ(RowsOf(call), (Texts{"1", "2", "3"}));
}

TEST_F(Filter, IsKeptForEachComponentByItself) {
    DimensionsCall call = Call({{"A"}, {{"1"}, {"2"}}});
    StoreFilter("A", 1, "1");
    EXPECT_EQ(RowsOf(call), (Texts{"1"}));
    call.component = "OTHER";
    EXPECT_EQ(RowsOf(call), (Texts{"1", "2"}));
    EXPECT_TRUE(KeyExists(Key("A", "TEST", "OTHER")));
    call.catalog = "OTHER";
    call.component = "PART";
    EXPECT_EQ(RowsOf(call), (Texts{"1", "2"}));
}

}  // namespace
}  // namespace nux
