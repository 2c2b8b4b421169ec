// Sorting: the menu's two directions, the odd order of texts, and what a sort leaves behind.

#include "tests/dimensions/DimensionChooserFixture.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;

class Sort : public DimensionChooserTest {
protected:
    /// The column after a sort of its cells with the menu.
    Texts Sorted(const Texts& cells, MenuItem direction) {
        SizeTable table{{"A"}, {}};
        for (const std::string& cell : cells)
            table.rows.push_back({cell});
        Texts sorted;
        Look(Call(table), [&](DimensionChooser& chooser) {
            chooser.Menu(1, direction);
            sorted = chooser.Rows();
        });
        return sorted;
    }
    Texts Ascending(const Texts& cells) { return Sorted(cells, MenuItem::SortAscending); }
    Texts Descending(const Texts& cells) { return Sorted(cells, MenuItem::SortDescending); }
};

TEST_F(Sort, NumbersGoByTheirValue) {
    EXPECT_EQ(Ascending({"5", "10", "9"}), (Texts{"5", "9", "10"}));
    EXPECT_EQ(Descending({"5", "10", "9"}), (Texts{"10", "9", "5"}));
    EXPECT_EQ(Ascending({"1e2", "-3", "", "inf", "0x10", "2.5"}),
              (Texts{"-3", "", "2.5", "0x10", "1e2", "inf"}));
}

TEST_F(Sort, EqualNumbersStayInTheirOrder) {
    EXPECT_EQ(Ascending({"5.0", "1", "5", "5.00"}), (Texts{"1", "5.0", "5", "5.00"}));
}

TEST_F(Sort, ATextIsGreaterOnlyByOneCharacter) {
    EXPECT_EQ(Ascending({"b", "a"}), (Texts{"a", "b"}));
    EXPECT_EQ(Descending({"a", "b"}), (Texts{"b", "a"}));
    if (DoubleByteCodePage()) {
        EXPECT_EQ(Ascending({"c", "a"}), (Texts{"a", "c"})) << "there the comparison knows only its sign";
        EXPECT_EQ(Descending({"a", "c"}), (Texts{"c", "a"}));
    } else {
        EXPECT_EQ(Ascending({"c", "a"}), (Texts{"c", "a"}));
        EXPECT_EQ(Descending({"c", "a"}), (Texts{"a", "c"}));
    }
}

TEST_F(Sort, TextsDoNotCareForCase) {
    EXPECT_EQ(Ascending({"ABD", "abc"}), (Texts{"abc", "ABD"}));
    EXPECT_EQ(Ascending({"abc", "ABC", "Abc"}), (Texts{"abc", "ABC", "Abc"}));
}

TEST_F(Sort, TextsGoByCharactersAlsoWhereTheyStartWithNumbers) {
    EXPECT_EQ(Ascending({"2x", "1x", "1y"}), (Texts{"1x", "1y", "2x"}));
    EXPECT_EQ(Ascending({"10x", "9x"}), (Texts{"10x", "9x"})) << "as numbers, 9 would come first";
}

TEST_F(Sort, TheFirst127CharactersOfACellAreItsKey) {
    const std::string start(126, 'x');
    Translate("LONG", {{"late", start + "bb"}, {"same", start + "ba"}, {"early", start + "a"}});
    DimensionsCall call = Call({{"A"}, {{"late"}, {"same"}, {"early"}}});
    call.catalog = "LONG";
    Look(call, [&](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortAscending);
        EXPECT_EQ(chooser.Rows(), (Texts{start + "a", start + "bb", start + "ba"}));
    });
}

TEST_F(Sort, UmlautsFoldTheirCase) {
    if (DoubleByteCodePage())
        GTEST_SKIP() << "code page 932 has no umlauts";
    EXPECT_EQ(Ascending({"\xC3\x9C"
                         "b",
                         "\xC3\xBC"
                         "a"}),
              (Texts{"\xFC"
                     "a",
                     "\xDC"
                     "b"}));
}

TEST_F(Sort, GivesTheRowThatTheUserSees) {
    const SizeTable table{{"A", "B"}, {{"5", "first"}, {"10", "second"}, {"9", "third"}}};
    const DimensionsResult result = Choose(Call(table), [](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortDescending);
        EXPECT_EQ(chooser.Rows(), (Texts{"10|second", "9|third", "5|first"}));
        chooser.Take(1);
    });
    EXPECT_EQ(result.Value("B"), "third");
}

