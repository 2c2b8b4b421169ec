#include "webbrowser/Page.h"

#include <gtest/gtest.h>
#include <urlmon.h>
#include <algorithm>

#include "framework/ComObject.h"
#include "framework/HResult.h"
#include "framework/Text.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/OpenedPage.h"
#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

TEST(Page, ShowsADocumentOfADiskAndRunsItsScript) {
    OpenedPage page;
    page.Show("<html><body><p id=p>old</p><script>p.innerText = 'n' + (1 + 1)</script></body></html>");
    EXPECT_EQ(L"n2", page.Text(L"document.getElementById('p').innerText"));
}

TEST(Page, TellsOfANavigationInTheOrderOfItsStates) {
    OpenedPage page;
    EXPECT_EQ(ReadyState::uninitialized, page->State());
    page.Show("<title>First</title>");
    const std::wstring address = page->Location();
    EXPECT_TRUE(address.starts_with(L"file:///C:/")) << ToUtf8(address);
    std::vector<std::wstring> told = page.told;
    std::erase_if(told,
                  [](const std::wstring& line) { return line.starts_with(L"title") || line == L"history"; });
    EXPECT_EQ((std::vector<std::wstring>{L"state 1", L"state 2", L"navigated " + address, L"state 3",
                                         L"state 4", L"loaded " + address}),
              told);
    EXPECT_EQ(ReadyState::complete, page->State());
    EXPECT_FALSE(page->IsBusy());
}

TEST(Page, TellsTheTitleAndEachChangeOfIt) {
    OpenedPage page;
    page.Show("<title>First</title>");
    EXPECT_TRUE(page.Await([&] { return page->Title() == L"First"; }));
    page->Execute(L"document.title = 'Second'");
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"title Second"); }));
    EXPECT_EQ(L"Second", page->Title());
}

TEST(Page, TellsTheStatusThatAScriptSets) {
    OpenedPage page;
    page.Show("<script>window.status = 'busy'</script>");
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"status busy"); }));
    EXPECT_EQ(L"busy", page.Text(L"status"));
}

class AddressForms : public testing::TestWithParam<std::string> {};

TEST_P(AddressForms, AllLoadTheFile) {
    OpenedPage page;
    const std::string path = page.folder.Write("a b\\p\xe4ge.htm", "<p id=p>here</p><img src='x.png'>");
    std::string address = GetParam();
    std::string forward = path;
    std::replace(forward.begin(), forward.end(), '\\', '/');
    const auto put = [&](const char* name, const std::string& value) {
        if (const std::size_t at = address.find(name); at != std::string::npos)
            address.replace(at, 2, value);
    };
    put("@B", path);
    put("@F", forward);
    page.Load(Widen(address, CP_ACP));
    EXPECT_EQ(L"here", page.Text(L"p.innerText"));
    EXPECT_TRUE(page->Location().starts_with(L"file:///C:/"));
    EXPECT_TRUE(page->Location().ends_with(L"/a%20b/p\x00e4ge.htm"));
}

INSTANTIATE_TEST_SUITE_P(Page, AddressForms,
                         testing::Values("@B", "@F", "file://@B", "file:///@F", "file://@F", "file:@B",
                                         "FILE:///@B"));

TEST(Page, GoesBackAndForwardOnceThereIsSomethingToGoTo) {
    OpenedPage page;
    page.Show("<p>1", "one.htm");
    EXPECT_FALSE(page->GoBack());
    page.Show("<p>2", "two.htm");
    ASSERT_TRUE(page.Await([&] { return page->CanGoBack(); }));
    EXPECT_FALSE(page->CanGoForward());
    int loads = page.loads;
    EXPECT_TRUE(page->GoBack());
    ASSERT_TRUE(page.Await([&] { return page.loads > loads && page->CanGoForward(); }));
    EXPECT_TRUE(page->Location().ends_with(L"one.htm"));
    loads = page.loads;
    EXPECT_TRUE(page->GoForward());
    ASSERT_TRUE(page.Await([&] { return page.loads > loads; }));
    EXPECT_TRUE(page->Location().ends_with(L"two.htm"));
}

