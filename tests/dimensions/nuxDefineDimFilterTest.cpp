// The dialog that defines the filter of a numeric column.

#include "dimensions/nuxDefineDimFilter.h"
#include "driver/Canvas.h"
#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/Waiting.h"
#include "resources/resource.h"
#include "tests/dimensions/DimensionChooserFixture.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;

constexpr char wrongValue[] = "A wrong value has been encountered.";
constexpr char reversed[] = "The upper limit is less than the lower limit.";

class FilterDefinition : public DimensionChooserFixture {
protected:
    const DimensionsCall call = Call({{"A"}, {{"10"}, {"5"}, {"20"}, {"7.25"}}}, {{"A"}, {{"5"}, {"30"}}});

    /// Opens the filter dialog of column A, and closes what is left open after the deeds.
    void Define(const std::function<void(DimensionChooser&, FilterDialog&)>& deeds) {
        Look(call, [&](DimensionChooser& chooser) {
            FilterDialog dialog = chooser.DefineFilter(1);
            deeds(chooser, dialog);
            if (IsWindow(dialog.Window()))
                dialog.Cancel();
        });
    }

    static int CheckedType(const FilterDialog& dialog) {
        return driver::CheckedButton(dialog.Window(), IDC_FILTER_NONE, IDC_FILTER_GREATER_OR_EQUAL);
    }
    static int CheckedDatabase(const FilterDialog& dialog) {
        return driver::CheckedButton(dialog.Window(), IDC_DATABASE_STANDARD, IDC_DATABASE_BOTH);
    }
    static int CheckedSort(const FilterDialog& dialog) {
        return driver::CheckedButton(dialog.Window(), IDC_SORT_ASCENDING, IDC_SORT_NONE);
    }
    /// Presses a key again and again. @return the controls that get the keyboard by that, up to the one that
    /// has it at first; the edit field of a combo box counts as the box
    static std::vector<int> Walk(DimensionChooser& chooser, WORD key) {
        const auto focused = [&] {
            GUITHREADINFO state{};
            state.cbSize = sizeof state;
            GetGUIThreadInfo(GetWindowThreadProcessId(chooser.Window(), nullptr), &state);
            return state.hwndFocus;
        };
        const auto idOf = [](HWND control) {
            return GetDlgCtrlID(driver::ClassOf(GetParent(control)) == "ComboBox" ? GetParent(control)
                                                                                  : control);
        };
        const HWND first = focused();
        std::vector<int> ids;
        do {
            driver::PressKey(focused(), key);
            chooser.User().Settle();
            ids.push_back(idOf(focused()));
        } while (focused() != first && ids.size() < 20);
        return ids;
    }
    static bool IsVisible(const FilterDialog& dialog, int id) { return IsWindowVisible(dialog.Item(id)); }
    /// The character that the user's locale has as decimal separator, and the other one.
    static char Separator() { return DecimalPoint() ? '.' : ','; }
    static char OtherSeparator() { return DecimalPoint() ? ',' : '.'; }
};

TEST_F(FilterDefinition, OpensWithoutAFilter) {
    Define([](DimensionChooser&, FilterDialog& dialog) {
        EXPECT_EQ(CheckedType(dialog), IDC_FILTER_NONE);
        EXPECT_EQ(CheckedDatabase(dialog), IDC_DATABASE_BOTH);
        EXPECT_EQ(CheckedSort(dialog), IDC_SORT_ASCENDING);
        EXPECT_EQ(dialog.Lower(), Whole("0"));
        EXPECT_EQ(dialog.Upper(), Whole("0"));
        for (const int id : {IDC_LOWER_LIMIT, IDC_LOWER_LIMIT_LABEL, IDC_UPPER_LIMIT, IDC_UPPER_LIMIT_LABEL})
            EXPECT_FALSE(IsVisible(dialog, id)) << id;
    });
}

