// The quick filter, with the real pointer: press the right button on a cell, drag to a value, let go.

#include "dimensions/nuxQFWindow.h"

#include <set>

#include "driver/Canvas.h"
#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/Picture.h"
#include "driver/PointerInput.h"
#include "driver/Waiting.h"
#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/dimensions/MessageRecorder.h"
#include "tests/support/TestedThreadWindow.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;

class QuickFilter : public DimensionChooserFixture {
protected:
    const DimensionsCall call =
        Call({{"A", "B"}, {{"3", "round"}, {"1", "square"}, {"2", "round"}, {"1", "round"}}},
             {{"A", "B"}, {{"2", "flat"}}});

    /// As many rows as values, from 1 on.
    static DimensionsCall ManyValues(int count) {
        SizeTable table{{"A"}, {}};
        for (int i = 1; i <= count; ++i)
            table.rows.push_back({std::to_string(i)});
        return Call(table);
    }

    /// Waits until the pointer's place has made this row, of the values, the one that is marked.
    static void ExpectMarked(const QuickFilterGesture& gesture, int index, bool marked) {
        const RECT list = gesture.ListBounds();
        const RECT row{list.left, list.top + index * gesture.RowHeight(), list.right,
                       list.top + (index + 1) * gesture.RowHeight()};
        driver::WaitFor(marked ? "a marked value" : "a value without mark", [&] {
            const driver::Picture picture = driver::TakePicture(row);
            const int highlight =
                picture.Count({0, 0, picture.width, picture.height}, GetSysColor(COLOR_HIGHLIGHT));
            return (highlight > picture.width * picture.height / 3) == marked;
        });
    }
};

TEST_F(QuickFilter, OpensWithThePointerOnTheFirstValueAndEightRowsHigh) {
    Look(call, [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 2, 1);
        POINT pointer{};
        GetCursorPos(&pointer);
        const RECT list = gesture.ListBounds();
        const int width = list.right - list.left;
        EXPECT_EQ(pointer.x - list.left, width / 4);
        EXPECT_EQ(pointer.y - list.top, gesture.RowHeight() / 2);
        const RECT pager = gesture.PagerBounds();
        EXPECT_EQ(pager.right - pager.left, width);
        EXPECT_EQ(pager.bottom - pager.top, 8 * gesture.RowHeight());
        EXPECT_EQ(GetWindow(gesture.Window(), GW_OWNER), chooser.Window());
        constexpr LONG frames = WS_POPUP | WS_CHILD | WS_CAPTION | WS_THICKFRAME | WS_SYSMENU;
        EXPECT_EQ(LONG(WS_POPUP | WS_DLGFRAME), GetWindowLongA(gesture.Window(), GWL_STYLE) & frames);
        RECT client{};
        GetClientRect(gesture.Window(), &client);
        EXPECT_EQ(client.right, pager.right - pager.left);
        EXPECT_EQ(client.bottom, pager.bottom - pager.top);
        gesture.MoveTo({pager.right + 40, pager.top + 10});
        gesture.Release();
    });
}

TEST_F(QuickFilter, IsTwoOfTheWidestCharactersWiderThanItsLongestValueHasCharacters) {
    const SizeTable table{{"A"}, {{"short"}, {"a longer value"}, {"mid"}}};
    Look(Call(table), [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        const driver::Canvas canvas(1, 1, 0);
        SelectObject(canvas.Context(), GetStockObject(DEFAULT_GUI_FONT));
        TEXTMETRICA metrics{};
        GetTextMetricsA(canvas.Context(), &metrics);
        const RECT list = gesture.ListBounds();
        EXPECT_EQ(list.right - list.left, (14 + 2) * metrics.tmMaxCharWidth);
        gesture.Release();
    });
}

