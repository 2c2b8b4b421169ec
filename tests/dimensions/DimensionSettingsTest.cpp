// The stored form of filters in the registry, sound and damaged.

#include "tests/dimensions/DimensionChooserFixture.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;

class StoredFilter : public DimensionChooserFixture {
protected:
    const DimensionsCall numbers = Call({{"A"}, {{"1"}, {"2"}, {"3"}}});
};

TEST_F(StoredFilter, OfNumbersHasItsLimitsAndNoText) {
    Look(numbers, [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        dialog.Check(IDC_FILTER_BETWEEN);
        dialog.SetLower("1.25");
        dialog.SetUpper("30");
        dialog.Ok();
    });
    EXPECT_EQ(2u, StoredNumber("A", "FilterType"));
    EXPECT_EQ(3u, StoredNumber("A", "Database"));
    EXPECT_EQ("1.25", StoredText("A", "LowerLimit"));
    EXPECT_EQ(StoredText("A", "UpperLimit"), Whole("30"));
    EXPECT_EQ(std::nullopt, StoredText("A", "FilterString"));
}

TEST_F(StoredFilter, IsWrittenForEveryColumnAlsoIfInactive) {
    Look(Call({{"A", "B"}, {{"1", "x"}}}), [](DimensionChooser&) {});
    for (const char* column : {"A", "B"}) {
        EXPECT_EQ(0u, StoredNumber(column, "FilterType"));
        EXPECT_EQ(3u, StoredNumber(column, "Database"));
        EXPECT_EQ(StoredText(column, "LowerLimit"), Whole("0"));
        EXPECT_EQ(StoredText(column, "UpperLimit"), Whole("0"));
    }
}

TEST_F(StoredFilter, OfTextHasItsTextAndLeavesTheLimitsThatAreThere) {
    StoreNumber("A", "FilterType", 5);
    StoreText("A", "FilterString", "2");
    StoreText("A", "LowerLimit", "left alone");
    EXPECT_EQ(RowsOf(numbers), (Texts{"2"}));
    EXPECT_EQ(5u, StoredNumber("A", "FilterType"));
    EXPECT_EQ("2", StoredText("A", "FilterString"));
    EXPECT_EQ("left alone", StoredText("A", "LowerLimit"));
    EXPECT_EQ(std::nullopt, StoredText("A", "UpperLimit"));
}

TEST_F(StoredFilter, OfNumbersLeavesTheTextThatIsThere) {
    StoreFilter("A", 1, "2");
    StoreText("A", "FilterString", "left alone");
    EXPECT_EQ(RowsOf(numbers), (Texts{"2"}));
    EXPECT_EQ("left alone", StoredText("A", "FilterString"));
}

TEST_F(StoredFilter, OfTextWithoutATextTakesEmptyCells) {
    StoreNumber("A", "FilterType", 5);
    EXPECT_EQ(RowsOf(Call({{"A"}, {{"1"}, {""}}})), (Texts{""}));
}

TEST_F(StoredFilter, LiesUnderTheTranslatedCaption) {
    Translate("CAPTIONS", {{"A", "Length"}});
    DimensionsCall call = numbers;
    call.catalog = "CAPTIONS";
    Look(call, [](DimensionChooser&) {});
    EXPECT_TRUE(KeyExists(Key("Length", "CAPTIONS")));
    EXPECT_FALSE(KeyExists(Key("A", "CAPTIONS")));
}

TEST_F(StoredFilter, OfATextThatIsCutThroughACharacterFindsItsRowAgain) {
    if (!DoubleByteCodePage())
        GTEST_SKIP() << "needs a code page of double-byte characters";
    std::string many;
    for (int i = 0; i < 70; ++i)
        many += "\xE8\xA1\xA8";
    const DimensionsCall call = Call({{"A"}, {{many}, {"x"}}});
    Look(call, [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        gesture.MoveTo(gesture.Value(1));
        gesture.Release();
        EXPECT_EQ(1, chooser.List().RowCount()) << "as it is set";
        EXPECT_NE(chooser.Rows(), (Texts{"x"}));
    });
    EXPECT_EQ(1u, RowsOf(call).size()) << "as it is stored and read";
}

TEST_F(StoredFilter, IsSharedByColumnsWithOneCaption) {
    DimensionsCall call = Call({{"A", "B"}, {{"1", "1"}, {"1", "2"}, {"2", "1"}}});
    call.names = "<n><A>Same</A><B>Same</B></n>";
    Look(call, [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(2);
        dialog.Check(IDC_FILTER_EQUAL);
        dialog.SetLower("1");
        dialog.Ok();
        EXPECT_EQ(chooser.Rows(), (Texts{"1|1", "2|1"}));
    });
    EXPECT_EQ(StoredText("Same", "LowerLimit"), Whole("1"));
    EXPECT_EQ(RowsOf(call), (Texts{"1|1"})) << "the last column's was written last, and both read it";
}

TEST_F(StoredFilter, ACaptionWithBackslashesMakesKeysInKeys) {
    DimensionsCall call = numbers;
    call.names = "<n><A>L\\d\\x</A></n>";
    StoreFilter("L\\d\\x", 1, "3");
    EXPECT_EQ(RowsOf(call), (Texts{"3"}));
    EXPECT_TRUE(KeyExists(Key("L")));
    EXPECT_EQ(StoredText("L\\d\\x", "LowerLimit"), Whole("3"));
    EXPECT_EQ(std::nullopt, StoredNumber("L", "FilterType"));
}

