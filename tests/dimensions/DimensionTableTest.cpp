// The table of the chooser: its columns, its rows, and what makes a column one of numbers or of texts.

#include "driver/Canvas.h"
#include "driver/Messages.h"
#include "resources/resource.h"
#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/support/DebuggerLines.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;

constexpr COLORREF paper = RGB(255, 0, 255);

class Table : public DimensionChooserFixture {
protected:
    /// Whether a column counts as one of numbers, as its header shows it.
    static bool IsNumeric(const DimensionChooser& chooser, int column) {
        return (chooser.List().HeaderFormat(column) & HDF_JUSTIFYMASK) == HDF_CENTER;
    }
};

TEST_F(Table, HasANarrowMarkerColumnAndOneForEachDimension) {
    Look(Call({{"A", "B"}, {{"1", "2"}}}), [](DimensionChooser& chooser) {
        const driver::ListView& list = chooser.List();
        ASSERT_EQ(3, list.ColumnCount());
        EXPECT_EQ(20, list.Width(0));
        EXPECT_EQ("", list.Caption(0));
        EXPECT_EQ("", list.Cell(0, 0));
        EXPECT_EQ(1, list.HeaderImage(0));
        EXPECT_TRUE(list.HeaderFormat(0) & HDF_STRING);
        EXPECT_EQ("A", list.Caption(1));
        EXPECT_EQ("B", list.Caption(2));
        EXPECT_EQ(50, list.Width(1));
        EXPECT_EQ(50, list.Width(2));
        EXPECT_EQ((std::vector<int>{0, 1, 2}), list.Order());
        EXPECT_EQ(2, SendMessageA(list.Header(), HDM_GETBITMAPMARGIN, 0, 0));
    });
}

TEST_F(Table, TakesTheCaptionFromTheTextOfANameAndElseFromTheNameItself) {
    DimensionsCall call = Call({{"A", "B", "C"}, {{"1", "2", "3"}}});
    call.names = "<n><A>Length</A><B/><C>Bore</C></n>";
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ("Length", chooser.List().Caption(1));
        EXPECT_EQ("B", chooser.List().Caption(2));
        EXPECT_EQ("Bore", chooser.List().Caption(3));
        EXPECT_EQ(chooser.Rows(), (Texts{"1|2|3"}));
    });
}

TEST_F(Table, TranslatesCaptionsAndTextsOfTheCatalogueButNotNumbers) {
    Translate("TRANSLATED", {{"Length", "Extent"}, {"B", "Kind"}, {"round", "circular"}, {"12", "twelve"}});
    DimensionsCall call = Call({{"A", "B"}, {{"12", "round"}, {"5", "square"}}});
    call.catalog = "TRANSLATED";
    call.names = "<n><A>Length</A><B/></n>";
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ("Extent", chooser.List().Caption(1));
        EXPECT_EQ("Kind", chooser.List().Caption(2));
        EXPECT_EQ(chooser.Rows(), (Texts{"12|circular", "5|square"}));
    });
}

TEST_F(Table, ShowsTheStandardRowsFirstThenTheUsersEachInTheOrderOfTheFile) {
    Look(Call({{"A"}, {{"9"}, {"1"}, {"5"}}}, {{"A"}, {{"7"}, {"2"}}}), [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"9", "1", "5", "7", "2"}));
        const driver::ListView& list = chooser.List();
        const std::vector<int> images{list.Image(0), list.Image(1), list.Image(2), list.Image(3),
                                      list.Image(4)};
        EXPECT_EQ((std::vector<int>{1, 1, 1, 0, 0}), images) << "only the user's rows have an icon";
    });
}