TEST_F(QuickFilter, PaintsItsValuesAndTheOneUnderThePointerMarked) {
    Look(call, [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        ExpectMarked(gesture, 0, true);
        gesture.MoveTo(gesture.Value(1));
        ExpectMarked(gesture, 1, true);
        const RECT list = gesture.ListBounds();
        const int width = list.right - list.left;
        const driver::Canvas canvas(width, list.bottom - list.top, GetSysColor(COLOR_WINDOW));
        const HDC context = canvas.Context();
        SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
        const Texts values{" " + Whole("1"), " " + Whole("2"), " " + Whole("3")};
        for (int i = 0; i < 3; ++i) {
            const RECT row{0, i * gesture.RowHeight(), width, (i + 1) * gesture.RowHeight()};
            SetBkColor(context, GetSysColor(i == 1 ? COLOR_HIGHLIGHT : COLOR_WINDOW));
            SetTextColor(context, GetSysColor(i == 1 ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
            ExtTextOutA(context, 0, row.top, ETO_OPAQUE | ETO_CLIPPED, &row, values[i].c_str(),
                        static_cast<UINT>(values[i].size()), nullptr);
            if (i == 1)
                DrawFocusRect(context, &row);
        }
        EXPECT_TRUE(driver::TakePicture(list) == canvas.Drawn());
        gesture.Release();
    });
}

TEST_F(QuickFilter, SetsTheNumberThatThePointerIsOver) {
    Look(call, [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        gesture.MoveTo(gesture.Value(1));
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"2|round", "2|flat"}));
        EXPECT_EQ(0, chooser.List().HeaderImage(1));
        EXPECT_TRUE(chooser.CanTurnOffAll());
    });
    EXPECT_EQ(1u, StoredNumber("A", "FilterType"));
    EXPECT_EQ(StoredText("A", "LowerLimit"), Whole("2"));
}

TEST_F(QuickFilter, SetsTheFirstValueIfThePointerDoesNotMove) {
    Look(call, [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"1|square", "1|round"}));
    });
}

TEST_F(QuickFilter, SetsTheTextOfATextColumn) {
    Look(call, [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 2);
        gesture.MoveTo(gesture.Value(2));  // flat, round, square
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"1|square"}));
    });
    EXPECT_EQ(5u, StoredNumber("B", "FilterType"));
    EXPECT_EQ("square", StoredText("B", "FilterString"));
}

TEST_F(QuickFilter, OffersTranslatedTextsInTheirOrder) {
    Translate("QUICK", {{"round", "zirkular"}, {"square", "eckig"}, {"flat", "flach"}});
    DimensionsCall translated = call;
    translated.catalog = "QUICK";
    Look(translated, [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 2);
        gesture.MoveTo(gesture.Value(2));
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"3|zirkular", "2|zirkular", "1|zirkular"}));
    });
}

TEST_F(QuickFilter, IsLeftAloneWhenReleasedOutside) {
    StoreFilter("A", 4, "2");
    Look(call, [](DimensionChooser& chooser) {
        const Texts before = chooser.Rows();
        QuickFilterGesture gesture(chooser, 0, 1);
        const RECT pager = gesture.PagerBounds();
        gesture.MoveTo({pager.left + 5, pager.bottom + 30});
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), before);
    });
    EXPECT_EQ(4u, StoredNumber("A", "FilterType"));
}

TEST_F(QuickFilter, ReleasedBelowTheLastValueTurnsTheFilterOff) {
    StoreFilter("A", 4, "2", "0", 1);
    Look(call, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"3|round", "2|round"}));
        QuickFilterGesture gesture(chooser, 0, 1);
        gesture.MoveTo(gesture.Value(4));  // of three
        gesture.Release();
        EXPECT_EQ(5u, chooser.Rows().size());
        EXPECT_EQ(-1, chooser.List().HeaderImage(1));
        EXPECT_FALSE(chooser.CanTurnOffAll());
    });
    EXPECT_EQ(0u, StoredNumber("A", "FilterType"));
    EXPECT_EQ(3u, StoredNumber("A", "Database"));
}

TEST_F(QuickFilter, ReplacesTheFilterOfTheColumnDatabaseIncluded) {
    StoreFilter("A", 2, "1", "2", 1);
    Look(call, [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        gesture.MoveTo(gesture.Value(1));
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"2|round", "2|flat"}));
    });
    EXPECT_EQ(3u, StoredNumber("A", "Database"));
}

