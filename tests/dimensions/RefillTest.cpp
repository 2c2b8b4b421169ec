// What a refill of the list does, and what it leaves alone.

#include <atomic>
#include <utility>

#include "tests/dimensions/DimensionChooserFixture.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;

/// Stands before a window's procedure and notes which of some messages come. The window is of another thread.
class MessageRecorder {
public:
    explicit MessageRecorder(HWND list) : list_(list) {
        original = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(list, GWLP_WNDPROC));
        current = this;
        SetWindowLongPtrA(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
    }
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;
    ~MessageRecorder() {
        SetWindowLongPtrA(list_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original.load()));
        current = nullptr;
    }

    /// What has come, and is forgotten with that.
    Texts Take() { return std::exchange(seen_, {}); }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        MessageRecorder* const self = current;
        if (!self)
            return CallWindowProcA(original, window, message, wParam, lParam);
        const auto rows = [&] {
            return std::to_string(CallWindowProcA(original, window, LVM_GETITEMCOUNT, 0, 0));
        };
        if (message == WM_SETREDRAW)
            self->seen_.push_back(wParam ? "on " + rows() : "off " + rows());
        else if (message == LVM_DELETEALLITEMS)
            self->seen_.push_back("delete");
        else if (message == LVM_SORTITEMS)
            self->seen_.push_back("sort " + rows());
        return CallWindowProcA(original, window, message, wParam, lParam);
    }

    // A message may be under way when the recorder goes.
    static inline std::atomic<WNDPROC> original = nullptr;
    static inline std::atomic<MessageRecorder*> current = nullptr;
    HWND list_;
    Texts seen_;  ///< written by the list's thread, read while that waits for input
};

class Refill : public DimensionChooserTest {
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
        MessageRecorder recorder(chooser.List().Handle());
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
        EXPECT_EQ(Alignment(chooser, 1), HDF_CENTER);
        EXPECT_EQ(Alignment(chooser, 2), HDF_LEFT);
        EXPECT_EQ(Alignment(chooser, 3), HDF_LEFT);
    });
}

}  // namespace
}  // namespace nux