TEST_F(Table, HasOneIconForTheUsersRows) {
    Look(Call({{"A"}, {{"9"}}}), [](DimensionChooser& chooser) {
        const auto images = reinterpret_cast<HIMAGELIST>(
            SendMessageA(chooser.List().Handle(), LVM_GETIMAGELIST, LVSIL_SMALL, 0));
        EXPECT_EQ(1, ImageList_GetImageCount(images));
        int width = 0, height = 0;
        ImageList_GetIconSize(images, &width, &height);
        EXPECT_EQ(16, width);
        EXPECT_EQ(16, height);
        EXPECT_TRUE(driver::DrawnImage(images, 0, paper) == driver::IconResource(IDI_USER_ROW, paper));
    });
}

TEST_F(Table, HasTheMarkOfFiltersAndThatOfTheUsersRowsForItsHeader) {
    Look(Call({{"A"}, {{"9"}}}), [](DimensionChooser& chooser) {
        const auto images =
            reinterpret_cast<HIMAGELIST>(SendMessageA(chooser.List().Header(), HDM_GETIMAGELIST, 0, 0));
        ASSERT_EQ(2, ImageList_GetImageCount(images));
        int width = 0, height = 0;
        ImageList_GetIconSize(images, &width, &height);
        EXPECT_EQ(16, width);
        EXPECT_EQ(16, height);
        EXPECT_TRUE(driver::DrawnImage(images, 0, paper) == driver::IconResource(IDI_FILTER, paper));
        EXPECT_TRUE(driver::DrawnImage(images, 1, paper) == driver::IconResource(IDI_USER_ROW, paper));
    });
}

TEST_F(Table, AlignsItsColumnsAsTheirCaptions) {
    Look(Call({{"A", "B"}, {{"1", "x"}}}), [](DimensionChooser& chooser) {
        struct {
            int column, cells, caption;
        } const expected[] = {
            {0, LVCFMT_RIGHT, HDF_LEFT}, {1, LVCFMT_CENTER, HDF_CENTER}, {2, LVCFMT_LEFT, HDF_LEFT}};
        for (const auto& [column, cells, caption] : expected) {
            LVCOLUMNA found{};
            found.mask = LVCF_FMT | LVCF_SUBITEM;
            driver::AskWith(chooser.List().Handle(), LVM_GETCOLUMNA, column, found);
            EXPECT_EQ(found.fmt & LVCFMT_JUSTIFYMASK, cells) << column;
            EXPECT_EQ(found.iSubItem, column);
            EXPECT_EQ(chooser.List().HeaderFormat(column) & HDF_JUSTIFYMASK, caption) << column;
        }
    });
}

TEST_F(Table, ReadsNamesWithAPrefix) {
    DimensionsCall call;
    call.names = "<n xmlns:p='u'><p:A/><B/></n>";
    call.standard = "<r xmlns:p='u'><s A='9' p:A='1' B='x'><p:A>1</p:A></s></r>";
    call.users = "<r xmlns:p='u'><s p:A='2' B='y'><p:A>2</p:A></s></r>";
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ("p:A", chooser.List().Caption(1));
        EXPECT_EQ(chooser.Rows(), (Texts{"1|x", "2|y"}));
        QuickFilterGesture(chooser, 1, 1).Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"1|x"}));
    });
}

TEST_F(Table, ReadsAListFromItsStartWhereverItsReaderHasLeftIt) {
    const auto names = SelectNodes(RootOf(ParseXml("<n><A/><B/></n>")), L"*");
    const auto rows = SelectNodes(RootOf(ParseXml("<r><s A='1' B='2'/><s A='3' B='4'/></r>")), L"*");
    ComPtr<IXMLDOMNode> passed;
    names->nextNode(passed.Receive());
    rows->nextNode(passed.Receive());
    rows->nextNode(passed.Receive());
    ChooseFrom(names.Get(), rows.As<IDispatch>(), [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"1|2", "3|4"}));
        chooser.Cancel();
    });
}