TEST_F(QuickFilter, LeavesTheOrderOfTheFileAndTheOtherFilters) {
    StoreFilter("A", 4, "2");
    Look(call, [](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortAscending);
        EXPECT_EQ(chooser.Rows(), (Texts{"2|round", "2|flat", "3|round"}));
        QuickFilterGesture gesture(chooser, 0, 2);
        gesture.MoveTo(gesture.Value(1));
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"3|round", "2|round"}));
    });
}

TEST_F(QuickFilter, MarksTheValueUnderThePointerOnlyInsideTheWindow) {
    Look(call, [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        ExpectMarked(gesture, 0, true);
        gesture.MoveTo(gesture.Value(2));
        ExpectMarked(gesture, 2, true);
        ExpectMarked(gesture, 0, false);
        const RECT pager = gesture.PagerBounds();
        gesture.MoveTo({pager.right + 30, pager.top + 5});
        ExpectMarked(gesture, 2, false);
        gesture.Release();
    });
}

TEST_F(QuickFilter, ScrollsByOneRowWhileThePointerIsOnTheLowerButton) {
    Look(ManyValues(60), [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        EXPECT_EQ(0, gesture.ScrollPosition());
        gesture.MoveTo(gesture.LowerButton());
        driver::WaitFor("a step of a single row", [&] {
            const int rows = gesture.ScrollPosition() / gesture.RowHeight();
            EXPECT_EQ(0, gesture.ScrollPosition() % gesture.RowHeight());
            return rows % 5 != 0;
        });
        gesture.MoveTo({gesture.PagerBounds().right + 30, gesture.PagerBounds().top});
        gesture.Release();
        EXPECT_EQ(60, chooser.List().RowCount());
    });
}

TEST_F(QuickFilter, ScrollsByFiveRowsWithAKeyHeld) {
    for (const WORD key : {VK_SHIFT, VK_CONTROL, VK_MENU}) {
        Look(ManyValues(203), [key](DimensionChooser& chooser) {
            QuickFilterGesture gesture(chooser, 0, 1);
            {
                const driver::HeldKey held(key);
                gesture.MoveTo(gesture.LowerButton());
                const int end = 100 * gesture.RowHeight();
                std::set<int> rows;
                driver::WaitFor("many rows", [&] {
                    const int position = gesture.ScrollPosition();
                    rows.insert(position / gesture.RowHeight() % 5);
                    return position >= end;
                });
                EXPECT_EQ(std::set<int>{0}, rows) << key;
                gesture.MoveTo({gesture.PagerBounds().right + 30, gesture.PagerBounds().top});
            }
            gesture.Release();
        });
    }
}

TEST_F(QuickFilter, TakesAValueThatWasScrolledIntoSight) {
    Look(ManyValues(40), [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        gesture.MoveTo(gesture.LowerButton());
        driver::WaitFor("the end of the list",
                        [&] { return gesture.ScrollPosition() >= 30 * gesture.RowHeight(); });
        const RECT pager = gesture.PagerBounds();
        gesture.MoveTo({pager.left + 10, (pager.top + pager.bottom) / 2});
        chooser.User().Settle();
        POINT pointer{};
        GetCursorPos(&pointer);
        const int index = (pointer.y - gesture.ListBounds().top) / gesture.RowHeight();
        ExpectMarked(gesture, index, true);
        gesture.Release();
        EXPECT_GT(index, 25);
        EXPECT_EQ(chooser.Rows(), (Texts{std::to_string(index + 1)}));
    });
}

TEST_F(QuickFilter, ScrollsBackOnTheUpperButton) {
    Look(ManyValues(40), [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        gesture.MoveTo(gesture.LowerButton());
        driver::WaitFor("a list that scrolls",
                        [&] { return gesture.ScrollPosition() >= 20 * gesture.RowHeight(); });
        const RECT pager = gesture.PagerBounds();
        gesture.MoveTo({(pager.left + pager.right) / 2, pager.top + 4});
        driver::WaitFor("a list that scrolls back", [&] { return gesture.ScrollPosition() == 0; });
        gesture.MoveTo(gesture.Value(3));
        ExpectMarked(gesture, 3, true);
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"4"}));
    });
}

