// The control over a page that the test plays: what containers see of it, call by call.

#include "tests/webbrowser/ContainedBrowser.h"

#include "framework/ErrorInfo.h"
#include "tests/support/HandleCount.h"

namespace nux::webbrowser {
namespace {

using Events = std::vector<std::wstring>;
using WebBrowserTest = ContainedBrowser;

constexpr wchar_t first[] = L"file:///C:/a/first.htm";
constexpr wchar_t second[] = L"file:///C:/a/second.htm";

class Unrelated : public Implements<IPersist> {
public:
    virtual ~Unrelated() = default;
    STDMETHODIMP GetClassID(CLSID*) override { return E_NOTIMPL; }
};

// Navigation

TEST_F(WebBrowserTest, NavigationIsToldInTheDocumentedOrder) {
    Activate();
    EXPECT_EQ(S_OK, Navigate(first));
    EXPECT_EQ((Events{std::wstring(L"BeforeNavigate2 ") + first, L"DownloadBegin"}), sink->Take());
    EXPECT_EQ(Events{std::wstring(L"navigate ") + first}, Page()->calls);
    Page()->Finish(first);
    EXPECT_EQ((Events{std::wstring(L"NavigateComplete2 ") + first, L"DownloadComplete",
                      std::wstring(L"DocumentComplete ") + first}),
              sink->Take());
    EXPECT_EQ(browser.Get(), Query<IWebBrowser2>(sink->source.Get()).Get())
        << "it is told as the control's own";
}

TEST_F(WebBrowserTest, ASinkCancelsANavigationBeforeItBegins) {
    sink->cancels = true;
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_CANCELLED), Navigate(first));
    EXPECT_EQ(0, FakePage::opened);
    EXPECT_EQ(Events{std::wstring(L"BeforeNavigate2 ") + first}, sink->Take());
}

TEST_F(WebBrowserTest, ASinkCancelsWhatAPageBegins) {
    Navigate(first);
    Page()->Finish(first);
    sink->Take();
    sink->cancels = true;
    EXPECT_FALSE(Page()->listener->Navigating(second, true));
    EXPECT_EQ(Events{std::wstring(L"BeforeNavigate2 ") + second}, sink->Take());
    sink->cancels = false;
    EXPECT_TRUE(Page()->listener->Navigating(second, true));
    EXPECT_EQ((Events{std::wstring(L"BeforeNavigate2 ") + second, L"DownloadBegin"}), sink->Take());
}

TEST_F(WebBrowserTest, AFrameIsToldAsAnotherObjectAndBeforeItsPage) {
    Navigate(first);
    sink->Take();
    Page()->listener->Navigated(first, true);
    EXPECT_TRUE(Page()->listener->Navigating(second, false));
    const ComPtr<IDispatch> frame = sink->source;
    EXPECT_NE(browser.As<IDispatch>().Get(), frame.Get());
    Page()->listener->Navigated(second, false);
    Page()->listener->Loaded(second, false);
    EXPECT_EQ(frame.Get(), sink->source.Get()) << "one object for all that is told of the frame";
    Page()->listener->Loaded(first, true);
    EXPECT_EQ(
        (Events{std::wstring(L"NavigateComplete2 ") + first, std::wstring(L"BeforeNavigate2 ") + second,
                std::wstring(L"NavigateComplete2 ") + second, std::wstring(L"DocumentComplete ") + second,
                L"DownloadComplete", std::wstring(L"DocumentComplete ") + first}),
        sink->Take());
}

TEST_F(WebBrowserTest, AnErrorIsToldWithItsCodeAndMayKeepThePageThatTellsOfIt) {
    Navigate(first);
    sink->Take();
    Page()->listener->NavigationFailed(first, true, INET_E_OBJECT_NOT_FOUND);
    EXPECT_EQ((Events{L"DownloadComplete", std::wstring(L"NavigateError ") + first + L" " +
                                               std::to_wstring(INET_E_OBJECT_NOT_FOUND)}),
              sink->Take());
    EXPECT_EQ(1u, Page()->calls.size()) << "the page goes on to the text that tells of it";
    sink->cancels = true;
    Page()->listener->NavigationFailed(first, true, INET_E_OBJECT_NOT_FOUND);
    EXPECT_EQ(L"stop", Page()->calls.back());
}

