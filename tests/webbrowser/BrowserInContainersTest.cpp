// The control with real pages, in containers of others and of the tests.

#include <windows.h>

#include <mshtmhst.h>
#include <mshtml.h>

#include "framework/ClassFactory.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/ShownBrowser.h"

namespace nux::webbrowser {
namespace {

using Events = std::vector<std::wstring>;

void CALLBACK AcceptQuestion(HWND, UINT, UINT_PTR, DWORD) {
    if (const HWND box = FindWindowW(L"#32770", L"Message of the page"))
        PostMessageW(box, WM_COMMAND, IDOK, 0);
}

using BrowserInContainers = ShownBrowser;

TEST_F(BrowserInContainers, APageIsLoadedInTheDocumentedOrder) {
    Activate();
    Show("<title>The title</title><p>text</p>");
    EXPECT_TRUE(Await([&] { return Happened(L"TitleChange The title"); }));
    Events order;
    for (const std::wstring& event : sink->events) {
        const std::wstring name = event.substr(0, event.find(L' '));
        if (name != L"TitleChange" && name != L"CommandStateChange" && name != L"StatusTextChange")
            order.push_back(name);
    }
    EXPECT_EQ((Events{L"BeforeNavigate2", L"DownloadBegin", L"NavigateComplete2", L"DownloadComplete",
                      L"DocumentComplete"}),
              order);
    EXPECT_EQ(READYSTATE_COMPLETE, StateOf(browser.Get()));
    Bstr text;
    EXPECT_EQ(S_OK, browser->get_LocationName(text.Receive()));
    EXPECT_EQ(L"The title", text.View());
    EXPECT_EQ(L"The title", OfDocument(L"title"));
}

TEST_F(BrowserInContainers, AFileIsFoundByEachFormOfItsAddress) {
    Activate();
    const std::wstring path = Write("sub folder\\\xc4hre.htm", "<title>found</title>");
    std::wstring slashes = path;
    std::replace(slashes.begin(), slashes.end(), L'\\', L'/');
    for (const std::wstring& address :
         {path, slashes, L"file://" + path, L"file:///" + slashes, L"FILE://" + slashes}) {
        sink->events.clear();
        EXPECT_EQ(S_OK, Navigate(address.c_str()));
        EXPECT_TRUE(Await([&] { return Happened(L"DocumentComplete"); })) << address.c_str();
        EXPECT_FALSE(Happened(L"NavigateError")) << Narrow(address.c_str(), address.size());
        EXPECT_EQ(L"found", OfDocument(L"title"));
    }
}

TEST_F(BrowserInContainers, AMissingFileIsAnErrorThenAPage) {
    Activate();
    Navigate(Widen(folder.Path() + "missing.htm").c_str());
    EXPECT_TRUE(Await([&] { return Happened(L"DocumentComplete"); }));
    EXPECT_TRUE(Happened(L"NavigateError"));
    EXPECT_TRUE(Happened(L"NavigateComplete2"));
}

TEST_F(BrowserInContainers, AnAddressThatLeadsNowhereIsAnErrorAndTheEndOfLoading) {
    Activate();
    Show("<title>stays</title>");
    for (const wchar_t* address : {L"http://example.invalid/", L"nowhere", L"unknown:x"}) {
        sink->events.clear();
        EXPECT_EQ(S_OK, Navigate(address));
        EXPECT_TRUE(Await([&] { return Happened(L"DocumentComplete"); }));
        EXPECT_TRUE(Happened(L"NavigateError"));
        VARIANT_BOOL busy = VARIANT_TRUE;
        EXPECT_EQ(S_OK, browser->get_Busy(&busy));
        EXPECT_EQ(VARIANT_FALSE, busy);
        EXPECT_EQ(READYSTATE_COMPLETE, StateOf(browser.Get()));
        EXPECT_EQ(L"stays", OfDocument(L"title"));
    }
    Show("<title>after</title>");
    EXPECT_EQ(L"after", OfDocument(L"title"));
}

TEST_F(BrowserInContainers, StopEndsTheLoadingOfAPageThatNeverEnds) {
    Activate();
    ASSERT_EQ(S_OK, Navigate(Write("endless.htm",
                                   "<title>endless</title><script>status = 'runs'; for (;;);</script>")
                                 .c_str()));
    EXPECT_TRUE(Await([&] { return Happened(L"StatusTextChange runs"); }));
    VARIANT_BOOL busy = VARIANT_FALSE;
    browser->get_Busy(&busy);
    EXPECT_EQ(VARIANT_TRUE, busy);
    EXPECT_EQ(S_OK, browser->Stop());
    EXPECT_TRUE(Await([&] {
        browser->get_Busy(&busy);
        return busy == VARIANT_FALSE;
    }));
    EXPECT_EQ(READYSTATE_COMPLETE, StateOf(browser.Get()));
    EXPECT_EQ(L"endless", OfDocument(L"title"));
}

TEST_F(BrowserInContainers, ObjectsOfAPageLeadToItsBrowserWhileThereIsOne) {
    Activate();
    Show("<p>");
    ComPtr<IDispatch> document;
    EXPECT_EQ(S_OK, browser->get_Document(document.Receive()));
    ComPtr<IHTMLWindow2> window;
    EXPECT_EQ(S_OK, document.As<IHTMLDocument2>()->get_parentWindow(window.Receive()));
    for (const ComPtr<IServiceProvider>& provider :
         {document.As<IServiceProvider>(), window.As<IServiceProvider>()}) {
        ComPtr<IWebBrowser2> found;
        ASSERT_TRUE(provider);
        EXPECT_EQ(S_OK,
                  provider->QueryService(IdOf<IWebBrowserApp>(), IdOf<IWebBrowser2>(), found.ReceiveVoid()));
        EXPECT_EQ(browser.Get(), found.Get());
    }
    object->SetClientSite(nullptr);
    object.Reset();
    browser.Reset();
    control.Reset();
    sink->source.Reset();
    ComPtr<IWebBrowser2> found;
    EXPECT_EQ(E_NOINTERFACE, document.As<IServiceProvider>()->QueryService(
                                 IdOf<IWebBrowserApp>(), IdOf<IWebBrowser2>(), found.ReceiveVoid()));
}

TEST_F(BrowserInContainers, AboutBlankIsADocument) {
    Activate();
    Navigate(L"about:blank");
    EXPECT_TRUE(Await([&] { return Happened(L"DocumentComplete about:blank"); }));
    Bstr address;
    browser->get_LocationURL(address.Receive());
    EXPECT_EQ(L"about:blank", address.View());
}

TEST_F(BrowserInContainers, ALinkIsAskedForAndBackLeadsFromIt) {
    Activate();
    Write("next.htm", "<title>next</title>");
    Show("<title>start</title>");
    EXPECT_EQ(S_OK, Navigate(L"javascript:location.href = 'next.htm'"));
    EXPECT_TRUE(Await([&] { return OfDocument(L"title") == L"next"; }));
    EXPECT_EQ(2, std::count_if(sink->events.begin(), sink->events.end(), [](const std::wstring& event) {
                  return event.starts_with(L"BeforeNavigate2");
              }));
    EXPECT_TRUE(Await([&] { return Happened(L"CommandStateChange 2 true"); }));
    EXPECT_EQ(S_OK, browser->GoBack());
    EXPECT_TRUE(Await([&] { return OfDocument(L"title") == L"start"; }));
}

TEST_F(BrowserInContainers, ACancelledLinkLeavesThePage) {
    Activate();
    Write("next.htm", "<title>next</title>");
    Show("<title>start</title>");
    sink->events.clear();
    sink->cancels = true;
    EXPECT_EQ(S_OK, Navigate(L"javascript:location.href = 'next.htm'"));
    EXPECT_TRUE(Await([&] { return Happened(L"BeforeNavigate2"); }));
    EXPECT_EQ(L"start", OfDocument(L"title"));
    sink->cancels = false;
    EXPECT_FALSE(Happened(L"NavigateComplete2"));
}

TEST_F(BrowserInContainers, RefreshLoadsAgainWithoutTellingOfANavigation) {
    Activate();
    Show("<title>one</title>");
    sink->events.clear();
    Write("page.htm", "<title>two</title>");
    EXPECT_EQ(S_OK, browser->Refresh());
    EXPECT_TRUE(Await([&] { return Happened(L"DownloadComplete"); }));
    EXPECT_EQ(L"two", OfDocument(L"title"));
    EXPECT_FALSE(Happened(L"BeforeNavigate2"));
    EXPECT_FALSE(Happened(L"DocumentComplete"));
}

TEST_F(BrowserInContainers, AScriptCallsTheContainersObjectAndCloses) {
    Activate();
    const auto external = MakeObject<ExternalDouble>();
    std::wstring heard;
    external->methods[L"Say"] = [&](const ExternalDouble::Arguments& arguments) {
        heard = arguments.at(0).Text();
        return Number(1);
    };
    site->external = external;
    Show(
        "<script>window.external.Say('hello'); </script><body onload='setTimeout(() => window.close(), "
        "100)'>");
    EXPECT_EQ(L"hello", heard);
    EXPECT_TRUE(Await([&] { return Happened(L"OnQuit"); }));
    EXPECT_TRUE(Happened(L"WindowClosing"));
    EXPECT_FALSE(Window());
    site->external.Reset();
}

TEST_F(BrowserInContainers, AClickReachesThePageAndItsPictureTheWindow) {
    Activate();
    Show(
        "<body style='margin:0;background:#123456' onmousedown=\"document.title='hit ' + event.clientX;"
        "document.body.style.background='#ff0000'\">");
    const auto pixel = [&] {
        const HDC window = GetDC(Window());
        const COLORREF colour = GetPixel(window, 200, 150);
        ReleaseDC(Window(), window);
        return colour;
    };
    EXPECT_TRUE(Await([&] { return pixel() == RGB(0x12, 0x34, 0x56); }));
    PostMessageW(Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, 40));
    PostMessageW(Window(), WM_LBUTTONUP, 0, MAKELPARAM(30, 40));
    EXPECT_TRUE(Await([&] { return pixel() == RGB(0xff, 0, 0); }));
    EXPECT_TRUE(Await([&] { return OfDocument(L"title") == L"hit 30"; }));
}

TEST_F(BrowserInContainers, TypedTextAndTabReachFields) {
    Activate();
    Show(
        "<input id=a oninput='document.title=a.value'><input id=b onfocus=\"document.title='b'\">"
        "<script>onload = () => a.focus()</script>");
    SetFocus(Window());
    PostMessageW(Window(), WM_CHAR, L'\x5186', 0);
    EXPECT_TRUE(Await([&] { return OfDocument(L"title") == L"\x5186"; }));
    PostMessageW(Window(), WM_KEYDOWN, VK_TAB, 0);
    PostMessageW(Window(), WM_KEYUP, VK_TAB, 0);
    EXPECT_TRUE(Await([&] { return OfDocument(L"title") == L"b"; }));
    PostMessageW(Window(), WM_KEYDOWN, VK_TAB, 0);
    PostMessageW(Window(), WM_KEYUP, VK_TAB, 0);
    EXPECT_TRUE(Await([&] {
        return std::find(site->calls.begin(), site->calls.end(), "site's key 9 0") != site->calls.end();
    })) << "past the last one it is the container's";
}

TEST_F(BrowserInContainers, AQuestionOfAPageIsShownWithTheContainersWindowsDisabled) {
    Activate();
    Show("<title>start</title>");
    site->calls.clear();
    // The page waits in it, and so does this thread.
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, &AcceptQuestion);
    Navigate(L"javascript:setTimeout(() => { document.title = confirm('Sure?') ? 'yes' : 'no'; }, 50)");
    EXPECT_TRUE(Await([&] { return OfDocument(L"title") == L"yes"; }));
    KillTimer(nullptr, timer);
    EXPECT_EQ((Journal{"EnableModeless not", "EnableModeless"}), site->calls);
}