TEST_F(FilterDefinition, ShowsTheFilterOfTheColumn) {
    StoreFilter("A", 2, "5.5", "12", 2);
    Define([](DimensionChooser&, FilterDialog& dialog) {
        EXPECT_EQ(CheckedType(dialog), IDC_FILTER_BETWEEN);
        EXPECT_EQ(CheckedDatabase(dialog), IDC_DATABASE_USER);
        EXPECT_EQ(CheckedSort(dialog), IDC_SORT_ASCENDING) << "the choice of a sort is not remembered";
        EXPECT_EQ(dialog.Lower(), "5.5");
        EXPECT_EQ(dialog.Upper(), Whole("12"));
    });
}

TEST_F(FilterDefinition, HasAFormForEachType) {
    struct {
        int button;
        const char* lowerLabel;
        bool upper;
    } const forms[] = {{IDC_FILTER_EQUAL, "Filter value:", false},
                       {IDC_FILTER_BETWEEN, "Lower limit:", true},
                       {IDC_FILTER_SMALLER_OR_EQUAL, "Filter value:", false},
                       {IDC_FILTER_NONE, nullptr, false},
                       {IDC_FILTER_GREATER_OR_EQUAL, "Filter value:", false}};
    Define([&](DimensionChooser&, FilterDialog& dialog) {
        for (const auto& [button, lowerLabel, upper] : forms) {
            dialog.Check(button);
            EXPECT_EQ(CheckedType(dialog), button);
            EXPECT_EQ(IsVisible(dialog, IDC_LOWER_LIMIT), lowerLabel != nullptr) << button;
            EXPECT_EQ(IsVisible(dialog, IDC_LOWER_LIMIT_LABEL), lowerLabel != nullptr) << button;
            EXPECT_EQ(IsVisible(dialog, IDC_UPPER_LIMIT), upper) << button;
            EXPECT_EQ(IsVisible(dialog, IDC_UPPER_LIMIT_LABEL), upper) << button;
            if (lowerLabel) {
                EXPECT_EQ(driver::ControlText(dialog.Item(IDC_LOWER_LIMIT_LABEL)), lowerLabel);
            }
            EXPECT_EQ(driver::ControlText(dialog.Item(IDC_UPPER_LIMIT_LABEL)), "Upper limit");
        }
    });
}

TEST_F(FilterDefinition, OpensInTheFormOfItsFilter) {
    StoreFilter("A", 3, "6");
    Define([](DimensionChooser&, FilterDialog& dialog) {
        EXPECT_EQ(driver::ControlText(dialog.Item(IDC_LOWER_LIMIT_LABEL)), "Filter value:");
        EXPECT_TRUE(IsVisible(dialog, IDC_LOWER_LIMIT));
        EXPECT_FALSE(IsVisible(dialog, IDC_UPPER_LIMIT));
    });
}

TEST_F(FilterDefinition, AFilterByTextChecksNoTypeAndIsLeftAsItIs) {
    StoreNumber("A", "FilterType", 5);
    StoreText("A", "FilterString", "10");
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        EXPECT_EQ(CheckedType(dialog), 0);
        dialog.Check(IDC_SORT_NONE);
        dialog.Ok();
        EXPECT_EQ(chooser.Rows(), (Texts{"10"}));
    });
    EXPECT_EQ(StoredText("A", "FilterString"), "10");
    EXPECT_EQ(StoredNumber("A", "FilterType"), 5u);
}

TEST_F(FilterDefinition, AnUnknownDatabaseChecksNone) {
    StoreFilter("A", 0, "0", "0", 9);
    Define([](DimensionChooser&, FilterDialog& dialog) {
        EXPECT_EQ(CheckedDatabase(dialog), 0);
        EXPECT_EQ(CheckedType(dialog), IDC_FILTER_NONE);
    });
}

TEST_F(FilterDefinition, StartsAtItsFirstGroupAndTabsThroughGroupsFieldsAndButtons) {
    StoreFilter("A", 2, "1", "2", 2);
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        EXPECT_TRUE(driver::HasFocus(dialog.Item(IDC_FILTER_BETWEEN)));
        EXPECT_EQ(Walk(chooser, VK_TAB),
                  (std::vector<int>{IDC_LOWER_LIMIT, IDC_UPPER_LIMIT, IDC_DATABASE_USER, IDC_SORT_ASCENDING,
                                    IDOK, IDCANCEL, IDC_FILTER_BETWEEN}));
    });
}