TEST_F(StoredFilter, ACaptionWithUmlautsOrDoubleByteCharactersHasItsOwnKey) {
    const std::string caption = DoubleByteCodePage() ? "\xE8\xA1\xA8"
                                                     : "Gr\xC3\xB6\xC3\x9F"
                                                       "e";
    DimensionsCall call = numbers;
    call.names = "<n><A>" + caption + "</A></n>";
    StoreFilter(Ansi(caption), 1, "2");
    EXPECT_EQ(RowsOf(call), (Texts{"2"}));
    EXPECT_EQ(StoredText(Ansi(caption), "LowerLimit"), Whole("2"));
}

TEST_F(StoredFilter, ValuesOfAWrongTypeCountAsMissing) {
    // What they hold would be a filter, if the type were not looked at.
    StoreBytes("A", "FilterType", REG_BINARY, std::string("\1\0\0\0", 4));
    EXPECT_EQ(RowsOf(numbers), (Texts{"1", "2", "3"}));
    StoreBytes("A", "Database", REG_BINARY, std::string("\2\0\0\0", 4));
    EXPECT_EQ(RowsOf(numbers), (Texts{"1", "2", "3"}));
    StoreNumber("A", "FilterType", 4);
    StoreBytes("A", "LowerLimit", REG_DWORD, std::string("3\0\0\0", 4));
    EXPECT_EQ(RowsOf(numbers), (Texts{"1", "2", "3"})) << "greater or equal 0";
    StoreNumber("A", "FilterType", 4);
    StoreBytes("A", "LowerLimit", REG_BINARY, std::string("3.00\0", 5));
    EXPECT_EQ(RowsOf(numbers), (Texts{"1", "2", "3"}));
}

TEST_F(StoredFilter, NumbersThatAreTooShortCountAsMissing) {
    StoreFilter("A", 1, "2");
    StoreBytes("A", "FilterType", REG_DWORD, std::string(2, '\1'));
    EXPECT_EQ(RowsOf(numbers), (Texts{"1", "2", "3"}));
}

TEST_F(StoredFilter, LimitsThatAreNoNumbersReadAsWhatStandsAtTheirStart) {
    StoreFilter("A", 4, "word");
    EXPECT_EQ(RowsOf(numbers), (Texts{"1", "2", "3"}));
    StoreFilter("A", 4, "2 or so");
    EXPECT_EQ(RowsOf(numbers), (Texts{"2", "3"}));
    StoreFilter("A", 4, "");
    EXPECT_EQ(RowsOf(numbers), (Texts{"1", "2", "3"}));
    StoreNumber("A", "FilterType", 4);
    StoreBytes("A", "LowerLimit", REG_SZ, "3");  // without its closing zero
    EXPECT_EQ(RowsOf(numbers), (Texts{"3"}));
    StoreBytes("A", "LowerLimit", REG_SZ, "");
    EXPECT_EQ(RowsOf(numbers), (Texts{"1", "2", "3"}));
}

TEST_F(StoredFilter, OutOfRangeNumbersAreTakenAsTheyStand) {
    StoreFilter("A", 0xFFFFFFFF, "0");
    EXPECT_EQ(RowsOf(numbers), Texts{});
    EXPECT_EQ(0xFFFFFFFFu, StoredNumber("A", "FilterType"));
    StoreFilter("A", 4, "1e400");
    EXPECT_EQ(RowsOf(numbers), Texts{}) << "too large is infinite";
}

TEST_F(StoredFilter, AVersionThatIsEmptyLeavesTheSettingsUnderTheProduct) {
    RegSetKeyValueA(HKEY_LOCAL_MACHINE, "Software\\Orvenna\\Exec\\Tarnvale", "CurrentVersion", REG_SZ, "", 1);
    Translate("UNUSED", {});  // sets the paths once more, which reads the version
    StoreFilter("A", 1, "2");
    EXPECT_EQ(RowsOf(numbers), (Texts{"1", "2", "3"})) << "the key of version 1.0 is not read";
    Look(numbers, [](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        dialog.Check(IDC_FILTER_EQUAL);
        dialog.SetLower("3");
        dialog.Ok();
    });
    EXPECT_EQ(RowsOf(numbers), (Texts{"3"}));
}

TEST_F(StoredFilter, IsForgottenWhereTheRegistryTakesNothing) {
    DimensionsCall call = numbers;
    call.component = std::string(300, 'c');  // longer than the name of any key
    Look(call, [](DimensionChooser& chooser) {
        SetWindowPos(chooser.Window(), nullptr, 33, 44, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        const FilterDialog dialog = chooser.DefineFilter(1);
        dialog.Check(IDC_FILTER_EQUAL);
        dialog.SetLower("2");
        dialog.Ok();
        EXPECT_EQ(chooser.Rows(), (Texts{"2"}));
    });
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"1", "2", "3"}));
        EXPECT_FALSE(chooser.CanTurnOffAll());
        EXPECT_EQ(50, chooser.List().Width(1));
        RECT bounds{};
        GetWindowRect(chooser.Window(), &bounds);
        EXPECT_NE(33, bounds.left);
    });
}

TEST_F(StoredFilter, GoesToTheMachinesPartOfTheRegistryOnly) {
    Look(numbers, [](DimensionChooser&) {});
    EXPECT_TRUE(KeyExists(Key("A")));
    HKEY key = nullptr;
    EXPECT_NE(ERROR_SUCCESS, RegOpenKeyExA(HKEY_CURRENT_USER, Key().c_str(), 0, KEY_READ, &key));
}

}  // namespace
}  // namespace nux