TEST_F(BrowserInContainers, GoesInEachStateOfARealPage) {
    const std::wstring page =
        Write("page.htm", "<script>for (let i = 0; i < 5; ++i) external.Say(i);</script>");
    for (int state = 0; state < 4; ++state) {
        ComPtr<ComObject<WebBrowser>> one = MakeObject<WebBrowser>();
        const auto place = MakeObject<BrowserSite>(frame);
        place->position = {0, 0, 200, 100};
        const auto external = MakeObject<ExternalDouble>();
        place->external = external;
        bool isEnded = false;
        int afterEnd = 0;
        external->methods[L"Say"] = [&](const ExternalDouble::Arguments&) {
            afterEnd += isEnded ? 1 : 0;
            if (state == 3 && one) {  // while its page waits for the answer
                one->SetClientSite(nullptr);
                one.Reset();
                isEnded = true;
            }
            return Number(0);
        };
        one->SetClientSite(static_cast<IOleClientSite*>(place.Get()));
        one->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, place.Get(), 0, frame, nullptr);
        one->Navigate(Bstr(page).Get(), nullptr, nullptr, nullptr, nullptr);
        if (state == 1) {
            EXPECT_TRUE(Await([&] { return StateOf(one.Get()) >= READYSTATE_LOADED; }));
        }
        if (state == 2) {
            EXPECT_TRUE(Await([&] { return StateOf(one.Get()) == READYSTATE_COMPLETE; }));
        }
        if (state == 3) {
            EXPECT_TRUE(Await([&] { return isEnded; }));
        }
        one.Reset();
        EXPECT_EQ(0, afterEnd);
        place->external.Reset();
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
}