TEST_F(FilterDefinition, ArrowKeysStayInTheirGroup) {
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        EXPECT_EQ(Walk(chooser, VK_DOWN),
                  (std::vector<int>{IDC_FILTER_EQUAL, IDC_FILTER_BETWEEN, IDC_FILTER_SMALLER_OR_EQUAL,
                                    IDC_FILTER_GREATER_OR_EQUAL, IDC_FILTER_NONE}));
        for (const auto& [first, group] :
             {std::pair{IDC_DATABASE_BOTH,
                        std::vector{IDC_DATABASE_STANDARD, IDC_DATABASE_USER, IDC_DATABASE_BOTH}},
              std::pair{IDC_SORT_ASCENDING,
                        std::vector{IDC_SORT_DESCENDING, IDC_SORT_NONE, IDC_SORT_ASCENDING}}}) {
            dialog.Check(first);
            driver::Ask(dialog.Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(dialog.Item(first)), TRUE);
            EXPECT_EQ(Walk(chooser, VK_DOWN), group);
        }
    });
}

TEST_F(FilterDefinition, AGroupWithoutACheckedButtonKeepsItsPlaceForTheKeyboard) {
    StoreNumber("A", "FilterType", 5);
    StoreNumber("A", "Database", 9);
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        ASSERT_EQ(CheckedType(dialog), 0);
        ASSERT_EQ(CheckedDatabase(dialog), 0);
        EXPECT_TRUE(driver::HasFocus(dialog.Item(IDC_FILTER_NONE)));
        EXPECT_EQ(Walk(chooser, VK_TAB),
                  (std::vector<int>{IDC_LOWER_LIMIT, IDC_UPPER_LIMIT, IDC_DATABASE_STANDARD,
                                    IDC_SORT_ASCENDING, IDOK, IDCANCEL, IDC_FILTER_NONE}));
    });
}

TEST_F(FilterDefinition, EnterAndEscapeCloseAnOpenListAndNotTheDialog) {
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_BETWEEN);
        dialog.SetLower("99");  // which no entry begins with
        for (const WORD key : {VK_RETURN, VK_ESCAPE}) {
            for (const HWND box : {dialog.LowerBox(), dialog.UpperBox()}) {
                driver::DropDown(box);
                driver::PressKey(driver::EditOf(box), key);
                driver::WaitFor("a list that folds up",
                                [&] { return !driver::Ask(box, CB_GETDROPPEDSTATE); });
                chooser.User().Settle();
                ASSERT_TRUE(IsWindowVisible(dialog.Window())) << key;
            }
        }
        EXPECT_EQ(dialog.Lower(), "99");
    });
}

TEST_F(FilterDefinition, OpensWithTheAscendingSortAlsoAfterAnotherChoice) {
    Look(call, [](DimensionChooser& chooser) {
        for (const int choice : {IDC_SORT_DESCENDING, IDC_SORT_NONE, IDC_SORT_ASCENDING}) {
            const FilterDialog dialog = chooser.DefineFilter(1);
            EXPECT_EQ(CheckedSort(dialog), IDC_SORT_ASCENDING);
            dialog.Check(choice);
            dialog.Ok();
        }
    });
}

TEST_F(FilterDefinition, OffersTheDistinctValuesOfBothSourcesInOrder) {
    Define([](DimensionChooser&, FilterDialog& dialog) {
        EXPECT_EQ(driver::Entries(dialog.LowerBox()),
                  (Texts{Whole("5"), "7.25", Whole("10"), Whole("20"), Whole("30")}));
        EXPECT_TRUE(driver::Entries(dialog.UpperBox()).empty()) << "until it drops down";
    });
}