TEST_F(Table, AWordTurnsItsColumnIntoTextAndLeavesTheCellsAboveIt) {
    Translate("WORDS", {{"12.50", "translated by mistake"}, {"round", "circular"}});
    DimensionsCall call = Call({{"A", "B"}, {{"12.50", "1"}, {"round", "2"}, {"12.50", "3"}}});
    call.catalog = "WORDS";
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"12.50|1", "circular|2", "12.50|3"}));
        EXPECT_FALSE(IsNumeric(chooser, 1));
        EXPECT_TRUE(IsNumeric(chooser, 2));
    });
}

TEST_F(Table, AWordOfTheUsersTurnsTheColumnToo) {
    Look(Call({{"A"}, {{"1"}}}, {{"A"}, {{"x"}}}),
         [](DimensionChooser& chooser) { EXPECT_FALSE(IsNumeric(chooser, 1)); });
}

TEST_F(Table, AMissingAttributeEndsItsSourceThereAndOnlyThat) {
    DimensionsCall call;
    call.names = "<n><A/><B/></n>";
    call.standard = "<r><s A='1' B='2'/><s A='3'/><s A='5' B='6'/></r>";
    call.users = "<r><s A='7' B='8'/><s B='9'/><s A='1' B='1'/></r>";
    EXPECT_EQ(RowsOf(call), (Texts{"1|2", "7|8"}));
}

TEST_F(Table, ARowIsReadFromLeftToRightUntilACellIsRefused) {
    DimensionsCall call;
    call.names = "<n><A/><B/></n>";
    call.standard = "<r><s A='1' B='1'/><s A='2'/><s A='1' B='3'/></r>";
    StoreFilter("A", 1, "1");
    EXPECT_EQ(RowsOf(call), (Texts{"1|1", "1|3"}))
        << "the attribute that the second row lacks is not looked for";
}

TEST_F(Table, ARowThatIsNoElementEndsItsSource) {
    const auto names = SelectNodes(RootOf(ParseXml("<n><A/></n>")), L"*");
    for (const char* other : {"<!--comment-->", "text", "<?instruction A='2'?>"}) {
        const std::string xml = std::string("<r><s A='1'/>") + other + "<s A='3'/></r>";
        const auto rows = SelectNodes(RootOf(ParseXml(xml)), L"node()");
        ChooseFrom(names.Get(), rows.As<IDispatch>(), [&](DimensionChooser& chooser) {
            EXPECT_EQ(chooser.Rows(), (Texts{"1"})) << xml;
            chooser.Cancel();
        });
    }
}

TEST_F(Table, FindsNamesBeyondTheCodePage) {
    if (DoubleByteCodePage())
        GTEST_SKIP() << "this name lies within code page 932";
    const char name[] = "\xE9\x95\xB7";
    DimensionsCall call = Call({{name}, {{"1"}, {"2"}}});
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ("?", chooser.List().Caption(1));
        EXPECT_EQ(chooser.Rows(), (Texts{"1", "2"}));
        QuickFilterGesture(chooser, 0, 1).Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"1"}));
    });
}

TEST_F(Table, ShowsValuesInTheThreadsCodePage) {
    if (DoubleByteCodePage())
        GTEST_SKIP() << "the list shows Cyrillic letters as others there";
    const ThreadLocale locale(russian);
    EXPECT_EQ(RowsOf(Call({{"A"}, {{"\xD0\x96"}}})), (Texts{"\xC6"}));
}

TEST_F(Table, ARefusedRowDoesNotChangeTheKindOfLaterColumns) {
    const DimensionsCall call =
        Call({{"A", "B", "C"}, {{"1", "1", "1"}, {"2", "1", "word"}, {"1", "1", "3"}}});
    StoreFilter("A", 1, "1");
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"1|1|1", "1|1|3"}));
        EXPECT_TRUE(IsNumeric(chooser, 3));
    });
}

TEST_F(Table, ARefusedRowChangesTheKindOfTheColumnThatRefusesIt) {
    const DimensionsCall call = Call({{"A"}, {{"1"}, {"word"}}});
    StoreFilter("A", 1, "1");
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"1"}));
        EXPECT_FALSE(IsNumeric(chooser, 1));
    });
}