TEST_F(Sort, LeavesTheSelectionOnItsRow) {
    const DimensionsResult result =
        Choose(Call({{"A"}, {{"2"}, {"3"}, {"1"}}}), [](DimensionChooser& chooser) {
            chooser.Menu(1, MenuItem::SortAscending);
            EXPECT_EQ(chooser.List().Selected(), (std::vector<int>{1}));
            chooser.Ok();
        });
    EXPECT_EQ(result.Value("A"), "2");
}

TEST_F(Sort, OneColumnAfterAnotherTakesTheRowsAsTheyStand) {
    const SizeTable table{{"A", "B"}, {{"1", "2"}, {"2", "1"}, {"3", "2"}, {"4", "1"}}};
    Look(Call(table), [](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortDescending);
        chooser.Menu(2, MenuItem::SortAscending);
        EXPECT_EQ(chooser.Rows(), (Texts{"4|1", "2|1", "3|2", "1|2"}));
    });
}

TEST_F(Sort, LastsUntilAFilterChanges) {
    Look(Call({{"A"}, {{"5"}, {"10"}, {"9"}}}), [](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortAscending);
        const FilterDialog dialog = chooser.DefineFilter(1);
        dialog.Check(IDC_FILTER_GREATER_OR_EQUAL);
        dialog.SetLower("6");
        dialog.Check(IDC_SORT_NONE);
        dialog.Ok();
        EXPECT_EQ(chooser.Rows(), (Texts{"10", "9"}));
        chooser.TurnOffAll();
        EXPECT_EQ(chooser.Rows(), (Texts{"5", "10", "9"}));
    });
}

TEST_F(Sort, LeavesNoMarkAndIsNotKept) {
    const DimensionsCall call = Call({{"A"}, {{"5"}, {"10"}, {"9"}}});
    Look(call, [](DimensionChooser& chooser) {
        const int before = chooser.List().HeaderFormat(1);
        chooser.Menu(1, MenuItem::SortAscending);
        EXPECT_EQ(chooser.List().HeaderFormat(1), before);
    });
    EXPECT_EQ(RowsOf(call), (Texts{"5", "10", "9"}));
}

TEST_F(Sort, ATableWithoutRowsStaysEmpty) {
    Look(Call({{"A"}, {}}), [](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortAscending);
        EXPECT_EQ(chooser.List().RowCount(), 0);
    });
}

TEST_F(Sort, FromTheFilterDialogIsAscendingForBothOfItsChoices) {
    Look(Call({{"A"}, {{"5"}, {"10"}, {"9"}}}), [](DimensionChooser& chooser) {
        for (const int choice : {IDC_SORT_DESCENDING, IDC_SORT_ASCENDING}) {
            chooser.Menu(1, MenuItem::SortDescending);
            const FilterDialog dialog = chooser.DefineFilter(1);
            dialog.Check(choice);
            dialog.Ok();
            EXPECT_EQ(chooser.Rows(), (Texts{"5", "9", "10"}));
        }
    });
}

TEST_F(Sort, FromTheFilterDialogWithNoneGivesTheOrderOfTheFile) {
    Look(Call({{"A"}, {{"5"}, {"10"}, {"9"}}}), [](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortDescending);
        const FilterDialog dialog = chooser.DefineFilter(1);
        dialog.Check(IDC_SORT_NONE);
        dialog.Ok();
        EXPECT_EQ(chooser.Rows(), (Texts{"5", "10", "9"}));
    });
}

TEST_F(Sort, ManyRowsKeepTheirNodes) {
    SizeTable table{{"A", "B"}, {}};
    for (int i = 0; i < 500; ++i)
        table.rows.push_back({std::to_string(i * 7919 % 500), "n" + std::to_string(i)});
    std::string shown;
    const DimensionsResult result = Choose(Call(table), [&](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortAscending);
        for (int row = 0; row < 500; ++row)
            EXPECT_EQ(chooser.List().Cell(row, 1), std::to_string(row));
        shown = chooser.List().Cell(3, 2);
        chooser.Take(3);
    });
    EXPECT_EQ(result.Value("B"), shown);
    EXPECT_EQ(result.Value("A"), "3");
}

}  // namespace
}  // namespace nux