TEST_F(FilterDefinition, OffersValuesOfRowsThatAFilterHides) {
    StoreFilter("A", 1, "10");
    Define([](DimensionChooser&, FilterDialog& dialog) {
        EXPECT_EQ(driver::Entries(dialog.LowerBox()).size(), 5u);
    });
}

TEST_F(FilterDefinition, OffersTextsThatDifferThoughTheirNumbersDoNot) {
    Look(Call({{"A"}, {{"5"}, {"5.0"}, {"5"}, {"-2"}}}), [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        EXPECT_EQ(driver::Entries(dialog.LowerBox()), (Texts{Whole("-2"), Whole("5"), Whole("5")}));
        dialog.Cancel();
    });
}

TEST_F(FilterDefinition, OffersNothingWhereRowsHaveAttributesOnly) {
    DimensionsCall attributes;
    attributes.names = "<n><A/></n>";
    attributes.standard = SizeTable{{"A"}, {{"1"}, {"2"}}}.XmlOfAttributes();
    Look(attributes, [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        EXPECT_TRUE(driver::Entries(dialog.LowerBox()).empty());
        dialog.Cancel();
    });
}

TEST_F(FilterDefinition, ARowWithoutTheElementEndsTheValuesOfItsSource) {
    DimensionsCall gap;
    gap.names = "<n><A/></n>";
    gap.standard = "<r><s A='1'><A>1</A></s><s A='2'/><s A='3'><A>3</A></s></r>";
    gap.users = "<r><s A='4'><A>4</A></s></r>";
    Look(gap, [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        EXPECT_EQ(driver::Entries(dialog.LowerBox()), (Texts{Whole("1"), Whole("4")}));
        dialog.Cancel();
    });
}

TEST_F(FilterDefinition, TheUpperLimitOffersWhatIsNotBelowTheLowerAndKeepsItsText) {
    Define([](DimensionChooser&, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_BETWEEN);
        dialog.SetLower("7.5");
        dialog.SetUpper("typed");
        driver::DropDown(dialog.UpperBox());
        EXPECT_EQ(driver::Entries(dialog.UpperBox()), (Texts{Whole("10"), Whole("20"), Whole("30")}));
        EXPECT_EQ(dialog.Upper(), "typed");
        driver::FoldUp(dialog.UpperBox());
        EXPECT_EQ(dialog.Upper(), "typed");
        dialog.SetLower("20");
        driver::DropDown(dialog.UpperBox());
        EXPECT_EQ(driver::Entries(dialog.UpperBox()), (Texts{Whole("20"), Whole("30")}));
        driver::FoldUp(dialog.UpperBox());
    });
}

TEST_F(FilterDefinition, WhatWasTypedAsUpperLimitSurvivesTheListWhole) {
    Define([](DimensionChooser&, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_BETWEEN);
        const std::string typed = std::string(200, '1') + ".5";
        dialog.SetUpper(typed);
        driver::DropDown(dialog.UpperBox());
        driver::FoldUp(dialog.UpperBox());
        EXPECT_EQ(dialog.Upper(), typed);
        dialog.SetUpper("");
        driver::DropDown(dialog.UpperBox());
        driver::FoldUp(dialog.UpperBox());
        EXPECT_EQ(dialog.Upper(), "");
    });
}

TEST_F(FilterDefinition, OffersTheFirst127CharactersOfEachValueOnce) {
    const std::string five = "5." + std::string(125, '0');
    DimensionsCall longValues;
    longValues.names = "<n><A/></n>";
    longValues.standard = SizeTable{{"A"}, {{five + "1"}, {five + "2 mm"}, {"4"}}}.Xml();
    Look(longValues, [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        EXPECT_EQ(driver::Entries(dialog.LowerBox()), (Texts{Whole("4"), Whole("5")}));
        dialog.Cancel();
    });
}

TEST_F(FilterDefinition, OffersZeroForAValueThatIsNoString) {
    DimensionsCall typed;
    typed.names = "<n><A/></n>";
    typed.standard =
        "<r xmlns:dt='urn:schemas-microsoft-com:datatypes'>"
        "<s A='3'><A dt:dt='int'>3</A></s><s A='4'><A>4</A></s></r>";
    Look(typed, [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        EXPECT_EQ(driver::Entries(dialog.LowerBox()), (Texts{Whole("0"), Whole("4")}));
        dialog.Cancel();
    });
}