TEST_F(QuickFilter, IsLeftAloneWhenReleasedOnAScrollButton) {
    Look(ManyValues(40), [](DimensionChooser& chooser) {
        for (const bool upper : {false, true}) {
            QuickFilterGesture gesture(chooser, 0, 1);
            gesture.MoveTo(gesture.LowerButton());
            driver::WaitFor("a list that scrolls",
                            [&] { return gesture.ScrollPosition() >= 20 * gesture.RowHeight(); });
            if (upper) {
                const int before = gesture.ScrollPosition();
                const RECT pager = gesture.PagerBounds();
                gesture.MoveTo({(pager.left + pager.right) / 2, pager.top + 4});
                driver::WaitFor("a list that scrolls back",
                                [&] { return gesture.ScrollPosition() < before; });
            }
            gesture.Release();
            EXPECT_EQ(40, chooser.List().RowCount());
            EXPECT_FALSE(chooser.CanTurnOffAll());
        }
    });
}

TEST_F(QuickFilter, OfATextColumnWithoutValuesTurnsTheFilterOff) {
    DimensionsCall attributes;
    attributes.names = "<n><A/></n>";
    attributes.standard = SizeTable{{"A"}, {{"x"}, {"y"}}}.XmlOfAttributes();
    StoreNumber("A", "FilterType", 5);
    StoreText("A", "FilterString", "y");
    Look(attributes, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"y"}));
        QuickFilterGesture gesture(chooser, 0, 1);
        EXPECT_EQ(gesture.PagerBounds().bottom - gesture.PagerBounds().top, 8 * gesture.RowHeight());
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"x", "y"}));
    });
    EXPECT_EQ(0u, StoredNumber("A", "FilterType"));
}

TEST_F(QuickFilter, ARightButtonThatOpensNothingIsTheLists) {
    Look(call, [](DimensionChooser& chooser) {
        const driver::ListView& list = chooser.List();
        const auto press = [&](POINT at) {
            driver::MovePointer(driver::OnScreen(list.Handle(), at));  // what counts is where the pointer is
            driver::PostMouse(list.Handle(), WM_RBUTTONDOWN, at, MK_RBUTTON);
            driver::PostMouse(list.Handle(), WM_RBUTTONUP, at);
            chooser.User().Settle();
        };
        press(list.CellMiddle(2, 0));
        EXPECT_EQ(std::vector<int>{2}, list.Selected()) << "the list selects the row";
        const RECT last = list.CellBounds(list.RowCount() - 1, 1);
        press({last.left + 5, last.bottom + 20});
        EXPECT_EQ(std::vector<int>{}, list.Selected()) << "the list selects none";
        EXPECT_EQ(5, list.RowCount());
    });
}

TEST_F(QuickFilter, WithoutValuesIsEightRowsHighAndTurnsTheFilterOff) {
    DimensionsCall attributes;
    attributes.names = "<n><A/></n>";
    attributes.standard = SizeTable{{"A"}, {{"1"}, {"2"}}}.XmlOfAttributes();
    StoreFilter("A", 1, "2");
    Look(attributes, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"2"}));
        QuickFilterGesture gesture(chooser, 0, 1);
        const RECT pager = gesture.PagerBounds();
        EXPECT_EQ(pager.bottom - pager.top, 8 * gesture.RowHeight());
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"1", "2"}));
    });
}

TEST_F(QuickFilter, DoesNotOpenOnTheMarkerColumnNorBesideTheRows) {
    Look(call, [](DimensionChooser& chooser) {
        const driver::ListView& list = chooser.List();
        RECT last = list.CellBounds(list.RowCount() - 1, 1);
        for (const POINT point : {list.CellMiddle(0, 0), POINT{last.left + 5, last.bottom + 20}}) {
            driver::MovePointer(driver::OnScreen(list.Handle(), point));
            driver::PressPointer(driver::PointerButton::Right);
            driver::ReleasePointer(driver::PointerButton::Right);
            driver::WaitFor("the release", [] { return GetAsyncKeyState(VK_RBUTTON) >= 0; });
            chooser.User().Settle();
            EXPECT_EQ(chooser.User().Windows(), (std::vector<HWND>{chooser.Window()}));
        }
        // The next gesture shows that the two before are over.
        QuickFilterGesture gesture(chooser, 0, 1);
        gesture.Release();
        EXPECT_EQ(2, chooser.List().RowCount());
    });
}