// The module itself, registered as installers do it.

TEST(Module, IsTheServerOfThePlatformsClassFromItsRegistrationToTheEndOfIt) {
    using Entry = HRESULT(STDAPICALLTYPE*)();
    const HMODULE module = LoadLibraryA(NUX_WEB_BROWSER);
    ASSERT_TRUE(module);
    const auto entry = [&](const char* name) {
        return reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    };
    ASSERT_EQ(S_OK, entry("DllRegisterServer")());
    {
        const TempFolder folder;
        const std::wstring page = Widen(folder.Write("page.htm", "<title>registered</title>"), CP_ACP);
        ComPtr<IWebBrowser2> browser;
        ASSERT_EQ(S_OK, CreateObject(CLSID_WebBrowser, browser));
        EXPECT_EQ(S_FALSE, entry("DllCanUnloadNow")());
        EXPECT_EQ(S_OK, browser->Navigate(Bstr(page).Get(), nullptr, nullptr, nullptr, nullptr));
        EXPECT_TRUE(Await([&] { return StateOf(browser.Get()) == READYSTATE_COMPLETE; }));
        Bstr title;
        EXPECT_TRUE(Await([&] {
            browser->get_LocationName(title.Receive());
            return title.View() == L"registered";
        }));
        ComPtr<IDispatch> document;
        EXPECT_EQ(S_OK, browser->get_Document(document.Receive()));
        EXPECT_TRUE(document.As<IHTMLDocument2>());
    }
    EXPECT_TRUE(Await([&] { return entry("DllCanUnloadNow")() == S_OK; }));
    EXPECT_EQ(S_OK, entry("DllUnregisterServer")());
    FreeLibrary(module);
}

