// Sorting: the menu's two directions, the odd order of texts, and what a sort leaves behind.

#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;

class Sort : public DimensionChooserFixture {
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

TEST_F(Sort, EqualNumbersStandTogether) {
    const Texts sorted = Ascending({"5.0", "7", "1", "5", "5.00"});
    EXPECT_EQ(sorted.front(), "1");
    EXPECT_EQ(sorted.back(), "7");
}

TEST_F(Sort, ATextIsGreaterOnlyByOneCharacter) {
    EXPECT_EQ(Ascending({"b", "a"}), (Texts{"a", "b"}));
    EXPECT_EQ(Descending({"a", "b"}), (Texts{"b", "a"}));
    if (DoubleByteCodePage()) {
        EXPECT_EQ(Ascending({"c", "a"}), (Texts{"a", "c"})) << "there the comparison knows only its sign";
        EXPECT_EQ(Descending({"a", "c"}), (Texts{"c", "a"}));
    }
    // Elsewhere each of the two comes before the other: what the list makes of that is its own affair.
}

TEST_F(Sort, TextsDoNotCareForCase) {
    EXPECT_EQ(Ascending({"ABD", "abc"}), (Texts{"abc", "ABD"}));
    const Texts sorted = Ascending({"ABD", "abc", "ABD", "ABC", "Abc"});
    EXPECT_EQ((Texts{sorted[3], sorted[4]}), (Texts{"ABD", "ABD"}));
}

TEST_F(Sort, TextsGoByCharactersAlsoWhereTheyStartWithNumbers) {
    EXPECT_EQ(Ascending({"2x", "1x", "1y"}), (Texts{"1x", "1y", "2x"}));
    EXPECT_EQ(Ascending({"2x", "10x"}), (Texts{"10x", "2x"})) << "as numbers, 2 would come first";
}

TEST_F(Sort, TheFirst127CharactersOfACellAreItsKey) {
    const std::string start(126, 'x');
    Translate("LONG", {{"late", start + "bb"}, {"same", start + "ba"}, {"early", start + "a"}});
    DimensionsCall call = Call({{"A"}, {{"late"}, {"same"}, {"early"}}});
    call.catalog = "LONG";
    Look(call, [&](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortAscending);
        const Texts sorted = chooser.Rows();
        EXPECT_EQ(sorted[0], start + "a");
        // What lies behind would tell the other two apart, but is not looked at: either may come first.
        chooser.Menu(1, MenuItem::SortDescending);
        EXPECT_EQ(chooser.Rows()[2], start + "a");
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

TEST_F(Sort, TextsFoldTheirCaseInTheThreadsCodePage) {
    if (DoubleByteCodePage())
        GTEST_SKIP() << "the list shows Cyrillic letters as others there";
    // In the system's western code page these two bytes are no pair.
    const ThreadLocale locale(russian);
    EXPECT_EQ(Ascending({"\xD0\xAF"
                         "b",
                         "\xD1\x8F"
                         "a"}),
              (Texts{"\xFF"
                     "a",
                     "\xDF"
                     "b"}));
}

TEST_F(Sort, DoubleByteLettersFoldTheirCase) {
    if (!DoubleByteCodePage())
        GTEST_SKIP() << "needs a code page of double-byte characters";
    const std::string large = "\xEF\xBC\xA1", small = "\xEF\xBD\x81";  // the letter A in full width
    EXPECT_EQ(Ascending({large + "b", small + "a"}), (Texts{Ansi(small) + "a", Ansi(large) + "b"}));
    EXPECT_EQ(Ascending({small + "b", large + "a"}), (Texts{Ansi(large) + "a", Ansi(small) + "b"}));
}

TEST_F(Sort, GivesTheRowThatTheUserSees) {
    const SizeTable table{{"A", "B"}, {{"5", "first"}, {"10", "second"}, {"9", "third"}}};
    const DimensionsResult result = Choose(Call(table), [](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortDescending);
        EXPECT_EQ(chooser.Rows(), (Texts{"10|second", "9|third", "5|first"}));
        chooser.Take(1);
    });
    EXPECT_EQ("third", result.Value("B"));
}

TEST_F(Sort, LeavesTheSelectionOnItsRow) {
    const DimensionsResult result =
        Choose(Call({{"A"}, {{"2"}, {"3"}, {"1"}}}), [](DimensionChooser& chooser) {
            chooser.Menu(1, MenuItem::SortAscending);
            EXPECT_EQ((std::vector<int>{1}), chooser.List().Selected());
            chooser.Ok();
        });
    EXPECT_EQ("2", result.Value("A"));
}

TEST_F(Sort, OfOneColumnAfterAnotherLeavesTheOrderOfTheLast) {
    const SizeTable table{{"A", "B"}, {{"1", "2"}, {"2", "4"}, {"3", "1"}, {"4", "3"}}};
    Look(Call(table), [](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortDescending);
        chooser.Menu(2, MenuItem::SortAscending);
        EXPECT_EQ(chooser.Rows(), (Texts{"3|1", "1|2", "4|3", "2|4"}));
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
        EXPECT_EQ(0, chooser.List().RowCount());
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
    EXPECT_EQ("3", result.Value("A"));
}

}  // namespace
}  // namespace nux