TEST_F(QuickFilter, OpensUnderThePointerAlsoWhereItPassesTheEdgeOfTheScreen) {
    Look(call, [](DimensionChooser& chooser) {
        RECT window{};
        GetWindowRect(chooser.Window(), &window);
        const POINT cell = driver::OnScreen(chooser.List().Handle(), chooser.List().CellMiddle(0, 2));
        // The cell comes to stand a little before the lower right corner.
        const int right = GetSystemMetrics(SM_CXSCREEN) - 4, bottom = GetSystemMetrics(SM_CYSCREEN) - 4;
        SetWindowPos(chooser.Window(), nullptr, window.left + right - cell.x, window.top + bottom - cell.y, 0,
                     0, SWP_NOSIZE | SWP_NOZORDER);
        chooser.User().Settle();
        QuickFilterGesture gesture(chooser, 0, 2);
        const RECT list = gesture.ListBounds();
        EXPECT_EQ(right - list.left, (list.right - list.left) / 4);
        EXPECT_EQ(bottom - list.top, gesture.RowHeight() / 2);
        EXPECT_GT(list.right, GetSystemMetrics(SM_CXSCREEN));
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"2|flat"}));
    });
}

TEST_F(QuickFilter, IsForTheColumnUnderThePointerWhereverItStands) {
    StoreNumber("A", "Order", 2);
    StoreNumber("B", "Order", 1);
    Look(call, [](DimensionChooser& chooser) {
        ASSERT_EQ((std::vector<int>{0, 2, 1}), chooser.List().Order());
        QuickFilterGesture(chooser, 0, 2).Release();
        EXPECT_EQ(chooser.Rows(), (Texts{"2|flat"}));
        QuickFilterGesture(chooser, 0, 1).Release();
        EXPECT_EQ(0, chooser.List().HeaderImage(1));
    });
    EXPECT_EQ("flat", StoredText("B", "FilterString"));
}

TEST_F(QuickFilter, SetsTheFirstValueOfAButtonThatIsLetGoAtOnce) {
    Look(call, [](DimensionChooser& chooser) {
        driver::MovePointer(driver::OnScreen(chooser.List().Handle(), chooser.List().CellMiddle(0, 1)));
        driver::PressPointer(driver::PointerButton::Right);
        driver::ReleasePointer(driver::PointerButton::Right);
        driver::WaitFor("the filter", [&] { return chooser.CanTurnOffAll() != FALSE; });
        chooser.User().Settle();
        EXPECT_EQ(chooser.Rows(), (Texts{"1|square", "1|round"}));
        EXPECT_EQ(chooser.User().Windows(), (std::vector<HWND>{chooser.Window()}));
    });
}

TEST_F(QuickFilter, KeepsAltAndF10FromTheWindowsAndNoOtherKey) {
    Look(call, [](DimensionChooser& chooser) {
        MessageRecorder recorder(
            chooser.List().Handle(), [](UINT message, WPARAM key, LPARAM) -> std::string {
                switch (message) {
                    case WM_KEYDOWN:
                    case WM_KEYUP:
                    case WM_SYSKEYDOWN:
                    case WM_SYSKEYUP:
                        return std::to_string(message - WM_KEYFIRST) + " " + std::to_string(key);
                    default:
                        return {};
                }
            });
        QuickFilterGesture gesture(chooser, 0, 1);
        for (const WPARAM key : {VK_MENU, VK_F10, VK_SHIFT, VK_DOWN}) {
            for (const UINT message : {WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN, WM_SYSKEYUP})
                driver::Post(chooser.List().Handle(), message, key);
        }
        chooser.User().Settle();
        EXPECT_EQ(recorder.Take(), (Texts{"0 16", "1 16", "4 16", "5 16", "0 40", "1 40", "4 40", "5 40"}));
        gesture.MoveTo({gesture.PagerBounds().right + 30, gesture.PagerBounds().top});
        gesture.Release();
    });
}

