// The columns of the chooser's list: their widths and order, how they are kept, and the rules of column 0.

#include <algorithm>

#include "driver/Input.h"
#include "driver/Picture.h"
#include "driver/PointerInput.h"
#include "driver/Waiting.h"
#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/dimensions/MessageRecorder.h"

namespace nux {
namespace {

using Order = std::vector<int>;

class Columns : public DimensionChooserFixture {
protected:
    const DimensionsCall call = Call({{"A", "B", "C"}, {{"1", "2", "3"}}});

    /// The answer of the list to a notification of its header; true refuses.
    static bool Refused(const DimensionChooser& chooser, UINT code, int column, HDITEMA* item = nullptr) {
        NMHEADERA notice{};
        notice.hdr.hwndFrom = chooser.List().Header();
        notice.hdr.idFrom = GetDlgCtrlID(chooser.List().Header());
        notice.hdr.code = code;
        notice.iItem = column;
        notice.pitem = item;
        return SendMessageA(chooser.List().Handle(), WM_NOTIFY, notice.hdr.idFrom,
                            reinterpret_cast<LPARAM>(&notice)) != 0;
    }
    static bool DropRefused(const DimensionChooser& chooser, int column, int newOrder) {
        HDITEMA item{};
        item.mask = HDI_ORDER;
        item.iOrder = newOrder;
        return Refused(chooser, HDN_ENDDRAG, column, &item);
    }

    /// Drags with the real pointer, in the header.
    static void Drag(const DimensionChooser& chooser, POINT from, POINT to) {
        driver::MovePointer(driver::OnScreen(chooser.List().Header(), from));
        driver::PressPointer(driver::PointerButton::Left);
        driver::DragPointer(driver::OnScreen(chooser.List().Header(), to));
        driver::ReleasePointer(driver::PointerButton::Left);
    }
};

TEST_F(Columns, KeepTheirWidths) {
    Look(call, [](DimensionChooser& chooser) {
        SendMessageA(chooser.List().Handle(), LVM_SETCOLUMNWIDTH, 2, 91);
        SendMessageA(chooser.List().Handle(), LVM_SETCOLUMNWIDTH, 3, 0);
    });
    EXPECT_EQ(StoredNumber("A", "Width"), 50u);
    EXPECT_EQ(StoredNumber("B", "Width"), 91u);
    EXPECT_EQ(StoredNumber("C", "Width"), 0u);
    EXPECT_EQ(StoredNumber("A", "Order"), 1u);
    EXPECT_EQ(StoredNumber("C", "Order"), 3u);
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.List().Width(0), 20);
        EXPECT_EQ(chooser.List().Width(1), 50);
        EXPECT_EQ(chooser.List().Width(2), 91);
        EXPECT_EQ(chooser.List().Width(3), 0);
    });
}

TEST_F(Columns, KeepTheirOrder) {
    Look(call, [](DimensionChooser& chooser) {
        int order[] = {0, 3, 1, 2};
        SendMessageA(chooser.List().Handle(), LVM_SETCOLUMNORDERARRAY, 4, reinterpret_cast<LPARAM>(order));
    });
    EXPECT_EQ(StoredNumber("C", "Order"), 1u);
    EXPECT_EQ(StoredNumber("A", "Order"), 2u);
    EXPECT_EQ(StoredNumber("B", "Order"), 3u);
    Look(call, [](DimensionChooser& chooser) { EXPECT_EQ(chooser.List().Order(), (Order{0, 3, 1, 2})); });
}

TEST_F(Columns, TheMarkerColumnIsNotStored) {
    Look(call, [](DimensionChooser&) {});
    DWORD subkeys = 0;
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, (Key() + "\\Columns").c_str(), 0, KEY_READ, &key),
              ERROR_SUCCESS);
    DWORD values = 1;
    RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr, &values, nullptr, nullptr,
                     nullptr, nullptr);
    RegCloseKey(key);
    EXPECT_EQ(subkeys, 3u);
    EXPECT_EQ(values, 0u);
}