TEST_F(Table, AColumnOfTextStaysOneWhenItsWordsAreFilteredAway) {
    const DimensionsCall call = Call({{"A", "B"}, {{"1", "1"}, {"2", "word"}}});
    Look(call, [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        dialog.Check(IDC_FILTER_EQUAL);
        dialog.SetLower("1");
        dialog.Ok();
        EXPECT_EQ(chooser.Rows(), (Texts{"1|1"}));
        const driver::PopupMenu menu = chooser.OpenMenu(2);
        EXPECT_FALSE(menu.IsEnabled(static_cast<int>(MenuItem::DefineFilter)));
        menu.Escape();
    });
}

TEST_F(Table, RowsThatReadAlikeStayRowsOfTheirOwn) {
    const DimensionsCall call = [] {
        DimensionsCall alike;
        alike.names = "<n><A/></n>";
        alike.standard = "<r><s A='1' id='first'/><s A='1' id='second'/><s A='1' id='third'/></r>";
        return alike;
    }();
    EXPECT_EQ("second", Choose(call, [](DimensionChooser& chooser) { chooser.Take(1); }).Value("id"));
    EXPECT_EQ("third", Choose(call, [](DimensionChooser& chooser) { chooser.Take(2); }).Value("id"));
}

TEST_F(Table, TellsNumbersFromTextsAsTheStandardLibraryReadsThem) {
    const SizeTable table{{"A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K"},
                          {{"1e5", "inf", "0x10", "", "-3.5", " 7", "nan", "7 ", "12 mm", " ", "1,5"}}};
    Look(Call(table), [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"1e5|inf|0x10||-3.5| 7|nan|7 |12 mm| |1,5"}));
        for (int column = 1; column <= 7; ++column)
            EXPECT_TRUE(IsNumeric(chooser, column)) << chooser.List().Cell(0, column);
        for (int column = 8; column <= 11; ++column)
            EXPECT_FALSE(IsNumeric(chooser, column)) << chooser.List().Cell(0, column);
    });
}

TEST_F(Table, ReadsTheFirst127CharactersOfAValue) {
    const std::string digits(126, '1');
    Look(Call({{"A", "B"}, {{digits + "2" + std::string(73, 'x'), std::string(200, 'y')}}}),
         [&](DimensionChooser& chooser) {
             EXPECT_EQ(chooser.Rows(), (Texts{digits + "2|" + std::string(127, 'y')}));
             EXPECT_TRUE(IsNumeric(chooser, 1)) << "what lies behind is not looked at";
         });
}

TEST_F(Table, GrowsWithTheDimensions) {
    for (const int count : {1, 2, 60, 130}) {
        SizeTable table;
        table.rows.resize(1);
        std::string expected;
        for (int i = 0; i < count; ++i) {
            table.dimensions.push_back("D" + std::to_string(i));
            table.rows[0].push_back(std::to_string(i));
            expected += (i ? "|" : "") + std::to_string(i);
        }
        Look(Call(table), [&](DimensionChooser& chooser) {
            EXPECT_EQ(chooser.List().ColumnCount(), count + 1);
            EXPECT_EQ((Texts{expected}), chooser.Rows());
        });
    }
}

TEST_F(Table, OpensWithoutNames) {
    DimensionsCall call = Call({{"A"}, {{"1"}, {"2"}}});
    call.names = "<n/>";
    const DimensionsResult result = Choose(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(1, chooser.List().ColumnCount());
        EXPECT_EQ(2, chooser.List().RowCount()) << "no column refuses a row";
        chooser.Ok();
    });
    EXPECT_EQ("1", result.Value("A"));
}