TEST(Page, ReloadsWhatHasChangedOnDisk) {
    OpenedPage page;
    page.Show("<p id=p>old");
    page.folder.Write("page.htm", "<p id=p>new");
    const int loads = page.loads;
    page->Reload(false);
    ASSERT_TRUE(page.Await([&] { return page.loads > loads; }));
    EXPECT_EQ(L"new", page.Text(L"p.innerText"));
}

TEST(Page, LoadsWhatItRefersToFromItsFolder) {
    OpenedPage page;
    page.folder.Write("sub\\a.js", "var a = 'script'");
    page.folder.Write("sub\\a.css", "p { color: rgb(1, 2, 3) }");
    page.Show("<link rel=stylesheet href='sub/a.css'><script src='sub\\a.js'></script><p id=p>x");
    EXPECT_EQ(L"script", page.Text(L"a"));
    EXPECT_EQ(L"rgb(1, 2, 3)", page.Text(L"getComputedStyle(p).color"));
}

const char pixel[] =
    "GIF89a\x01\x00\x01\x00\x80\x00\x00\xff\x00\x00\xff\xff\xff,\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02"
    "D\x01\x00;";

TEST(Page, ShowsPicturesOfAnyFolderByEachFormOfTheirPath) {
    OpenedPage page;
    TempFolder elsewhere;
    const std::string path = elsewhere.Write("a.gif", std::string(pixel, sizeof pixel - 1));
    std::string forward = path;
    std::replace(forward.begin(), forward.end(), '\\', '/');
    page.Show("<img id=a src='" + path + "'><img id=b src='file://" + path + "'><img id=c src='file:///" +
              forward + "'><img id=d src='" + forward + "'>");
    EXPECT_TRUE(page.Await([&] {
        return page.Text(L"[a, b, c, d].map(i => i.naturalWidth).join()") == L"1,1,1,1";
    })) << ToUtf8(page.Text(L"[a, b, c, d].map(i => i.naturalWidth).join()"));
    Variant address = Words((L"file://" + Widen(path)).c_str());
    page->Call("address => { window.e = new Image(); e.src = address; document.body.append(e); }",
               {&address, 1});
    EXPECT_TRUE(page.Await([&] { return page.Text(L"e.naturalWidth") == L"1"; }));
}

TEST(Page, ReadsByItsOwnRequestsOnlyBelowTheFolderOfTheHostsDocument) {
    OpenedPage page;
    TempFolder elsewhere;
    elsewhere.Write("secret.txt", "secret");
    page.folder.Write("sub\\a.txt", "text");
    page.Show(R"(<script>function read(address) {
        try {
            var request = new XMLHttpRequest();
            request.open('GET', address, false);
            request.send();
            return request.responseText;
        } catch (e) {
            return 'refused';
        }
    }</script>)");
    EXPECT_EQ(L"text", page.Text(L"read('sub/a.txt')"));
    std::string forward = elsewhere.Path();
    std::replace(forward.begin(), forward.end(), '\\', '/');
    EXPECT_EQ(L"refused", page.Text(L"read('file:///" + Widen(forward) + L"secret.txt')"));
    EXPECT_EQ(L"refused", page.Text(L"read('http://localhost/')"));
    EXPECT_EQ(L"refused", page.Text(L"read('file:///etc/passwd')"));
}

TEST(Page, TellsOfAFileThatIsntThere) {
    OpenedPage page;
    page.Load(L"C:\\nowhere\\x.htm");
    EXPECT_TRUE(page.WasTold(L"failed file:///C:/nowhere/x.htm " +
                             std::to_wstring(static_cast<unsigned>(INET_E_OBJECT_NOT_FOUND))));
    EXPECT_TRUE(page.Text(L"document.body.innerText").find(L"can't be shown") != std::wstring::npos);
}

TEST(Page, RefusesTheNetwork) {
    OpenedPage page;
    page->Navigate(L"http://localhost/");
    EXPECT_TRUE(page.Await([&] {
        return page.WasTold(L"failed http://localhost/ " +
                            std::to_wstring(static_cast<unsigned>(INET_E_RESOURCE_NOT_FOUND)));
    }));
    EXPECT_FALSE(page->IsBusy());
}