TEST_F(Columns, OneBadOrderLosesTheOrderButNotTheWidths) {
    struct {
        const char* reason;
        DWORD a, b, c;
    } const bad[] = {{"taken twice", 3, 1, 3},
                     {"negative", 3, static_cast<DWORD>(-1), 1},
                     {"beyond the columns", 3, 4, 1},
                     {"far beyond", 3, 0x7FFFFFFF, 1},
                     {"that of the marker", 3, 0, 1}};
    for (const auto& [reason, a, b, c] : bad) {
        StoreNumber("A", "Order", a);
        StoreNumber("B", "Order", b);
        StoreNumber("C", "Order", c);
        StoreNumber("A", "Width", 61);
        StoreNumber("B", "Width", 62);
        StoreNumber("C", "Width", 63);
        Look(call, [reason](DimensionChooser& chooser) {
            EXPECT_EQ(chooser.List().Order(), (Order{0, 1, 2, 3})) << reason;
            EXPECT_EQ(chooser.List().Width(1), 61) << reason;
            EXPECT_EQ(chooser.List().Width(2), 62) << reason;
            EXPECT_EQ(chooser.List().Width(3), 63) << reason;
        });
    }
}

TEST_F(Columns, ValuesOfAWrongTypeCountAsMissing) {
    for (const char* column : {"A", "B", "C"})
        StoreText(column, "Width", "99 pixels");
    StoreNumber("A", "Order", 2);
    StoreNumber("B", "Order", 1);
    StoreBytes("C", "Order", REG_BINARY, std::string("\3\0\0\0", 4));
    Look(call, [](DimensionChooser& chooser) {
        for (const int column : {1, 2, 3})
            EXPECT_EQ(chooser.List().Width(column), 50);
        EXPECT_EQ(chooser.List().Order(), (Order{0, 1, 2, 3}));
    });
}

TEST_F(Columns, OutOfRangeWidthsAreWhatTheListMakesOfThem) {
    // The list takes the lower half of the number. Of a negative one it makes the width of the contents.
    struct {
        DWORD stored;
        bool negative;
    } const extremes[] = {{0xFFFFFFFF, true}, {0x7FFFFFFF, true}, {0x80000000, false}, {100000, true}};
    for (const auto& [stored, negative] : extremes) {
        StoreNumber("B", "Width", stored);
        Look(call, [&, stored = stored, negative = negative](DimensionChooser& chooser) {
            EXPECT_EQ(chooser.Rows(), (std::vector<std::string>{"1|2|3"})) << stored;
            const int width = chooser.List().Width(2);
            SendMessageA(chooser.List().Handle(), LVM_SETCOLUMNWIDTH, 2,
                         negative ? MAKELPARAM(LVSCW_AUTOSIZE, 0) : 0);
            EXPECT_EQ(width, chooser.List().Width(2)) << stored;
            EXPECT_EQ(chooser.List().Width(1), 50) << stored;
            EXPECT_EQ(chooser.List().Width(3), 50) << stored;
        });
    }
}

TEST_F(Columns, ThatShareACaptionShareWidthAndLoseTheirOrder) {
    DimensionsCall same = call;
    same.names = "<n><A>Same</A><B>Same</B><C/></n>";
    Look(same, [](DimensionChooser& chooser) {
        SendMessageA(chooser.List().Handle(), LVM_SETCOLUMNWIDTH, 1, 70);
        SendMessageA(chooser.List().Handle(), LVM_SETCOLUMNWIDTH, 2, 80);
    });
    Look(same, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.List().Width(1), 80);
        EXPECT_EQ(chooser.List().Width(2), 80);
        EXPECT_EQ(chooser.List().Order(), (Order{0, 1, 2, 3}));
    });
}

