#include <gtest/gtest.h>

#include "framework/ComObject.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/OpenedPage.h"

namespace nux::webbrowser {
namespace {

TEST(Page, ShowsADocumentOfADiskAndRunsItsScript) {
    OpenedPage page;
    page.Show("<html><body><p id=p>old</p><script>p.innerText = 'n' + (1 + 1)</script></body></html>");
    EXPECT_EQ(L"n2", page.Text(L"document.getElementById('p').innerText"));
}

TEST(Page, LetsAScriptCallTheExternalObjectAndWaitsForIt) {
    OpenedPage page;
    const auto external = MakeObject<ExternalDouble>();
    page.external = external;
    external->methods[L"Add"] = [](const ExternalDouble::Arguments& arguments) {
        return Number(arguments.at(0).Number() + arguments.at(1).Number());
    };
    page.Show("<script>var sum = external.Add(40, 2)</script>");
    EXPECT_EQ(L"42", page.Text(L"sum"));
}

}  // namespace
}  // namespace nux::webbrowser