TEST_F(WebBrowserTest, RefreshTellsOfNoNavigation) {
    Navigate(first);
    Page()->Finish(first);
    sink->Take();
    EXPECT_EQ(S_OK, browser->Refresh());
    EXPECT_EQ(L"reload", Page()->calls.back());
    EXPECT_TRUE(Page()->listener->Navigating(first, true));
    Page()->Finish(first);
    EXPECT_EQ((Events{L"DownloadBegin", L"DownloadComplete"}), sink->Take());
    Variant completely;
    completely.SetNumber(REFRESH_COMPLETELY);
    EXPECT_EQ(S_OK, browser->Refresh2(const_cast<VARIANT*>(&completely.Get())));
    EXPECT_EQ(L"reload all", Page()->calls.back());
}

TEST_F(WebBrowserTest, WhatThePageBeginsInTheMidstOfARefreshIsAskedFor) {
    Navigate(first);
    Page()->Finish(first);
    Page()->location = std::wstring(first) + L"#place";
    browser->Refresh();
    EXPECT_TRUE(Page()->listener->Navigating(first, true));
    sink->Take();
    sink->cancels = true;
    EXPECT_FALSE(Page()->listener->Navigating(second, true));
    EXPECT_EQ(Events{std::wstring(L"BeforeNavigate2 ") + second}, sink->Take());
    sink->cancels = false;
    EXPECT_TRUE(Page()->listener->Navigating(second, true));
    Page()->Finish(second);
    EXPECT_EQ(
        (Events{std::wstring(L"BeforeNavigate2 ") + second, std::wstring(L"NavigateComplete2 ") + second,
                L"DownloadComplete", std::wstring(L"DocumentComplete ") + second}),
        sink->Take());
}

TEST_F(WebBrowserTest, AnotherNavigationTakesThePlaceOfARefresh) {
    Navigate(first);
    Page()->Finish(first);
    browser->Refresh();
    Navigate(second);
    sink->Take();
    Page()->Finish(second);
    EXPECT_EQ((Events{std::wstring(L"NavigateComplete2 ") + second, L"DownloadComplete",
                      std::wstring(L"DocumentComplete ") + second}),
              sink->Take());
}

