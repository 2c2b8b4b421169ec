// Pages that are broken, endless or huge.

#include <gtest/gtest.h>
#include <urlmon.h>

#include <string>

#include "framework/ComObject.h"
#include "framework/HResult.h"
#include "framework/Text.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/OpenedPage.h"
#include "webbrowser/DispatchMembers.h"

namespace nux::webbrowser {
namespace {

class BrokenDocument : public testing::TestWithParam<std::string> {};

TEST_P(BrokenDocument, IsShownAsFarAsItCanBeRead) {
    OpenedPage page;
    page.Show(GetParam());
    EXPECT_EQ(ReadyState::complete, page->State());
    EXPECT_EQ(L"true", page.Text(L"document.documentElement.textContent.includes('end')"));
}

std::string AllBytes() {
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    return bytes;
}

INSTANTIATE_TEST_SUITE_P(HardPages, BrokenDocument,
                         testing::Values("<table><tr><td><b><i><p>unclosed<div>end", "</p></p></html><p>end",
                                         "<p>" + std::string(1000, '\0') + "end",
                                         "<html><p>" + AllBytes() + "<p>end",
                                         "<meta charset=utf-8><p>\xe4\xf6\xfc\xc3<p>end",
                                         "<meta charset=nowhere><p>\x81\xff<p>end",
                                         "<p>" + std::string(1 << 20, 'x') + "<p>end"));

TEST(HardPages, AScriptThatFailsLeavesTheRestOfThePage) {
    OpenedPage page;
    page.Show("<script>before = 1; nothing.there()</script><script>(</script><p id=p>after");
    EXPECT_EQ(L"1 after", page.Text(L"before + ' ' + p.innerText"));
}

TEST(HardPages, ADocumentThatIsNeverClosedCanBeStopped) {
    OpenedPage page;
    page.Show("<p>first");
    page->Execute(L"document.open(); document.write('<p id=p>second'); 1");
    EXPECT_EQ(L"second", page.Text(L"p.innerText"));
    page->Stop();
    EXPECT_TRUE(page.Await([&] { return page->State() == ReadyState::complete && !page->IsBusy(); }));
}

TEST(HardPages, AnEndlessScriptWhileLoadingEndsWithStop) {
    OpenedPage page;
    page.Show("<p>first");
    page->Navigate(
        Widen(page.folder.Write("endless.htm", "<script>status = 'on'; for (;;);</script><p id=p>x")));
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"status on"); }));
    EXPECT_TRUE(page->IsBusy());
    page->Stop();
    EXPECT_TRUE(page.Await([&] { return page->State() == ReadyState::complete && !page->IsBusy(); }));
}

TEST(HardPages, AnEndlessScriptWhileLoadingEndsWithThePage) {
    OpenedPage page;
    page->Navigate(Widen(page.folder.Write("endless.htm", "<script>status = 'on'; for (;;);</script>")));
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"status on"); }));
    const ULONGLONG begin = GetTickCount64();
    page->Close();
    page.page.reset();
    EXPECT_LT(GetTickCount64() - begin, 1000U);
    OpenedPage other;
    other.Show("<p id=p>x");
    EXPECT_EQ(L"x", other.Text(L"p.innerText"));
}

TEST(HardPages, CallsWithinCallsComeToAnEnd) {
    OpenedPage page;
    const auto external = MakeObject<ExternalDouble>();
    page.external = external;
    external->methods[L"Run"] = [](const ExternalDouble::Arguments& arguments) {
        return CallMember(arguments.at(0).Object(), L"", {});
    };
    page.Show("<p id=p>x<script>function again() { return external.Run(again); }</script>");
    EXPECT_EQ(L"failed: Out of stack space", page.Text(L"again()"));
    EXPECT_EQ(L"x", page.Text(L"p.innerText"));
}

TEST(HardPages, APageThatAlwaysAsksCanBeClosed) {
    OpenedPage page;
    int asked = 0;
    page.answer = [&](const PageDialog&) {
        if (++asked == 3)
            page->Close();
        return PageDialogAnswer();
    };
    page->Navigate(Widen(page.folder.Write("page.htm", "<script>for (;;) alert(1)</script>")));
    EXPECT_TRUE(page.Await([&] { return !page->IsOpen(); }));
    EXPECT_EQ(3, asked);
}

TEST(HardPages, FramesMayLieDeepInEachOther) {
    OpenedPage page;
    for (int i = 1; i < 12; ++i)
        page.folder.Write(std::to_string(i) + ".htm",
                          "<iframe src=" + std::to_string(i + 1) + ".htm></iframe>");
    page.folder.Write("12.htm", "<script>top.deepest = external.Depth()</script>");
    const auto external = MakeObject<ExternalDouble>();
    page.external = external;
    external->methods[L"Depth"] = [](const ExternalDouble::Arguments&) { return Number(12); };
    page.Show("<iframe src=1.htm></iframe>");
    EXPECT_EQ(L"12", page.Text(L"deepest"));
}

class NoDocument : public testing::TestWithParam<const char*> {};

TEST_P(NoDocument, IsToldAsAFailure) {
    OpenedPage page;
    page.Load(Widen(page.folder.Write(GetParam(), std::string("PK\x03\x04\x00\x01", 6))));
    EXPECT_TRUE(page.WasTold(L"failed " + page->Location() + L" " +
                             std::to_wstring(static_cast<unsigned>(INET_E_DOWNLOAD_FAILURE))));
    EXPECT_EQ(ReadyState::complete, page->State());
    EXPECT_FALSE(page->IsBusy());
}

INSTANTIATE_TEST_SUITE_P(HardPages, NoDocument, testing::Values("a.zip", "a.exe", "a.unknown", "a", "a.ttf"));

}  // namespace
}  // namespace nux::webbrowser