TEST_F(Table, OpensWithoutRowsAndWithoutSources) {
    const auto takeNothing = [](DimensionChooser& chooser) {
        EXPECT_EQ(0, chooser.List().RowCount());
        EXPECT_TRUE(chooser.List().Selected().empty());
        chooser.Ok();
    };
    const DimensionsResult noRows = Choose(Call({{"A"}, {}}, {{"A"}, {}}), takeNothing);
    EXPECT_EQ(S_OK, noRows.answer);
    EXPECT_TRUE(noRows.written);
    EXPECT_FALSE(noRows.row);
    DimensionsCall none;
    none.names = "<n><A/></n>";
    const DimensionsResult noSources = Choose(none, takeNothing);
    EXPECT_EQ(S_OK, noSources.answer);
    EXPECT_TRUE(noSources.written);
    EXPECT_FALSE(noSources.row);
}

TEST_F(Table, ShowsTheRowsOfOneSourceAlone) {
    DimensionsCall call = Call({{"A"}, {}}, {{"A"}, {{"4"}}});
    call.standard.reset();
    EXPECT_EQ(RowsOf(call), (Texts{"4"}));
}

TEST_F(Table, ANameThatNoAttributeCanHaveShowsNoRows) {
    DimensionsCall call = Call({{"A"}, {{"1"}}});
    const auto names = SelectNodes(RootOf(ParseXml("<n><A/><!--comment--></n>")), L"node()");
    const auto rows = SelectNodes(RootOf(ParseXml(*call.standard)), L"*");
    ChooseFrom(names.Get(), rows.As<IDispatch>(), [](DimensionChooser& chooser) {
        EXPECT_EQ(3, chooser.List().ColumnCount());
        EXPECT_EQ("#comment", chooser.List().Caption(2));
        EXPECT_EQ(0, chooser.List().RowCount());
        chooser.Cancel();
    });
}

TEST_F(Table, ShowsUmlautsInNamesCaptionsAndValues) {
    if (DoubleByteCodePage())
        GTEST_SKIP() << "code page 932 has no umlauts";
    DimensionsCall call = Call({{"L\xC3\xA4nge", "B"}, {{"1", "gr\xC3\xBCn"}}});
    call.names =
        "<n><L\xC3\xA4nge/><B>Gr\xC3\xB6\xC3\x9F"
        "e</B></n>";
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ("L\xE4nge", chooser.List().Caption(1));
        EXPECT_EQ(
            "Gr\xF6\xDF"
            "e",
            chooser.List().Caption(2));
        EXPECT_EQ(chooser.Rows(), (Texts{"1|gr\xFCn"}));
    });
}

TEST_F(Table, ShowsDoubleByteTextsAndCutsAValueThroughACharacter) {
    if (!DoubleByteCodePage())
        GTEST_SKIP() << "needs a code page of double-byte characters";
    const std::string length = "\xE9\x95\xB7\xE3\x81\x95";  // two characters
    std::string many;
    for (int i = 0; i < 100; ++i)
        many += "\xE8\xA1\xA8";  // whose second byte in code page 932 is a backslash
    DimensionsCall call = Call({{length, "B"}, {{"1", many}}});
    Look(call, [&](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.List().Caption(1), Ansi(length));
        const std::string cell = chooser.List().Cell(0, 2);
        EXPECT_EQ(cell.substr(0, 126), Ansi(many).substr(0, 126));
        EXPECT_LE(cell.size(), 128u) << "127 bytes count; the list may complete the cut character";
    });
}

TEST_F(Table, SaysOnceToADebuggerThatARowHasEndedItsSource) {
    const DebuggerLines lines(GetModuleHandleA(nullptr));
    ASSERT_TRUE(lines);
    DimensionsCall call = Call({{"A"}, {{"1"}}});
    call.standard = "<r><s A='1'/><s/><s A='2'/></r>";
    StoreFilter("A", 1, "1");
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"1"}));
        chooser.TurnOffAll();  // fills the table again
        EXPECT_EQ(chooser.Rows(), (Texts{"1"}));
    });
    EXPECT_EQ(1u, lines.With(L"a row of source 1 lacks a value"));
    EXPECT_EQ(0u, lines.With(L"a row of source 2"));
}

}  // namespace
}  // namespace nux