TEST_F(FilterDefinition, WithoutArgumentsDefinesTheInactiveFilter) {
    const nuxDefineDimFilter dialog;
    EXPECT_TRUE(dialog.Filter().IsInactive());
    EXPECT_EQ(dialog.Sort(), SortModeNone);
}

TEST_F(FilterDefinition, ValuesAreTakenFromTheLists) {
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_BETWEEN);
        driver::ChooseEntry(dialog.LowerBox(), 1);
        EXPECT_EQ(dialog.Lower(), "7.25");
        driver::ChooseEntry(dialog.UpperBox(), 2);
        EXPECT_EQ(dialog.Upper(), Whole("20"));
        dialog.Check(IDC_SORT_NONE);
        dialog.Ok();
        EXPECT_EQ(chooser.Rows(), (Texts{"10", "20", "7.25"}));
    });
}

TEST_F(FilterDefinition, FieldsTakeDigitsBackspaceAndOneSeparator) {
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_BETWEEN);
        for (const HWND box : {dialog.LowerBox(), dialog.UpperBox()}) {
            const HWND edit = driver::EditOf(box);
            driver::Paste(edit, "");
            driver::Type(edit, "1a-2+e ");
            driver::Type(edit, std::string(1, OtherSeparator()));
            driver::Type(edit, std::string(1, Separator()) + "3" + Separator() + "4");
            chooser.User().Settle();
            EXPECT_EQ(driver::ControlText(box), std::string("12") + Separator() + "34");
            driver::Type(edit, "\b\b\b");
            chooser.User().Settle();
            EXPECT_EQ(driver::ControlText(box), "12");
            driver::Type(edit, std::string(1, Separator()));
            chooser.User().Settle();
            EXPECT_EQ(driver::ControlText(box), std::string("12") + Separator()) << "the old one is gone";
        }
    });
}

TEST_F(FilterDefinition, PastingIsNotFiltered) {
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_EQUAL);
        const HWND edit = driver::EditOf(dialog.LowerBox());
        ASSERT_TRUE(OpenClipboard(nullptr));
        EmptyClipboard();
        const HGLOBAL text = GlobalAlloc(GMEM_MOVEABLE, 16);
        lstrcpyA(static_cast<char*>(GlobalLock(text)), "-1,5.6 mm");
        GlobalUnlock(text);
        SetClipboardData(CF_TEXT, text);
        CloseClipboard();
        driver::Ask(edit, EM_SETSEL, 0, -1);
        driver::Post(edit, WM_PASTE);
        chooser.User().Settle();
        EXPECT_EQ(dialog.Lower(), "-1,5.6 mm");
    });
}

TEST_F(FilterDefinition, RefusesWhatIsNoNumberFromZeroOn) {
    Define([](DimensionChooser&, FilterDialog& dialog) {
        for (const int type : {IDC_FILTER_EQUAL, IDC_FILTER_SMALLER_OR_EQUAL, IDC_FILTER_GREATER_OR_EQUAL,
                               IDC_FILTER_BETWEEN}) {
            dialog.Check(type);
            dialog.SetUpper("50");
            for (const char* text : {"", "-1", "12x", "12 ", "1,5", "nan", "word"}) {
                dialog.SetLower(text);
                EXPECT_EQ(dialog.OkAndReadMessage(), wrongValue) << text;
                EXPECT_TRUE(driver::HasFocus(dialog.LowerBox())) << text;
                EXPECT_EQ(dialog.Lower(), text);
            }
        }
    });
}

