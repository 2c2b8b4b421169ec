#include <gtest/gtest.h>

#include "framework/ComObject.h"
#include "tests/support/HandleCount.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/OpenedPage.h"
#include "webbrowser/Browser.h"

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

TEST(PageEndurance, AHundredThousandCallsEachWayAreAllRight) {
    OpenedPage page;
    const auto external = MakeObject<ExternalDouble>();
    page.external = external;
    external->methods[L"Next"] = [](const ExternalDouble::Arguments& arguments) {
        return Number(arguments.at(0).Number() + 1);
    };
    page.Show("<p>");
    Variant number = Number(0);
    for (int i = 0; i < 100000; ++i)
        number = page->Call("n => n + 1", {&number, 1});
    EXPECT_EQ(100000, number.Number());
    EXPECT_EQ(L"100000",
              page.Text(L"(() => { let n = 0; while (n < 100000) n = external.Next(n); return n })()"));
}

}  // namespace
}  // namespace nux::webbrowser
