#include <gtest/gtest.h>

#include <cstdio>

#include "framework/ComObject.h"
#include "framework/Module.h"
#include "tests/support/HandleCount.h"
#include "tests/support/PrivateMemory.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/OpenedPage.h"
#include "webbrowser/Browser.h"
#include "webbrowser/DispatchMembers.h"

namespace nux::webbrowser {
namespace {

int TargetsOfTheBrowser() {
    const Json targets =
        Browser::Running()->Wait({}, "Target.getTargets", Json::object(), Inbox::OfThisThread());
    return static_cast<int>(targets["targetInfos"].size());
}

TEST(PageEndurance, FiveHundredPagesLeaveNothing) {
    {
        OpenedPage first;
        first.Show("<p>");
    }
    const DWORD handles = HandleCount();
    const int targets = TargetsOfTheBrowser();
    for (int i = 0; i < 500; ++i) {
        OpenedPage page;
        page.Show("<p>x");
    }
    OpenedPage last;
    EXPECT_TRUE(last.Await([&] { return TargetsOfTheBrowser() <= targets + 1; })) << TargetsOfTheBrowser();
    EXPECT_LE(HandleCount(), handles + 3);
}

TEST(PageEndurance, TenThousandElementsAreAskedForOneAfterTheOther) {
    constexpr int count = 10000;
    OpenedPage page;
    page.Show(
        "<script>for (var i = 0; i < 10000; ++i) document.write('<i id=e' + i + '>' + i + '</i>')</script>");
    const long objects = LiveObjects();
    int right = 0;
    for (int i = 0; i < count; ++i) {
        const Variant number = Number(i);
        const PageReference element =
            page->CallForObject("i => document.getElementById('e' + i)", {&number, 1});
        right += element && element.Get(L"textContent").Text() == std::to_wstring(i);
    }
    EXPECT_EQ(count, right);
    EXPECT_EQ(objects, LiveObjects());
}

/// Numbers, texts and objects of both sides, each way.
void CallEachWay(OpenedPage& page, int count) {
    Variant number = Number(0);
    for (int i = 0; i < count; i += 2) {
        number = page->Call("n => n + 1", {&number, 1});
        // Another object of the page each time.
        const Variant made = page->Call("n => ({n: n + 1})", {&number, 1});
        number = CallMember(made.Object(), L"n", {});
    }
    EXPECT_EQ(count, number.Number());
    // What one script has got stays at least until that script ends: the engine keeps the targets of weak
    // references for so long.
    for (int i = 0; i < count; i += 1000)
        EXPECT_EQ(std::to_wstring(i + 1000), page.Text(L"count(" + std::to_wstring(i) + L")"));
}

void ExpectCallsLeaveNothing(int count) {
    OpenedPage page;
    const auto external = MakeObject<ExternalDouble>();
    page.external = external;
    external->methods[L"Next"] = [](const ExternalDouble::Arguments& arguments) {
        return Number(arguments.at(0).Number() + 1);
    };
    external->methods[L"Make"] = [](const ExternalDouble::Arguments& arguments) {
        const auto made = MakeObject<ExternalDouble>();
        made->properties[L"n"] = Number(arguments.at(0).Number() + 1);
        return Object(made);
    };
    page.Show(
        "<script>function count(from) { let n = from; while (n < from + 1000) "
        "n = external.Make(external.Next(n)).n; return n; }</script>");
    CallEachWay(page, 1000);
    const std::int64_t scripts = page.CollectGarbage();
    const long objects = LiveObjects();
    const unsigned handles = HandleCount();
    const long long memory = PrivateMemory();
    CallEachWay(page, count);
    EXPECT_TRUE(page.Await([&] {
        page.CollectGarbage();
        return LiveObjects() <= objects;
    })) << LiveObjects() - objects;
    const std::int64_t grownScripts = page.CollectGarbage() - scripts;
    const long long grown = PrivateMemory() - memory;
    std::printf("%d calls each way: the program has grown by %lld bytes, the page's scripts by %lld\n", count,
                grown, static_cast<long long>(grownScripts));
    EXPECT_LE(HandleCount(), handles);
    // What the allocators keep, however many calls there were.
    EXPECT_LT(grown, 2 << 20);
    EXPECT_LT(grownScripts, 1 << 20);
}

TEST(PageEndurance, TwoThousandCallsEachWayLeaveNothing) {
    ExpectCallsLeaveNothing(2000);
}

// Takes some minutes: --gtest_also_run_disabled_tests.
TEST(PageEndurance, DISABLED_AHundredThousandCallsEachWayLeaveNothing) {
    ExpectCallsLeaveNothing(100000);
}

}  // namespace
}  // namespace nux::webbrowser