TEST(Page, AsksBeforeAScriptNavigates) {
    OpenedPage page;
    page.folder.Write("other.htm", "<p id=p>other");
    page.Show("<p id=p>first");
    page.refuses = true;
    page->Execute(L"location.href = 'other.htm'; 1");
    EXPECT_TRUE(page.Await([&] { return page.told.back().starts_with(L"navigating "); }));
    EXPECT_EQ(L"first", page.Text(L"p.innerText"));
    page.refuses = false;
    const int loads = page.loads;
    page->Execute(L"location.href = 'other.htm'; 1");
    EXPECT_TRUE(page.Await([&] { return page.loads > loads; }));
    EXPECT_EQ(L"other", page.Text(L"p.innerText"));
}

TEST(Page, FollowsAScriptToAPathWithADrive) {
    OpenedPage page;
    std::string path = page.folder.Write("other.htm", "<p id=p>other");
    std::replace(path.begin(), path.end(), '\\', '/');
    page.Show("<p id=p>first");
    const int loads = page.loads;
    page->Execute(L"location.href = '" + Widen(path) + L"'; 1");
    EXPECT_TRUE(page.Await([&] { return page.loads > loads; }));
    EXPECT_EQ(L"other", page.Text(L"p.innerText"));
}

TEST(Page, LoadsFramesBeforeItIsComplete) {
    OpenedPage page;
    page.folder.Write("inner.htm", "<p id=q>inner");
    page.Show("<iframe id=f src=inner.htm></iframe>");
    const auto isInner = [](const std::wstring& line) { return line.starts_with(L"frame loaded"); };
    const auto inner = std::find_if(page.told.begin(), page.told.end(), isInner);
    ASSERT_NE(page.told.end(), inner);
    EXPECT_TRUE(inner->ends_with(L"inner.htm"));
    EXPECT_EQ(page.told.end() - 1,
              std::find_if(page.told.begin(), page.told.end(),
                           [](const std::wstring& line) { return line.starts_with(L"loaded"); }));
    EXPECT_EQ(L"inner", page.Text(L"f.contentDocument.getElementById('q').innerText"));
}

TEST(Page, TellsOfAWindowThatAScriptWants) {
    OpenedPage page;
    page.Show("<a id=a href='other.htm' target=_blank>x</a>");
    EXPECT_EQ(L"null", page.Text(L"window.open('new.htm')"));
    EXPECT_TRUE(page.Await([&] {
        return page.told.back().starts_with(L"new window file:///C:/") &&
               page.told.back().ends_with(L"/new.htm");
    }));
    page->Execute(L"a.click()");
    EXPECT_TRUE(page.Await([&] {
        return page.told.back().starts_with(L"new window file:///C:/") &&
               page.told.back().ends_with(L"/other.htm");
    })) << ToUtf8(page.told.back());
}

TEST(Page, TellsThatAScriptClosesItsWindow) {
    OpenedPage page;
    page.Show("<script>window.close()</script>");
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"close"); }));
}

TEST(Page, AsksThroughItsListenerWhatAScriptAsksByADialog) {
    OpenedPage page;
    page.Show("<p>");
    page.answer = [](const PageDialog& question) {
        return PageDialogAnswer{question.message == L"yes?", question.text + L"!"};
    };
    EXPECT_EQ(L"undefined", page.Text(L"alert('note')"));
    EXPECT_EQ(L"true", page.Text(L"confirm('yes?')"));
    EXPECT_EQ(L"false", page.Text(L"confirm('no?')"));
    EXPECT_EQ(L"me!", page.Text(L"prompt('yes?', 'me')"));
    EXPECT_EQ(L"null", page.Text(L"prompt('no?', 'me')"));
    EXPECT_TRUE(page.WasTold(L"asked note"));
}

TEST(Page, ShowsAnEmptyPage) {
    OpenedPage page;
    page.Load(L"about:blank");
    EXPECT_EQ(L"about:blank", page->Location());
    EXPECT_EQ(L"", page.Text(L"document.body.innerHTML"));
    EXPECT_EQ(L"[object]", page.Text(L"external"));
}

TEST(Page, StopsAScriptThatDoesNotEnd) {
    OpenedPage page;
    page.Show("<p id=p>x");
    page->Post("() => { window.status = 'begun'; for (;;) {} }");
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"status begun"); }));
    page->Stop();
    EXPECT_EQ(L"x", page.Text(L"p.innerText"));
}

TEST(Page, GoesOnWhenNothingIsThereToStop) {
    OpenedPage page;
    page.Show("<p id=p>x");
    page->Stop();
    EXPECT_EQ(L"x", page.Text(L"p.innerText"));
}

