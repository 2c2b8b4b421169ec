// Opened and closed a thousand times, the chooser leaves nothing behind.

#include <algorithm>

#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/PointerInput.h"
#include "framework/Module.h"
#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/support/HandleCount.h"
#include "tests/support/RawVariant.h"
#include "tests/support/WithUser.h"

namespace nux {
namespace {

/// Objects of the process that a leak would add to.
struct Holdings {
    int gdi = 0;       ///< less those of the next line and their regions
    int contexts = 0;  ///< of windows: the system keeps a pool of them, which grows as it likes at first
    std::vector<std::string> windows;  ///< of this process: their classes, most of them the system's own
    int menus = 0;
    int icons = 0;
    unsigned handles = 0;
    long objects = 0;
    long blocks = 0;  ///< of memory, in all heaps
    std::size_t bytes = 0;

    /// Counts them one by one: Wine doesn't tell their number (GetGuiResources), but finds any of them by the
    /// lower half of its handle.
    static Holdings Now() {
        Holdings now;
        for (UINT_PTR low = 0x20; low < 0x10000; ++low) {
            const DWORD type = GetObjectType(reinterpret_cast<HGDIOBJ>(low));
            if (type == OBJ_DC)
                ++now.contexts;
            else if (type != 0 && type != OBJ_REGION)
                ++now.gdi;
            now.CountWindow(reinterpret_cast<HWND>(low));
            if (IsMenu(reinterpret_cast<HMENU>(low)))
                ++now.menus;
            ICONINFO icon{};
            if (GetIconInfo(reinterpret_cast<HICON>(low), &icon)) {
                ++now.icons;
                DeleteObject(icon.hbmColor);
                DeleteObject(icon.hbmMask);
            }
        }
        now.handles = HandleCount() - driver::HandlesOfInput();
        now.objects = LiveObjects();
        now.CountMemory();
        return now;
    }

private:
    /// Windows of other processes, which come and go with the desktop, are found by their handles too.
    void CountWindow(HWND window) {
        DWORD process = 0;
        if (GetWindowThreadProcessId(window, &process) && process == GetCurrentProcessId())
            windows.push_back(driver::ClassOf(window));
    }
    void CountMemory() {
        HANDLE heaps[64];
        const DWORD count = GetProcessHeaps(64, heaps);
        for (DWORD i = 0; i < count; ++i) {
            PROCESS_HEAP_ENTRY entry{};
            HeapLock(heaps[i]);
            while (HeapWalk(heaps[i], &entry)) {
                if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) {
                    ++blocks;
                    bytes += entry.cbData;
                }
            }
            HeapUnlock(heaps[i]);
        }
    }
};

class Endurance : public DimensionChooserFixture {
protected:
    static SizeTable ManyRows() {
        SizeTable table{{"A", "B", "C"}, {}};
        for (int i = 0; i < 1000; ++i)
            table.rows.push_back(
                {std::to_string(i), std::to_string(i % 7) + ".5", i % 3 ? "round" : "square"});
        return table;
    }

    /// Does `once` first until caches are warm, and then `times` times, which must leave nothing.
    static void ExpectNothingLeft(int warmUp, int times, const std::function<void(int)>& once) {
        for (int i = 0; i < warmUp; ++i)
            once(i);
        const Holdings before = Holdings::Now();
        for (int i = 0; i < times; ++i)
            once(i);
        const Holdings after = Holdings::Now();
        // Fewer are no leak: objects of other processes count too. The system makes some of its own once, at
        // any time; what the chooser leaves behind would come each time.
        EXPECT_LT(after.gdi - before.gdi, times / 2);
        EXPECT_LT(after.contexts - before.contexts, std::max(times / 2, 200));
        EXPECT_LT(after.blocks - before.blocks, times / 2);
        EXPECT_LT(static_cast<int>(after.handles - before.handles), times / 2);
        EXPECT_LE(after.windows.size(), before.windows.size())
            << testing::PrintToString(before.windows) << "\n"
            << testing::PrintToString(after.windows);
        EXPECT_LE(after.menus, before.menus);
        EXPECT_LE(after.icons, before.icons);
        EXPECT_EQ(after.objects, before.objects);
        std::printf(
            "GDI %d %+d, contexts %d %+d, windows %zu, menus %d, icons %d, handles %u, objects %ld, blocks "
            "%ld %+ld of %zu "
            "bytes\n",
            after.gdi, after.gdi - before.gdi, after.contexts, after.contexts - before.contexts,
            after.windows.size(), after.menus, after.icons, after.handles, after.objects, after.blocks,
            after.blocks - before.blocks, after.bytes);
    }
};

TEST_F(Endurance, AThousandOpeningsOfAThousandRowsLeaveNothing) {
    const DimensionsCall call = Call(ManyRows(), {{"A", "B", "C"}, {{"1", "2", "own"}}});
    const auto names = SelectNodes(RootOf(ParseXml(call.names)), L"*");
    const auto standard = SelectNodes(RootOf(ParseXml(*call.standard)), L"*");
    const auto users = SelectNodes(RootOf(ParseXml(*call.users)), L"*");
    RawVariant none, standardRows, usersRows;
    standardRows.vt = usersRows.vt = VT_DISPATCH;
    standard.CopyTo(&standardRows.pdispVal);
    users.CopyTo(&usersRows.pdispVal);
    const auto open = [&](int i) {
        ComPtr<IDispatch> chosen;
        WithUser(
            [&] {
                Object().ChooseDimensions(nullptr, nullptr, names.Get(), none, standardRows, usersRows,
                                          chosen.Receive());
            },
            [&](driver::User& user) {
                const HWND window = user.Dialog("Choose dimensions");
                driver::Click(driver::Item(window, i % 2 ? IDOK : IDCANCEL));
                driver::WaitUntilGone(window);
            });
        ASSERT_EQ(static_cast<bool>(chosen), i % 2 == 1);
    };
    ExpectNothingLeft(50, 1000, open);
}

TEST_F(Endurance, MenusDialogsAndQuickFiltersLeaveNothing) {
    const DimensionsCall call = Call({{"A", "B"}, {{"1", "round"}, {"2", "square"}, {"3", "round"}}});
    const auto once = [&](int i) {
        Look(call, [i](DimensionChooser& chooser) {
            chooser.Menu(1, i % 2 ? MenuItem::SortAscending : MenuItem::SortDescending);
            const FilterDialog dialog = chooser.DefineFilter(1);
            dialog.Check(IDC_FILTER_GREATER_OR_EQUAL);
            dialog.SetLower("2");
            dialog.Ok();
            QuickFilterGesture gesture(chooser, 0, i % 2 ? 1 : 2);
            gesture.Release();
            chooser.TurnOffAll();
        });
    };
    ExpectNothingLeft(5, 40, once);
}

}  // namespace
}  // namespace nux