TEST_F(FilterDefinition, RefusesAnUpperLimitThatIsNoneOrBelowTheLower) {
    Define([](DimensionChooser&, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_BETWEEN);
        dialog.SetLower("10");
        struct {
            const char* text;
            const char* message;
        } const wrong[] = {
            {"", wrongValue}, {"12x", wrongValue}, {"5", reversed}, {"9.999", reversed}, {"-1", reversed}};
        for (const auto& [text, message] : wrong) {
            dialog.SetUpper(text);
            EXPECT_EQ(dialog.OkAndReadMessage(), message) << text;
            EXPECT_TRUE(driver::HasFocus(dialog.UpperBox())) << text;
        }
        dialog.SetUpper("10");
        dialog.Ok();
    });
    EXPECT_EQ(StoredNumber("A", "FilterType"), 2u);
}

TEST_F(FilterDefinition, ShowsItsMessagesOnTopOfItself) {
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_EQUAL);
        dialog.SetLower("");
        driver::Click(dialog.Item(IDOK));
        const HWND box = chooser.User().Dialog("Error");
        EXPECT_EQ(GetWindow(box, GW_OWNER), dialog.Window());
        const driver::Picture error =
            driver::DrawnIcon(LoadIconA(nullptr, IDI_ERROR), GetSysColor(COLOR_BTNFACE));
        bool shown = false;
        for (HWND part = GetWindow(box, GW_CHILD); part; part = GetWindow(part, GW_HWNDNEXT)) {
            const auto icon = reinterpret_cast<HICON>(driver::Ask(part, STM_GETICON));
            shown = shown || (icon && driver::DrawnIcon(icon, GetSysColor(COLOR_BTNFACE)) == error);
        }
        EXPECT_TRUE(shown);
        EXPECT_EQ(GetDlgItem(box, IDCANCEL) && IsWindowVisible(GetDlgItem(box, IDCANCEL)), false);
        driver::Click(driver::Item(box, IDOK));
        driver::WaitUntilGone(box);
    });
}

TEST_F(FilterDefinition, TakesEveryNumberThatTheStandardLibraryReads) {
    struct {
        const char* text;
        const char* stored;
    } const numbers[] = {{"0", "0"}, {"1e1", "10"}, {" 20", "20"}, {"0x10", "16"}, {"+5", "5"}};
    for (const auto& [text, stored] : numbers) {
        Define([text = text](DimensionChooser&, FilterDialog& dialog) {
            dialog.Check(IDC_FILTER_GREATER_OR_EQUAL);
            dialog.SetLower(text);
            dialog.Ok();
        });
        EXPECT_EQ(StoredText("A", "LowerLimit"), Whole(stored)) << text;
    }
}

TEST_F(FilterDefinition, AtTheDecimalCommaATypedNumberEndsThere) {
    if (DecimalPoint())
        GTEST_SKIP() << "needs a locale with a decimal comma";
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_EQUAL);
        const HWND edit = driver::EditOf(dialog.LowerBox());
        driver::Paste(edit, "");
        driver::Type(edit, "7,25");
        chooser.User().Settle();
        EXPECT_EQ(dialog.Lower(), "7,25");
        EXPECT_EQ(dialog.OkAndReadMessage(), wrongValue) << "numbers are read with a point everywhere";
    });
}

TEST_F(FilterDefinition, AShownWholeNumberCanBeTakenAsItStands) {
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_EQUAL);
        driver::ChooseEntry(dialog.LowerBox(), 2);
        EXPECT_EQ(dialog.Lower(), Whole("10"));
        dialog.Ok();
        EXPECT_EQ(chooser.Rows(), (Texts{"10"}));
    });
}

TEST_F(FilterDefinition, AHiddenUpperLimitIsKept) {
    StoreFilter("A", 2, "1", "17.5");
    Define([](DimensionChooser&, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_EQUAL);
        dialog.SetLower("5");
        dialog.Ok();
    });
    EXPECT_EQ(StoredText("A", "UpperLimit"), "17.5");
}

