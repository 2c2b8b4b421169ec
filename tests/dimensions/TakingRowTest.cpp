// Which row is selected at the opening, and which one the chooser gives back.

#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/PointerInput.h"
#include "driver/Waiting.h"
#include "tests/dimensions/DimensionChooserFixture.h"

namespace nux {
namespace {

using Rows = std::vector<int>;

const SizeTable sizes{{"A", "B"}, {{"1", "x"}, {"2", "y"}, {"2", "z"}, {"3", ""}}};

class DefaultRow : public DimensionChooserFixture {
protected:
    /// The row that is selected at the opening, with these default values.
    int Selected(const SizeTable& table, const std::optional<std::string>& defaults) {
        DimensionsCall call = Call(table);
        call.defaults = defaults;
        int selected = -1;
        Look(call, [&](DimensionChooser& chooser) {
            const Rows rows = chooser.List().Selected();
            ASSERT_LE(rows.size(), 1u);
            if (rows.empty())
                return;
            selected = rows[0];
            EXPECT_EQ(chooser.List().Focused(), selected);
            EXPECT_TRUE(chooser.List().InSight(selected));
        });
        return selected;
    }
};

TEST_F(DefaultRow, IsTheFirstWithoutDefaultValues) {
    EXPECT_EQ(0, Selected(sizes, std::nullopt));
}

TEST_F(DefaultRow, IsTheFirstOneThatMatchesAll) {
    EXPECT_EQ(1, Selected(sizes, "<d><A>2</A></d>"));
    EXPECT_EQ(2, Selected(sizes, "<d><A>2</A><B>z</B></d>"));
    EXPECT_EQ(1, Selected(sizes, "<d><B>y</B></d>"));
}

TEST_F(DefaultRow, AnEmptyOrMissingValueMatchesEverything) {
    EXPECT_EQ(0, Selected(sizes, "<d/>"));
    EXPECT_EQ(3, Selected(sizes, "<d><A>3</A><B></B></d>"));
    EXPECT_EQ(0, Selected(sizes, "<d><Other>9</Other></d>"));
}

TEST_F(DefaultRow, IsTheFirstRowIfNoneMatches) {
    EXPECT_EQ(0, Selected(sizes, "<d><A>9</A></d>"));
    EXPECT_EQ(0, Selected(sizes, "<d><A>1</A><B>y</B></d>"));
}

TEST_F(DefaultRow, ComparesTheTextsNotTheNumbers) {
    EXPECT_EQ(2, Selected({{"A"}, {{"1"}, {"2.0"}, {"2"}}}, "<d><A>2</A></d>"));
    EXPECT_EQ(2, Selected({{"A"}, {{"x"}, {"ABC"}, {"abc"}}}, "<d><A>abc</A></d>"));
}

TEST_F(DefaultRow, ReadsElementsNotAttributes) {
    EXPECT_EQ(0, Selected(sizes, "<d A='2'/>"));
}

TEST_F(DefaultRow, ComparesTheFirst127CharactersOfAValue) {
    const std::string start(127, 'y');
    EXPECT_EQ(1, Selected({{"A"}, {{"x"}, {start + "1"}}}, "<d><A>" + start + "2</A></d>"));
}

TEST_F(DefaultRow, ATranslatedCellMatchesOnlyWhatItShows) {
    Translate("DEFAULTS", {{"round", "circular"}});
    DimensionsCall call = Call({{"A"}, {{"square"}, {"round"}}});
    call.catalog = "DEFAULTS";
    call.defaults = "<d><A>round</A></d>";
    Look(call, [](DimensionChooser& chooser) { EXPECT_EQ(chooser.List().Selected(), (Rows{0})); });
    call.defaults = "<d><A>circular</A></d>";
    Look(call, [](DimensionChooser& chooser) { EXPECT_EQ(chooser.List().Selected(), (Rows{1})); });
}

TEST_F(DefaultRow, AValueThatIsNoStringMatchesEverything) {
    const std::string types = "<d xmlns:dt='urn:schemas-microsoft-com:datatypes'><A dt:dt=";
    EXPECT_EQ(3, Selected(sizes, types + "'string'>3</A></d>"));
    EXPECT_EQ(0, Selected(sizes, types + "'int'>3</A></d>"));
}

TEST_F(DefaultRow, ComesIntoSightFarDown) {
    SizeTable table{{"A"}, {}};
    for (int i = 0; i < 300; ++i)
        table.rows.push_back({std::to_string(i)});
    EXPECT_EQ(250, Selected(table, "<d><A>250</A></d>"));
}

TEST_F(DefaultRow, IsNoneWithoutRows) {
    EXPECT_EQ(-1, Selected({{"A"}, {}}, "<d><A>1</A></d>"));
}

TEST_F(DefaultRow, IsLookedForAmongTheRowsThatFiltersLeave) {
    StoreFilter("A", 4, "2");
    EXPECT_EQ(0, Selected(sizes, "<d><A>1</A></d>"));
    EXPECT_EQ(2, Selected(sizes, "<d><A>3</A></d>"));
}

class TakingRow : public DimensionChooserFixture {
protected:
    const DimensionsCall call = Call({{"A"}, {{"1"}, {"2"}, {"3"}}}, {{"A"}, {{"4"}}});