TEST_F(Columns, OfWhichTwoShareACaptionStoreTheOneWithTheHigherIndex) {
    DimensionsCall same = call;
    same.names = "<n><A>Same</A><B>Same</B><C/></n>";
    Look(same, [](DimensionChooser& chooser) {
        int order[] = {0, 2, 1, 3};
        SendMessageA(chooser.List().Handle(), LVM_SETCOLUMNORDERARRAY, 4, reinterpret_cast<LPARAM>(order));
        SendMessageA(chooser.List().Handle(), LVM_SETCOLUMNWIDTH, 1, 70);
        SendMessageA(chooser.List().Handle(), LVM_SETCOLUMNWIDTH, 2, 80);
    });
    EXPECT_EQ(StoredNumber("Same", "Width"), 80u);
    EXPECT_EQ(StoredNumber("Same", "Order"), 1u);
    EXPECT_EQ(StoredNumber("C", "Order"), 3u);
}

TEST_F(Columns, ThatHaveAnEmptyCaptionCountAsTheMarker) {
    // The column claims the marker's place, so that the order is lost.
    DimensionsCall empty = call;
    empty.names = "<n><A/><B><![CDATA[]]></B><C/></n>";
    StoreNumber("A", "Order", 3);
    StoreNumber("C", "Order", 1);
    StoreNumber("A", "Width", 61);
    Look(empty, [](DimensionChooser& chooser) {
        EXPECT_EQ("", chooser.List().Caption(2));
        EXPECT_EQ(61, chooser.List().Width(1));
        EXPECT_EQ(20, chooser.List().Width(2));
        EXPECT_EQ(chooser.List().Order(), (Order{0, 1, 2, 3}));
    });
}

TEST_F(Columns, TheMarkerColumnCanNotBeSized) {
    Look(call, [](DimensionChooser& chooser) {
        for (const UINT code :
             {HDN_BEGINTRACKA, HDN_BEGINTRACKW, HDN_DIVIDERDBLCLICKA, HDN_DIVIDERDBLCLICKW}) {
            EXPECT_TRUE(Refused(chooser, code, 0)) << code;
            EXPECT_FALSE(Refused(chooser, code, 1)) << code;
            EXPECT_FALSE(Refused(chooser, code, 3)) << code;
        }
    });
}

TEST_F(Columns, NothingIsDroppedBeforeTheMarkerColumnAndItStays) {
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_TRUE(DropRefused(chooser, 0, 2));
        EXPECT_EQ(chooser.List().Order(), (Order{0, 1, 2, 3}));
        EXPECT_TRUE(DropRefused(chooser, 2, 0));
        EXPECT_TRUE(DropRefused(chooser, 2, -1)) << "beside the header";
        EXPECT_EQ(chooser.List().Order(), (Order{0, 1, 2, 3}));
        EXPECT_FALSE(DropRefused(chooser, 3, 1));
        EXPECT_EQ(chooser.List().Order(), (Order{0, 3, 1, 2}));
        EXPECT_FALSE(DropRefused(chooser, 3, 3));
        EXPECT_EQ(chooser.List().Order(), (Order{0, 1, 2, 3}));
    });
}

TEST_F(Columns, ADropWithoutAnOrderIsAllowed) {
    Look(call, [](DimensionChooser& chooser) {
        HDITEMA item{};
        EXPECT_FALSE(Refused(chooser, HDN_ENDDRAG, 2, &item));
        EXPECT_FALSE(Refused(chooser, HDN_ENDDRAG, 2, nullptr));
        EXPECT_EQ(chooser.List().Order(), (Order{0, 1, 2, 3}));
    });
}

TEST_F(Columns, AreDraggedWithTheRealPointer) {
    Look(call, [](DimensionChooser& chooser) {
        const driver::ListView& list = chooser.List();
        POINT behindB = list.Divider(2);
        behindB.x -= 10;
        Drag(chooser, list.HeaderMiddle(1), behindB);
        driver::WaitFor("a column that moves", [&] { return list.Order() != Order{0, 1, 2, 3}; });
        EXPECT_EQ(list.Order(), (Order{0, 2, 1, 3}));
        chooser.User().Settle();
        EXPECT_EQ(list.Order(), (Order{0, 2, 1, 3}));
    });
    EXPECT_EQ(1u, StoredNumber("B", "Order"));
    EXPECT_EQ(2u, StoredNumber("A", "Order"));
}

