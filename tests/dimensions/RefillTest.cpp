// What a refill of the list does, and what it leaves alone.

#include "driver/Messages.h"
#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/dimensions/MessageRecorder.h"
#include "tests/support/TestedThreadWindow.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;

class Refill : public DimensionChooserFixture {
protected:
    static int Alignment(const DimensionChooser& chooser, int column) {
        return chooser.List().HeaderFormat(column) & HDF_JUSTIFYMASK;
    }
    static void Define(const DimensionChooser& chooser, int type, const char* lower, int sort) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        dialog.Check(type);
        dialog.SetLower(lower);
        dialog.Check(sort);
        dialog.Ok();
    }
};

TEST_F(Refill, AndItsSortAreDrawnOnceAtTheEnd) {
    Look(Call({{"A"}, {{"3"}, {"1"}}}, {{"A"}, {{"2"}}}), [](DimensionChooser& chooser) {
        const HWND list = chooser.List().Handle();
        MessageRecorder recorder(list, [list](UINT message, WPARAM wParam, LPARAM) -> std::string {
            const auto rows = [&] { return std::to_string(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0)); };
            switch (message) {
                case WM_SETREDRAW:
                    return (wParam ? "on " : "off ") + rows();
                case LVM_DELETEALLITEMS:
                    return "delete";
                case LVM_SORTITEMS:
                    return "sort " + rows();
                default:
                    return {};
            }
        });
        Define(chooser, IDC_FILTER_GREATER_OR_EQUAL, "2", IDC_SORT_NONE);
        EXPECT_EQ(recorder.Take(), (Texts{"off 3", "delete", "on 2"}));
        Define(chooser, IDC_FILTER_GREATER_OR_EQUAL, "1", IDC_SORT_ASCENDING);
        EXPECT_EQ(recorder.Take(), (Texts{"off 2", "delete", "sort 3", "on 3"}));
        chooser.TurnOffAll();
        EXPECT_EQ(recorder.Take(), (Texts{"off 3", "delete", "on 3"}));
        chooser.Menu(1, MenuItem::SortDescending);
        EXPECT_EQ(recorder.Take(), (Texts{"sort 3"}));
    });
}

TEST_F(Refill, OfAColumnThatHasBecomeOneOfTextsIsSortedByNumbersAllTheSame) {
    const auto table = RootOf(ParseXml("<r><s A='10'/><s A='9'/><s A='8'/></r>"));
    const auto names = SelectNodes(RootOf(ParseXml("<n><A/></n>")), L"*");
    const auto rows = SelectNodes(table, L"*");
    const TestedThreadWindow host;
    // The page's rows change while the chooser is open.
    const std::function<void()> writeWord = [&] {
        const auto row = SelectNodes(table, L"s[@A='8']");
        ComPtr<IXMLDOMNode> node;
        row->nextNode(node.Receive());
        node.As<IXMLDOMElement>()->setAttribute(Bstr(L"A").Get(), Variant(std::string("8x")).Get());
    };
    ChooseFrom(names.Get(), rows.As<IDispatch>(), [&](DimensionChooser& chooser) {
        host.Do(writeWord);
        chooser.User().Settle();
        Define(chooser, IDC_FILTER_NONE, "0", IDC_SORT_ASCENDING);
        EXPECT_EQ(chooser.Rows(), (Texts{"8x", "9", "10"})) << "as texts, 10 would come first";
        EXPECT_EQ(Alignment(chooser, 1), HDF_LEFT);
        chooser.Cancel();
    });
}

TEST_F(Refill, IsNoneWhereThereIsNoFilterToTurnOff) {
    Look(Call({{"A"}, {{"5"}, {"10"}, {"9"}}}), [](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortAscending);
        driver::Post(chooser.Window(), WM_COMMAND, IDC_ALL_FILTERS_OFF);
        chooser.User().Settle();
        EXPECT_EQ(chooser.Rows(), (Texts{"5", "9", "10"}));
        EXPECT_EQ(chooser.List().Selected(), std::vector<int>{0});
    });
}

TEST_F(Refill, SelectsNothing) {
    StoreFilter("A", 4, "0");
    const DimensionsResult result = Choose(Call({{"A"}, {{"1"}, {"2"}}}), [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.List().Selected(), std::vector<int>{0});
        Define(chooser, IDC_FILTER_GREATER_OR_EQUAL, "1", IDC_SORT_ASCENDING);
        EXPECT_EQ(chooser.List().Selected(), std::vector<int>{});
        chooser.List().ClickRow(1);
        chooser.User().Settle();
        chooser.TurnOffAll();
        EXPECT_EQ(chooser.List().Selected(), std::vector<int>{});
        chooser.Ok();
    });
    EXPECT_TRUE(result.written);
    EXPECT_FALSE(result.row);
}

TEST_F(Refill, AlignsTheCaptionOfTheColumnThatItIsFor) {
    // The filters on A hide the words of B and C at first.
    StoreFilter("A", 1, "1");
    StoreFilter("B", 4, "0");
    const DimensionsCall call = Call({{"A", "B", "C"}, {{"1", "1", "1"}, {"2", "x", "y"}}});
    Look(call, [](DimensionChooser& chooser) {
        for (const int column : {1, 2, 3})
            EXPECT_EQ(Alignment(chooser, column), HDF_CENTER) << column;
        chooser.TurnOffAll();
        EXPECT_EQ(chooser.Rows(), (Texts{"1|1|1", "2|x|y"}));
        for (const int column : {1, 2, 3})
            EXPECT_EQ(Alignment(chooser, column), HDF_CENTER)
                << column << ": formatted before the words came";
        QuickFilterGesture(chooser, 0, 2).Release();
        EXPECT_EQ(Alignment(chooser, 2), HDF_LEFT);
        EXPECT_EQ(chooser.List().HeaderImage(2), 0);
        EXPECT_EQ(Alignment(chooser, 3), HDF_CENTER);
    });
    StoreFilter("B", 0, "0");
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(HDF_CENTER, Alignment(chooser, 1));
        EXPECT_EQ(HDF_LEFT, Alignment(chooser, 2));
        EXPECT_EQ(HDF_LEFT, Alignment(chooser, 3));
    });
}

}  // namespace
}  // namespace nux