Page* stopped = nullptr;

void CALLBACK StopPage(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    stopped->Stop();
}

TEST(Page, StopsAScriptThatAnObjectCalls) {
    OpenedPage page;
    const auto external = MakeObject<ExternalDouble>();
    page.external = external;
    page.Show("<p id=p>x");
    HRESULT failure = S_OK;
    external->methods[L"Call"] = [&](const ExternalDouble::Arguments&) {
        stopped = page.page.get();
        SetTimer(nullptr, 0, 100, &StopPage);
        try {
            page->Call("() => { for (;;) {} }");
        } catch (const HResultError& error) {
            failure = error.Code();
        }
        return Number(1);
    };
    EXPECT_EQ(L"failed: The page isn't there any more", page.Text(L"external.Call()"));
    EXPECT_EQ(RPC_E_DISCONNECTED, failure);
    EXPECT_EQ(L"x", page.Text(L"p.innerText"));
}

TEST(Page, GoesToAPartOfADocument) {
    OpenedPage page;
    const std::wstring address =
        Widen(page.folder.Write("page.htm", "<p style='height: 2000px'>x<p id=part>y"), CP_ACP);
    page.Load(address + L"#part");
    EXPECT_EQ(1, std::count_if(page.told.begin(), page.told.end(),
                               [](const std::wstring& line) { return line.starts_with(L"navigated"); }));
    EXPECT_EQ(0, std::count_if(page.told.begin(), page.told.end(),
                               [](const std::wstring& line) { return line.starts_with(L"navigating"); }));
    EXPECT_TRUE(page->Location().ends_with(L"page.htm#part"));
    EXPECT_NE(L"0", page.Text(L"Math.round(scrollY)"));
    page->Execute(L"var same = true");
    page.Load(address + L"#other");
    EXPECT_EQ(ReadyState::complete, page->State());
    EXPECT_FALSE(page->IsBusy());
    EXPECT_TRUE(page->Location().ends_with(L"page.htm#other"));
    EXPECT_EQ(L"true", page.Text(L"same"));
}

TEST(Page, EndsAWaitWhenTheThreadIsToEnd) {
    OpenedPage page;
    page.Show("<p>");
    PostQuitMessage(7);
    try {
        page->Call("() => { for (;;) {} }");
        FAIL();
    } catch (const HResultError& error) {
        EXPECT_EQ(RPC_E_CALL_CANCELED, error.Code());
    }
    MSG message;
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(7U, message.wParam);
}

TEST(Page, FailsAllCallsAfterItsEnd) {
    OpenedPage page;
    page.Show("<p id=p>x");
    const PageReference document = page->Document();
    page->Close();
    EXPECT_FALSE(page->IsOpen());
    try {
        page->Call("() => 1");
        FAIL();
    } catch (const HResultError& error) {
        EXPECT_EQ(RPC_E_DISCONNECTED, error.Code());
    }
    EXPECT_FALSE(document.IsAlive());
    EXPECT_THROW(document.Get(L"title"), HResultError);
}

TEST(PageFrameTest, AFrameNeitherClosesThePageNorHasItsStatus) {
    OpenedPage page;
    page.Show("<iframe name=inner srcdoc='x'></iframe>");
    page->Execute(L"frames[0].close(); frames[0].status = 'of the frame'; window.status = 'of the page'; 1");
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"status of the page"); }));
    EXPECT_FALSE(page.WasTold(L"close"));
    EXPECT_FALSE(page.WasTold(L"status of the frame"));
}

TEST(PageFrameTest, OpenShowsADocumentInAFrameThatIsThere) {
    OpenedPage page;
    page.folder.Write("other.htm", "<title>other</title>");
    page.Show("<iframe name=inner srcdoc='x'></iframe>");
    EXPECT_EQ(L"true", page.Text(L"window.open('other.htm', 'inner') === frames[0]"));
    EXPECT_TRUE(page.Await([&] { return page.Text(L"frames[0].document.title") == L"other"; }));
    EXPECT_EQ(L"null", page.Text(L"window.open('other.htm', 'nowhere')"));
    page->Execute(L"window.open('other.htm', '_self'); 1");
    EXPECT_TRUE(page.Await([&] { return page->Title() == L"other"; }));
}

}  // namespace
}  // namespace nux::webbrowser