TEST_F(Columns, ADropIsDrawnOnceAtItsEnd) {
    Look(call, [](DimensionChooser& chooser) {
        MessageRecorder recorder(chooser.List().Handle(),
                                 [](UINT message, WPARAM wParam, LPARAM) -> std::string {
                                     switch (message) {
                                         case WM_SETREDRAW:
                                             return wParam ? "on" : "off";
                                         case LVM_SETCOLUMNORDERARRAY:
                                             return "order";
                                         case WM_PAINT:
                                             return "paint";
                                         default:
                                             return {};
                                     }
                                 });
        EXPECT_FALSE(DropRefused(chooser, 3, 1));
        std::vector<std::string> seen = recorder.Take();
        // The list may still have been painted for its opening.
        seen.erase(seen.begin(), std::find(seen.begin(), seen.end(), "off"));
        seen.resize(4);
        EXPECT_EQ((std::vector<std::string>{"off", "order", "on", "paint"}), seen);
    });
}

TEST_F(Columns, NothingOfTheDraggedCaptionStays) {
    Look(call, [](DimensionChooser& chooser) {
        const driver::ListView& list = chooser.List();
        // On Wine 8.0 a caption that has been lit by the pointer stays lit, which is another matter.
        SetWindowLongA(list.Header(), GWL_STYLE, GetWindowLongA(list.Header(), GWL_STYLE) & ~HDS_HOTTRACK);
        POINT behindB = list.Divider(2);
        behindB.x -= 10;
        Drag(chooser, list.HeaderMiddle(1), behindB);
        driver::WaitFor("a column that moves", [&] { return list.Order() != Order{0, 1, 2, 3}; });
        chooser.User().Settle();
        RECT bounds{};
        GetWindowRect(chooser.Window(), &bounds);
        const driver::Picture left = driver::TakePictureAtRest(bounds);
        RedrawWindow(chooser.Window(), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
        chooser.User().Settle();
        EXPECT_TRUE(left == driver::TakePictureAtRest(bounds));
    });
}

TEST_F(Columns, AreNotDraggedBeforeTheMarkerColumnWithTheRealPointer) {
    Look(call, [](DimensionChooser& chooser) {
        const driver::ListView& list = chooser.List();
        Drag(chooser, list.HeaderMiddle(2), {2, list.HeaderMiddle(0).y});
        // A second drag that does something shows that the first is over.
        POINT behindC = list.Divider(3);
        behindC.x -= 10;
        Drag(chooser, list.HeaderMiddle(2), behindC);
        driver::WaitFor("a column that moves", [&] { return list.Order() != Order{0, 1, 2, 3}; });
        EXPECT_EQ(list.Order(), (Order{0, 1, 3, 2}));
    });
}

TEST_F(Columns, TheMarkerColumnIsNotDraggedWithTheRealPointer) {
    Look(call, [](DimensionChooser& chooser) {
        const driver::ListView& list = chooser.List();
        Drag(chooser, list.HeaderMiddle(0), list.HeaderMiddle(3));
        POINT behindC = list.Divider(3);
        behindC.x -= 10;
        Drag(chooser, list.HeaderMiddle(2), behindC);
        driver::WaitFor("a column that moves", [&] { return list.Order() != Order{0, 1, 2, 3}; });
        EXPECT_EQ(list.Order(), (Order{0, 1, 3, 2}));
    });
}

TEST_F(Columns, AreSizedWithTheRealPointerButNotTheMarkerColumn) {
    Look(call, [](DimensionChooser& chooser) {
        const driver::ListView& list = chooser.List();
        const POINT marker = list.Divider(0);
        Drag(chooser, {marker.x - 1, marker.y}, {marker.x + 30, marker.y});
        const POINT divider = list.Divider(2);
        Drag(chooser, divider, {divider.x + 25, divider.y});
        driver::WaitFor("a column that grows", [&] { return list.Width(2) != 50; });
        EXPECT_EQ(75, list.Width(2));
        EXPECT_EQ(20, list.Width(0));
        EXPECT_EQ(50, list.Width(1));
    });
}

}  // namespace
}  // namespace nux