    /// A point of the list below its rows.
    static POINT BesideTheRows(const DimensionChooser& chooser) {
        const RECT last = chooser.List().CellBounds(chooser.List().RowCount() - 1, 1);
        return {last.left + 5, last.bottom + 30};
    }
};

TEST_F(TakingRow, OkGivesTheSelectedOneOfEitherSource) {
    EXPECT_EQ("1", Choose(call, [](DimensionChooser& chooser) { chooser.Ok(); }).Value("A"));
    EXPECT_EQ("3", Choose(call, [](DimensionChooser& chooser) { chooser.Take(2); }).Value("A"));
    EXPECT_EQ("4", Choose(call, [](DimensionChooser& chooser) { chooser.Take(3); }).Value("A"));
}

TEST_F(TakingRow, ADoubleClickOnARowTakesIt) {
    const DimensionsResult result = Choose(call, [](DimensionChooser& chooser) {
        driver::DoubleClick(chooser.List().Handle(), chooser.List().CellMiddle(1, 1));
        driver::WaitUntilGone(chooser.Window());
    });
    EXPECT_EQ("2", result.Value("A"));
}

TEST_F(TakingRow, ADoubleClickOfTheRealPointerTakesTheRowUnderIt) {
    const DimensionsResult result = Choose(call, [](DimensionChooser& chooser) {
        driver::MovePointer(driver::OnScreen(chooser.List().Handle(), chooser.List().CellMiddle(2, 1)));
        driver::DoubleClickPointer();
        driver::WaitUntilGone(chooser.Window());
    });
    EXPECT_EQ("3", result.Value("A"));
}

TEST_F(TakingRow, ADoubleClickBesideTheRowsTakesNoneSinceItsFirstClickLeavesNoneSelected) {
    const DimensionsResult result = Choose(call, [](DimensionChooser& chooser) {
        chooser.List().ClickRow(2);
        chooser.User().Settle();
        driver::MovePointer(driver::OnScreen(chooser.List().Handle(), BesideTheRows(chooser)));
        driver::DoubleClickPointer();
        driver::WaitUntilGone(chooser.Window());
    });
    EXPECT_EQ(S_OK, result.answer);
    EXPECT_TRUE(result.written);
    EXPECT_FALSE(result.row);
}

TEST_F(TakingRow, ARowWhoseDataSomebodyElseHasSetIsNone) {
    const DimensionsResult result = Choose(call, [](DimensionChooser& chooser) {
        LVITEMA foreign{};
        foreign.mask = LVIF_PARAM;
        foreign.iItem = 0;
        foreign.lParam = 0x1234;
        ASSERT_TRUE(driver::AskWith(chooser.List().Handle(), LVM_SETITEMA, 0, foreign));
        chooser.Ok();
    });
    EXPECT_EQ(S_OK, result.answer);
    EXPECT_TRUE(result.written);
    EXPECT_FALSE(result.row);
}

TEST_F(TakingRow, WithoutASelectionOkGivesNoRow) {
    const DimensionsResult result = Choose(call, [](DimensionChooser& chooser) {
        driver::Click(chooser.List().Handle(), BesideTheRows(chooser));
        chooser.User().Settle();
        ASSERT_TRUE(chooser.List().Selected().empty());
        chooser.Ok();
    });
    EXPECT_EQ(S_OK, result.answer);
    EXPECT_TRUE(result.written);
    EXPECT_FALSE(result.row);
}

TEST_F(TakingRow, EnterTakesItAndEscapeLeaves) {
    const DimensionsResult taken = Choose(call, [](DimensionChooser& chooser) {
        driver::PressKey(chooser.List().Handle(), VK_DOWN);
        driver::PressKey(chooser.List().Handle(), VK_RETURN);
        driver::WaitUntilGone(chooser.Window());
    });
    EXPECT_EQ("2", taken.Value("A"));
    const DimensionsResult left = Choose(call, [](DimensionChooser& chooser) {
        driver::PressKey(chooser.List().Handle(), VK_ESCAPE);
        driver::WaitUntilGone(chooser.Window());
    });
    EXPECT_EQ(S_OK, left.answer);
    EXPECT_FALSE(left.written);
}

TEST_F(TakingRow, TheCloseBoxLeavesWithoutARow) {
    const DimensionsResult result = Choose(call, [](DimensionChooser& chooser) {
        PostMessageA(chooser.Window(), WM_SYSCOMMAND, SC_CLOSE, 0);
        driver::WaitUntilGone(chooser.Window());
    });
    EXPECT_EQ(S_OK, result.answer);
    EXPECT_FALSE(result.written);
}

TEST_F(TakingRow, OnlyOneRowIsEverSelected) {
    Look(call, [](DimensionChooser& chooser) {
        chooser.List().ClickRow(1);
        driver::PostMouse(chooser.List().Handle(), WM_LBUTTONDOWN, chooser.List().CellMiddle(2, 1),
                          MK_LBUTTON | MK_CONTROL);
        driver::PostMouse(chooser.List().Handle(), WM_LBUTTONUP, chooser.List().CellMiddle(2, 1), MK_CONTROL);
        chooser.User().Settle();
        EXPECT_EQ(chooser.List().Selected(), (Rows{2}));
    });
}

TEST_F(TakingRow, ARowOutlivesDialogAndObject) {
    ComPtr<IXMLDOMNode> row;
    {
        SizeTable table{{"A"}, {{"kept"}}};
        row = Choose(Call(table), [](DimensionChooser& chooser) { chooser.Ok(); }).row;
    }
    ReleaseObject();
    EXPECT_EQ("kept", AttributeOf(row, "A"));
    ComPtr<IXMLDOMDocument> document;
    EXPECT_EQ(S_OK, row->get_ownerDocument(document.Receive()));
}

TEST_F(TakingRow, ARefillGivesRowsAnew) {
    const DimensionsResult result = Choose(call, [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        dialog.Check(IDC_FILTER_GREATER_OR_EQUAL);
        dialog.SetLower("3");
        dialog.Ok();
        chooser.Take(1);
    });
    EXPECT_EQ("4", result.Value("A"));
}

}  // namespace
}  // namespace nux