TEST_F(FilterDefinition, WithoutATypeTheFieldsAreNotChecked) {
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        dialog.SetLower("12 mm");
        dialog.SetUpper("word");
        dialog.Check(IDC_DATABASE_STANDARD);
        dialog.Check(IDC_SORT_NONE);
        dialog.Ok();
        EXPECT_EQ(chooser.Rows(), (Texts{"10", "5", "20", "7.25"})) << "the user's rows are hidden";
        EXPECT_EQ(chooser.List().HeaderImage(1), 0);
        EXPECT_TRUE(chooser.CanTurnOffAll());
    });
    EXPECT_EQ(StoredNumber("A", "FilterType"), 0u);
    EXPECT_EQ(StoredNumber("A", "Database"), 1u);
    EXPECT_EQ(StoredText("A", "LowerLimit"), Whole("12"));
    EXPECT_EQ(StoredText("A", "UpperLimit"), Whole("0"));
}

TEST_F(FilterDefinition, EscapeKeepsTheFilter) {
    StoreFilter("A", 1, "10");
    Define([](DimensionChooser& chooser, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_NONE);
        driver::PressKey(dialog.Item(IDC_FILTER_NONE), VK_ESCAPE);
        driver::WaitUntilGone(dialog.Window());
        chooser.User().Settle();
        EXPECT_EQ(chooser.Rows(), (Texts{"10"}));
    });
}

TEST_F(FilterDefinition, ReadsTheFirst127CharactersOfAField) {
    Define([](DimensionChooser&, FilterDialog& dialog) {
        dialog.Check(IDC_FILTER_EQUAL);
        dialog.SetLower(std::string(126, '0') + "5 and what lies behind");
        dialog.Ok();
    });
    EXPECT_EQ(StoredText("A", "LowerLimit"), Whole("5"));
}

TEST_F(FilterDefinition, HasItsControlsWhereTheTemplatePutsThem) {
    struct {
        int id, x, y, width, height;
    } const places[] = {{IDC_FILTER_NONE, 14, 20, 97, 10},
                        {IDC_FILTER_EQUAL, 14, 31, 97, 10},
                        {IDC_FILTER_BETWEEN, 14, 42, 97, 10},
                        {IDC_FILTER_SMALLER_OR_EQUAL, 14, 53, 97, 10},
                        {IDC_FILTER_GREATER_OR_EQUAL, 14, 64, 97, 10},
                        {IDC_LOWER_LIMIT_LABEL, 14, 81, 50, 8},
                        {IDC_UPPER_LIMIT_LABEL, 14, 95, 50, 8},
                        {IDC_DATABASE_STANDARD, 131, 20, 106, 10},
                        {IDC_DATABASE_USER, 131, 31, 108, 10},
                        {IDC_DATABASE_BOTH, 131, 42, 108, 10},
                        {IDC_SORT_ASCENDING, 131, 78, 108, 10},
                        {IDC_SORT_DESCENDING, 131, 89, 107, 10},
                        {IDC_SORT_NONE, 131, 100, 106, 10},
                        {IDOK, 124, 125, 50, 14},
                        {IDCANCEL, 195, 125, 50, 14}};
    Define([&](DimensionChooser&, FilterDialog& dialog) {
        for (const auto& [id, x, y, width, height] : places) {
            // The window system turns a control's width into pixels by itself, not as the distance of its
            // edges, which may be rounded another way.
            RECT units{x, y, width, height};
            MapDialogRect(dialog.Window(), &units);
            const RECT expected{units.left, units.top, units.left + units.right, units.top + units.bottom};
            RECT bounds{};
            GetWindowRect(dialog.Item(id), &bounds);
            MapWindowPoints(nullptr, dialog.Window(), reinterpret_cast<POINT*>(&bounds), 2);
            EXPECT_TRUE(EqualRect(&bounds, &expected)) << id;
        }
        RECT client{}, whole{0, 0, 253, 146};
        GetClientRect(dialog.Window(), &client);
        MapDialogRect(dialog.Window(), &whole);
        EXPECT_TRUE(EqualRect(&client, &whole));
        EXPECT_FALSE(GetWindowLongA(dialog.Window(), GWL_STYLE) & WS_THICKFRAME);
        EXPECT_NE(0, SendMessageA(dialog.Window(), WM_GETICON, ICON_SMALL, 0));
    });
}

}  // namespace
}  // namespace nux