TEST_F(WebBrowserTest, Navigate2TakesItsAddressAndDataFromVariants) {
    Variant address;
    address.SetText(Bstr(first));
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = const_cast<VARIANT*>(&address.Get());
    VARIANT missing{};
    missing.vt = VT_ERROR;
    missing.scode = DISP_E_PARAMNOTFOUND;
    EXPECT_EQ(S_OK, browser->Navigate2(&reference, &missing, &missing, &missing, &missing));
    EXPECT_EQ(Events{std::wstring(L"navigate ") + first}, Page()->calls);
    EXPECT_EQ(E_INVALIDARG, browser->Navigate2(&missing, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(E_INVALIDARG, browser->Navigate(nullptr, nullptr, nullptr, nullptr, nullptr));
}

TEST_F(WebBrowserTest, AScriptOfTheContainerRunsWithoutBeingANavigation) {
    EXPECT_EQ(S_OK, Navigate(L"JavaScript:run()"));
    EXPECT_EQ(Events{L"navigate JavaScript:run()"}, Page()->calls);
    EXPECT_TRUE(sink->events.empty());
}

TEST_F(WebBrowserTest, BackAndForwardFailWhereThereIsNothing) {
    EXPECT_EQ(E_FAIL, browser->GoBack());
    Navigate(first);
    EXPECT_EQ(E_FAIL, browser->GoForward());
    Page()->canGoBack = true;
    EXPECT_EQ(S_OK, browser->GoBack());
    Page()->listener->HistoryChanged();
    EXPECT_EQ((Events{L"CommandStateChange 2 true", L"CommandStateChange 1 false"}),
              (Events{sink->events.end() - 2, sink->events.end()}));
}

TEST_F(WebBrowserTest, TellsWhereItIsAndInWhichState) {
    READYSTATE state = READYSTATE_COMPLETE;
    EXPECT_EQ(S_OK, browser->get_ReadyState(&state));
    EXPECT_EQ(READYSTATE_UNINITIALIZED, state);
    Bstr text;
    EXPECT_EQ(S_OK, browser->get_LocationURL(text.Receive()));
    EXPECT_EQ(L"", text.View());
    ComPtr<IDispatch> document;
    EXPECT_EQ(S_OK, browser->get_Document(document.Receive()));
    EXPECT_FALSE(document);

    Navigate(first);
    VARIANT_BOOL busy = VARIANT_FALSE;
    EXPECT_EQ(S_OK, browser->get_Busy(&busy));
    EXPECT_EQ(VARIANT_TRUE, busy);
    EXPECT_EQ(S_OK, browser->get_LocationURL(text.Receive()));
    EXPECT_EQ(L"", text.View()) << "on the way to the first document";
    Page()->Finish(first);
    browser->get_Busy(&busy);
    EXPECT_EQ(VARIANT_FALSE, busy);
    browser->get_ReadyState(&state);
    EXPECT_EQ(READYSTATE_COMPLETE, state);
    browser->get_LocationURL(text.Receive());
    EXPECT_EQ(first, text.View());
    browser->get_LocationName(text.Receive());
    EXPECT_EQ(first, text.View()) << "without a title";
    Page()->title = L"Title";
    browser->get_LocationName(text.Receive());
    EXPECT_EQ(L"Title", text.View());
}

TEST_F(WebBrowserTest, ANewWindowIsTheContainersToGive) {
    Navigate(first);
    Page()->Finish(first);
    sink->Take();
    Page()->listener->NewWindow(second);
    EXPECT_EQ((Events{std::wstring(L"NewWindow3 ") + second, L"NewWindow2"}), sink->Take());
    sink->cancels = true;
    Page()->listener->NewWindow(second);
    EXPECT_EQ(Events{std::wstring(L"NewWindow3 ") + second}, sink->Take());
    sink->cancels = false;
    const auto page = Page();
    const ComPtr<ComObject<WebBrowser>> other = MakeObject<WebBrowser>(&FakePage::Open);
    sink->window = ComPtr<IDispatch>(static_cast<IWebBrowser2*>(other.Get()));
    page->listener->NewWindow(second);
    EXPECT_EQ(Events{std::wstring(L"NewWindow3 ") + second}, sink->Take());
    EXPECT_EQ(Events{std::wstring(L"navigate ") + second}, Page()->calls)
        << "the page of the window that was given";
    EXPECT_NE(page, Page());
}

TEST_F(WebBrowserTest, APageThatClosesItsWindowEndsTheActivation) {
    Activate();
    Navigate(first);
    sink->Take();
    sink->cancels = true;
    Page()->listener->CloseRequested();
    EXPECT_EQ(Events{L"WindowClosing"}, sink->Take());
    EXPECT_TRUE(Window());
    sink->cancels = false;
    Page()->listener->CloseRequested();
    EXPECT_EQ((Events{L"WindowClosing", L"OnQuit"}), sink->Take());
    EXPECT_FALSE(Window());
    EXPECT_FALSE(Page());
}

TEST_F(WebBrowserTest, TitleAndStatusAreTold) {
    Navigate(first);
    sink->Take();
    Page()->listener->TitleChanged(L"a title");
    Page()->listener->StatusChanged(L"a status");
    EXPECT_EQ((Events{L"TitleChange a title", L"StatusTextChange a status"}), sink->Take());
    Bstr text;
    EXPECT_EQ(S_OK, browser->get_StatusText(text.Receive()));
    EXPECT_EQ(L"a status", text.View());
}

TEST_F(WebBrowserTest, SinksOfTheOlderInterfaceAreToldToo) {
    const auto older = MakeObject<BrowserSink>();
    Connect(IdOf<DWebBrowserEvents>(), older.Get());
    Navigate(first);
    Page()->Finish(first);
    EXPECT_EQ((Events{std::wstring(L"BeforeNavigate ") + first, L"DownloadBegin",
                      std::wstring(L"NavigateComplete ") + first, L"DownloadComplete"}),
              older->Take());
}

TEST_F(WebBrowserTest, FrozenEventsWaitForTheEndOfIt) {
    const ComPtr<IOleControl> frozen = browser.As<IOleControl>();
    EXPECT_EQ(S_OK, frozen->FreezeEvents(TRUE));
    Navigate(first);
    Page()->Finish(first);
    EXPECT_TRUE(sink->events.empty());
    EXPECT_EQ(S_OK, frozen->FreezeEvents(FALSE));
    EXPECT_EQ((Events{L"DownloadBegin", std::wstring(L"NavigateComplete2 ") + first, L"DownloadComplete",
                      std::wstring(L"DocumentComplete ") + first}),
              sink->Take());
}

TEST_F(WebBrowserTest, PropertiesOfTheContainerAreKeptAndTold) {
    Variant value;
    value.SetNumber(7);
    EXPECT_EQ(S_OK, browser->PutProperty(Bstr(L"mine").Get(), value.Get()));
    EXPECT_EQ(Events{L"PropertyChange mine"}, sink->Take());
    Variant read;
    EXPECT_EQ(S_OK, browser->GetProperty(Bstr(L"mine").Get(), read.Receive()));
    EXPECT_EQ(7, read.Number());
    EXPECT_EQ(S_OK, browser->GetProperty(Bstr(L"other").Get(), read.Receive()));
    EXPECT_EQ(VT_EMPTY, read.Type());
}

TEST_F(WebBrowserTest, APropertyGoesIntoAVariantThatNobodyHasInitialised) {
    Variant seven;
    seven.SetNumber(7);
    browser->PutProperty(Bstr(L"mine").Get(), seven.Get());
    for (const wchar_t* name : {L"mine", L"other"}) {
        VARIANT read{};
        const auto other = MakeObject<Unrelated>();
        read.vt = VT_UNKNOWN;  // as what lay there before may say
        read.punkVal = other.Get();
        EXPECT_EQ(S_OK, browser->GetProperty(Bstr(name).Get(), &read));
        EXPECT_EQ(name == std::wstring_view(L"mine") ? VT_I4 : VT_EMPTY, read.vt);
        EXPECT_EQ(2u, other->AddRef()) << "it was nobody's to let go of";
        other->Release();
    }
}

TEST_F(WebBrowserTest, WhatIsNotOfferedSaysSo) {
    EXPECT_EQ(E_NOTIMPL, browser->GoHome());
    EXPECT_NE(L"", TakeErrorDescription(browser.Get(), IdOf<IWebBrowser2>()));
    EXPECT_EQ(E_FAIL, browser->Quit());
    EXPECT_NE(L"", TakeErrorDescription(browser.Get(), IdOf<IWebBrowser2>()));
    EXPECT_EQ(S_FALSE, browser->put_Offline(VARIANT_FALSE));
}

TEST_F(WebBrowserTest, IsReachedByNameThroughThePlatformsDescription) {
    const ComPtr<IDispatch> automation = browser.As<IDispatch>();
    Variant url;
    url.SetText(Bstr(first));
    OLECHAR name[] = L"navigate";
    LPOLESTR names = name;
    DISPID id = DISPID_UNKNOWN;
    ASSERT_EQ(S_OK, automation->GetIDsOfNames(IID_NULL, &names, 1, 0, &id));
    EXPECT_EQ(104, id);
    VARIANT argument = url.Get();
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    EXPECT_EQ(S_OK,
              automation->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr))
        << "the other four may be left out";
    EXPECT_EQ(Events{std::wstring(L"navigate ") + first}, Page()->calls);
    ComPtr<ITypeInfo> description;
    ASSERT_EQ(S_OK, automation->GetTypeInfo(0, 0, description.Receive()));
    EXPECT_EQ(S_OK, browser.As<IProvideClassInfo>()->GetClassInfo(description.Receive()));
    GUID events{};
    EXPECT_EQ(S_OK, browser.As<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events));
    EXPECT_EQ(IdOf<DWebBrowserEvents2>(), events);
}