// The platform's own host of controls.

using CreateAtlControl = HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**);

class AtlHost : public testing::Test {
protected:
    AtlHost() {
        const auto factory = MakeObject<ClassFactory<WebBrowser>>();
        CoRegisterClassObject(CLSID_WebBrowser, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                              &cookie);
        atl = LoadLibraryW(L"atl.dll");
        create = reinterpret_cast<CreateAtlControl>(
            reinterpret_cast<void*>(GetProcAddress(atl, "AtlAxCreateControl")));
        window = CreateWindowExA(0, "STATIC", "host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 640, 480,
                                 nullptr, nullptr, nullptr, nullptr);
    }
    ~AtlHost() override {
        DestroyWindow(window);
        CoRevokeClassObject(cookie);
        FreeLibrary(atl);
    }

    DWORD cookie = 0;
    HMODULE atl = nullptr;
    CreateAtlControl create = nullptr;
    HWND window = nullptr;
};

TEST_F(AtlHost, ShowsThePageOfAnAddress) {
    ASSERT_TRUE(create);
    const TempFolder folder;
    const std::wstring page = Widen(folder.Write("page.htm", "<title>in a host</title>"), CP_ACP);
    ComPtr<IUnknown> container;
    ASSERT_EQ(S_OK, create((L"file://" + page).c_str(), window, nullptr, container.Receive()));
    HWND child = GetWindow(window, GW_CHILD);
    ASSERT_TRUE(child);
    wchar_t name[64];
    GetClassNameW(child, name, 64);
    EXPECT_STREQ(L"nuxWebBrowser", name);
    using GetControl = HRESULT(WINAPI*)(HWND, IUnknown**);
    const auto getControl =
        reinterpret_cast<GetControl>(reinterpret_cast<void*>(GetProcAddress(atl, "AtlAxGetControl")));
    ComPtr<IUnknown> control;
    ASSERT_EQ(S_OK, getControl(window, control.Receive()));
    const ComPtr<IWebBrowser2> browser = control.As<IWebBrowser2>();
    ASSERT_TRUE(browser);
    EXPECT_TRUE(Await([&] { return StateOf(browser.Get()) == READYSTATE_COMPLETE; }));
    Bstr title;
    EXPECT_TRUE(Await([&] {
        browser->get_LocationName(title.Receive());
        return title.View() == L"in a host";
    }));
}

}  // namespace
}  // namespace nux::webbrowser