TEST_F(QuickFilter, EndsWithoutAFilterWhenTheMouseIsTakenAway) {
    const TestedThreadWindow host;
    const std::function<void()> take = [&] { SetCapture(host.Handle()); };
    Look(call, [&](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        host.Do(take);
        driver::WaitUntilGone(gesture.Window());
        GUITHREADINFO state{};
        state.cbSize = sizeof state;
        GetGUIThreadInfo(GetWindowThreadProcessId(chooser.Window(), nullptr), &state);
        EXPECT_EQ(state.hwndCapture, host.Handle()) << "the mouse stays with whoever took it";
        gesture.Release();
        EXPECT_EQ(5, chooser.List().RowCount());
        const std::function<void()> release = [] { ReleaseCapture(); };
        host.Do(release);
        chooser.User().Settle();
    });
    EXPECT_EQ(0u, StoredNumber("A", "FilterType"));
}

TEST_F(QuickFilter, EndsWhenTheHostQuitsAndHandsThatOn) {
    const DWORD thread = GetCurrentThreadId();
    const DimensionsResult result = Choose(call, [thread](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        PostThreadMessageA(thread, WM_QUIT, 42, 0);
        driver::WaitUntilGone(gesture.Window());
        driver::WaitUntilGone(chooser.Window());
    });
    EXPECT_FALSE(result.written && result.row);
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "for the loop of the host";
    EXPECT_EQ(42u, message.wParam);
    EXPECT_EQ(0u, StoredNumber("A", "FilterType"));
}

TEST_F(QuickFilter, OfATextColumnOffersTranslationsOfNumbersToo) {
    Translate("NUMBERS", {{"12", "zwoelf"}});
    DimensionsCall mixed = Call({{"A"}, {{"12"}, {"round"}}});
    mixed.catalog = "NUMBERS";
    Look(mixed, [](DimensionChooser& chooser) {
        EXPECT_EQ(chooser.Rows(), (Texts{"12", "round"})) << "the cell of a number is not translated";
        QuickFilterGesture gesture(chooser, 0, 1);
        gesture.MoveTo(gesture.Value(1));
        gesture.Release();
        EXPECT_EQ(chooser.Rows(), Texts{});
    });
    DWORD size = 32;
    char text[32] = "";
    RegGetValueA(HKEY_LOCAL_MACHINE, Key("A", "NUMBERS").c_str(), "FilterString", RRF_RT_REG_SZ, nullptr,
                 text, &size);
    EXPECT_STREQ("zwoelf", text);
}

TEST_F(QuickFilter, LeavesNoCaptureBehind) {
    Look(call, [](DimensionChooser& chooser) {
        QuickFilterGesture gesture(chooser, 0, 1);
        GUITHREADINFO state{};
        state.cbSize = sizeof state;
        const DWORD thread = GetWindowThreadProcessId(chooser.Window(), nullptr);
        GetGUIThreadInfo(thread, &state);
        EXPECT_EQ(state.hwndCapture, gesture.ValueList());
        gesture.Release();
        GetGUIThreadInfo(thread, &state);
        EXPECT_EQ(nullptr, state.hwndCapture);
    });
}

TEST(nuxQFWindowMessageFilter, KeepsTheMessagesFromAllWindowsButItsThree) {
    const auto window = [](LONG_PTR number) { return reinterpret_cast<HWND>(number); };
    nuxQFWindowMessageFilter filter({window(1), window(2), window(3)});
    struct {
        LONG_PTR window;
        bool kept;
    } const cases[] = {{0, false}, {1, false}, {2, false}, {3, false}, {4, true}, {-1, true}};
    for (const auto& [number, kept] : cases) {
        for (const UINT message : {WM_MOUSEMOVE, WM_RBUTTONUP, WM_NULL, WM_QUIT}) {
            MSG posted{};
            posted.hwnd = window(number);
            posted.message = message;
            EXPECT_EQ(filter.PreTranslateMessage(posted), kept) << number << " " << message;
        }
    }
}

}  // namespace
}  // namespace nux