TEST_F(WebBrowserTest, OffersWhatContainersOfBrowsersAskFor) {
    for (const IID& iid :
         {IdOf<IWebBrowser>(), IdOf<IWebBrowserApp>(), IdOf<IOleObject>(), IdOf<IOleInPlaceObject>(),
          IdOf<IOleInPlaceActiveObject>(), IdOf<IOleControl>(), IdOf<IViewObject2>(),
          IdOf<IPersistStreamInit>(), IdOf<IOleCommandTarget>(), IdOf<IConnectionPointContainer>(),
          IdOf<IProvideClassInfo2>(), IdOf<IQuickActivate>(), IdOf<IObjectSafety>(),
          IdOf<ISupportErrorInfo>(), IdOf<IServiceProvider>(), IdOf<IObjectWithSite>()}) {
        const ComPtr<IUnknown> found = Query<IUnknown>(browser.Get(), iid);
        EXPECT_TRUE(found);
        EXPECT_EQ(browser.As<IUnknown>().Get(), found.As<IUnknown>().Get());
    }
    CLSID own{};
    EXPECT_EQ(S_OK, browser.As<IPersist>()->GetClassID(&own));
    EXPECT_EQ(CLSID_WebBrowser, own);
    ComPtr<IWebBrowser2> served;
    EXPECT_EQ(S_OK, browser.As<IServiceProvider>()->QueryService(IdOf<IWebBrowserApp>(), IdOf<IWebBrowser2>(),
                                                                 served.ReceiveVoid()));
    EXPECT_EQ(browser.Get(), served.Get());
}

// Without a browser

TEST_F(WebBrowserTest, WithoutABrowserItSaysWhyAndLoadsAgain) {
    Activate();
    FakePage::failure = E_ACCESSDENIED;
    EXPECT_EQ(E_ACCESSDENIED, Navigate(first));
    EXPECT_EQ(L"there is no browser", TakeErrorDescription(browser.Get(), IdOf<IWebBrowser2>()));
    ComPtr<IDispatch> document;
    EXPECT_EQ(RPC_E_DISCONNECTED, browser->get_Document(document.Receive()));
    SendMessageW(Window(), WM_LBUTTONUP, 0, 0);
    EXPECT_FALSE(Page());
    FakePage::failure = S_OK;
    SendMessageW(Window(), WM_LBUTTONUP, 0, 0);
    ASSERT_TRUE(Page());
    EXPECT_EQ(Events{std::wstring(L"navigate ") + first}, Page()->calls);
}

TEST_F(WebBrowserTest, WhenTheBrowserEndsTheKeyboardLoadsThePageAgain) {
    Activate();
    Navigate(first);
    Page()->Finish(first);
    const auto lost = Page();
    lost->isLost = true;
    lost->listener->Lost(PageLoss::browserEnded);
    ComPtr<IDispatch> document;
    EXPECT_EQ(RPC_E_DISCONNECTED, browser->get_Document(document.Receive()));
    SendMessageW(Window(), WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_EQ(2, FakePage::opened);
    EXPECT_EQ(Events{std::wstring(L"navigate ") + first}, Page()->calls);
    EXPECT_EQ(S_OK, browser->get_Document(document.Receive()));
}

TEST_F(WebBrowserTest, WhatALostPageHadChosenItselfIsNotLoadedInTheHostsName) {
    Activate();
    Navigate(first);
    Page()->Finish(first);
    EXPECT_TRUE(Page()->listener->Navigating(L"file:///etc/hostname", true));
    Page()->Finish(L"file:///etc/hostname");  // the text that says that it can't be shown
    const auto lost = Page();
    lost->isLost = true;
    lost->listener->Lost(PageLoss::rendererEnded);
    EXPECT_EQ(S_OK, browser->Refresh());
    EXPECT_EQ(Events{std::wstring(L"navigate ") + first}, Page()->calls);
}

// Its end

TEST_F(WebBrowserTest, ASinkMayEndItInEachEvent) {
    for (const wchar_t* event :
         {L"BeforeNavigate2", L"DownloadBegin", L"NavigateComplete2", L"DownloadComplete",
          L"DocumentComplete", L"TitleChange", L"WindowClosing", L"NewWindow3", L"OnQuit"}) {
        const auto other = MakeObject<BrowserSink>();
        ComPtr<ComObject<WebBrowser>> victim = MakeObject<WebBrowser>(&FakePage::Open);
        const auto place = MakeObject<BrowserSite>(frame);
        place->position = {0, 0, 100, 100};
        ComPtr<IConnectionPoint> point;
        victim->FindConnectionPoint(IdOf<DWebBrowserEvents2>(), point.Receive());
        DWORD cookie = 0;
        point->Advise(other.Get(), &cookie);
        point.Reset();
        bool ended = false;
        other->during = [&](const std::wstring& told) {
            if (!told.starts_with(event) || !victim)
                return;
            ended = true;
            victim->Close(OLECLOSE_NOSAVE);
            victim->SetClientSite(nullptr);
            other->source.Reset();
            victim.Reset();
        };
        victim->SetClientSite(static_cast<IOleClientSite*>(place.Get()));
        victim->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, place.Get(), 0, frame, nullptr);
        victim->Navigate(Bstr(first).Get(), nullptr, nullptr, nullptr, nullptr);
        const auto tell = [&](const std::function<void(FakePage&)>& deed) {
            if (const auto page = Page(); page && page->listener && victim)
                deed(*page);
        };
        tell([](FakePage& page) { page.listener->Navigated(first, true); });
        tell([](FakePage& page) { page.listener->Loaded(first, true); });
        tell([](FakePage& page) { page.listener->TitleChanged(L"t"); });
        tell([](FakePage& page) { page.listener->NewWindow(second); });
        tell([](FakePage& page) { page.listener->CloseRequested(); });
        EXPECT_TRUE(ended) << event;
        EXPECT_FALSE(victim);
    }
}

TEST_F(WebBrowserTest, GoesInEachStateWithItsPage) {
    for (int state = 0; state < 5; ++state) {
        ComPtr<ComObject<WebBrowser>> one = MakeObject<WebBrowser>(&FakePage::Open);
        const auto place = MakeObject<BrowserSite>(frame);
        if (state > 0)
            one->SetClientSite(static_cast<IOleClientSite*>(place.Get()));
        if (state > 1)
            one->DoVerb(OLEIVERB_UIACTIVATE, nullptr, place.Get(), 0, frame, nullptr);
        if (state > 2)
            one->Navigate(Bstr(first).Get(), nullptr, nullptr, nullptr, nullptr);
        if (state > 3)
            Page()->Finish(first);
        one.Reset();
        EXPECT_FALSE(Page()) << state;
    }
}

TEST_F(WebBrowserTest, ASinkMustHaveTheInterface) {
    ComPtr<IConnectionPoint> point;
    browser.As<IConnectionPointContainer>()->FindConnectionPoint(IdOf<DWebBrowserEvents2>(), point.Receive());
    const auto unrelated = MakeObject<Unrelated>();
    DWORD cookie = 0;
    EXPECT_EQ(CONNECT_E_CANNOTCONNECT, point->Advise(unrelated.Get(), &cookie));
}

}  // namespace
}  // namespace nux::webbrowser
