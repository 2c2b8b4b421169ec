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

// The container's word

TEST_F(WebBrowserTest, TheSitesHandlerGivesTheExternalObject) {
    Activate();
    Navigate(first);
    EXPECT_FALSE(Page()->listener->External());
    site->external = browser.As<IDispatch>();
    EXPECT_EQ(site->external.Get(), Page()->listener->External().Get());
    site->hasHandler = false;
    EXPECT_FALSE(Page()->listener->External());
    site->external.Reset();
}

TEST_F(WebBrowserTest, TheSitesHandlerSendsNavigationsOfAPageElsewhere) {
    Activate();
    Navigate(first);
    Page()->Finish(first);
    sink->Take();
    site->translated = second;
    EXPECT_FALSE(Page()->listener->Navigating(first, true));
    EXPECT_EQ((Events{std::wstring(L"BeforeNavigate2 ") + second, L"DownloadBegin"}), sink->Take());
    EXPECT_EQ(std::wstring(L"navigate ") + second, Page()->calls.back());
}

TEST_F(WebBrowserTest, TheBorderIsTheHandlersChoice) {
    Activate();
    EXPECT_FALSE(GetWindowLongA(Window(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
    object->SetClientSite(nullptr);
    site->flags = 0;
    Activate();
    EXPECT_TRUE(GetWindowLongA(Window(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
}

TEST_F(WebBrowserTest, TheHandlerShowsTheContextMenu) {
    Activate();
    Navigate(first);
    site->calls.clear();
    Page()->listener->ContextMenu({3, 4}, {});
    EXPECT_EQ((Journal{"ShowContextMenu 0"}), site->calls);
}

TEST_F(WebBrowserTest, SilentQuestionsAreAnsweredWithoutTheUser) {
    Activate();
    Navigate(first);
    browser->put_Silent(VARIANT_TRUE);
    EXPECT_TRUE(Page()->listener->Asked({PageDialog::Kind::alert, L"text", {}}).accepted);
    EXPECT_FALSE(Page()->listener->Asked({PageDialog::Kind::confirm, L"text", {}}).accepted);
    browser->put_Silent(VARIANT_FALSE);
    site->ambient[DISPID_AMBIENT_DLCONTROL] = DLCTL_SILENT;
    EXPECT_FALSE(Page()->listener->Asked({PageDialog::Kind::confirm, L"text", {}}).accepted);
}

TEST_F(WebBrowserTest, PagesOfFilesMakeObjectsUnlessTheContainerForbidsIt) {
    Activate();
    Navigate(first);
    EXPECT_TRUE(Page()->listener->MayMakeObjects(first));
    EXPECT_FALSE(Page()->listener->MayMakeObjects(L"about:blank"));
    site->ambient[DISPID_AMBIENT_DLCONTROL] = DLCTL_NO_RUNACTIVEXCTLS;
    EXPECT_FALSE(Page()->listener->MayMakeObjects(first));
}

// The window

TEST_F(WebBrowserTest, ThePageHasTheSizeOfTheWindow) {
    SIZEL extent{2540, 1270};
    object->SetExtent(DVASPECT_CONTENT, &extent);
    Navigate(first);
    EXPECT_EQ((PixelSize{96, 48}), Page()->size) << "of the extent, before there is a window";
    EXPECT_FALSE(Page()->isVisible);
    Activate();
    EXPECT_EQ((PixelSize{400, 300}), Page()->size);
    EXPECT_TRUE(Page()->isVisible);
    const RECT smaller{0, 0, 120, 110};
    browser.As<IOleInPlaceObject>()->SetObjectRects(&smaller, &smaller);
    EXPECT_EQ((PixelSize{120, 110}), Page()->size);
    browser->put_Visible(VARIANT_FALSE);
    EXPECT_FALSE(Page()->isVisible);
    EXPECT_EQ(L"OnVisible false", sink->events.back());
}

TEST_F(WebBrowserTest, ThePageGetsMouseAndKeysOfTheWindow) {
    Activate();
    Navigate(first);
    SendMessageW(Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, 40));
    EXPECT_EQ(Window(), GetFocus());
    EXPECT_TRUE(Page()->hasFocus);
    EXPECT_EQ(Window(), GetCapture());
    EXPECT_EQ(30, Page()->lastPoint.x);
    SendMessageW(Window(), WM_LBUTTONUP, 0, MAKELPARAM(30, 40));
    EXPECT_NE(Window(), GetCapture());
    POINT at{50, 60};
    ClientToScreen(Window(), &at);
    SendMessageW(Window(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), MAKELPARAM(at.x, at.y));
    EXPECT_EQ(50, Page()->lastPoint.x) << "the wheel comes with screen pixels";
    SendMessageW(Window(), WM_KEYDOWN, 'A', 0);
    SendMessageW(Window(), WM_CHAR, 'a', 0);
    SendMessageW(Window(), WM_KEYUP, 'A', 0);
    EXPECT_EQ((std::vector<UINT>{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_MOUSEWHEEL, WM_KEYDOWN, WM_CHAR, WM_KEYUP}),
              Page()->input);
}

TEST_F(WebBrowserTest, AClickActivatesItsUserInterface) {
    Activate();
    Navigate(first);
    site->calls.clear();
    SendMessageW(Window(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
    EXPECT_EQ((Journal{"OnFocus", "OnUIActivate", "ShowUI", "ShowObject"}), site->calls);
    site->calls.clear();
    browser.As<IOleInPlaceObject>()->UIDeactivate();
    EXPECT_EQ((Journal{"HideUI", "OnUIDeactivate"}), site->calls);
}

TEST_F(WebBrowserTest, TabLeavesThroughTheSite) {
    Activate();
    Navigate(first);
    site->calls.clear();
    Page()->listener->TabbedOut(true);
    Page()->listener->TabbedOut(false);
    EXPECT_EQ((Journal{"site's key 9 0", "site's key 9 1"}), site->calls);
}

TEST_F(WebBrowserTest, TabEntersWithTheVerbThatBringsIt) {
    Activate();
    Navigate(first);
    MSG tab{};
    tab.message = WM_KEYDOWN;
    tab.wParam = VK_TAB;
    EXPECT_EQ(S_OK, object->DoVerb(OLEIVERB_UIACTIVATE, &tab, site.Get(), 0, frame, nullptr));
    EXPECT_EQ(L"tab into", Page()->calls.back());
}

TEST_F(WebBrowserTest, KeysOfThePageAreTakenBeforeItsContainer) {
    Activate();
    Navigate(first);
    const ComPtr<IOleInPlaceActiveObject> active = browser.As<IOleInPlaceActiveObject>();
    MSG key{};
    key.hwnd = Window();
    key.message = WM_KEYDOWN;
    key.wParam = VK_TAB;
    EXPECT_EQ(S_OK, active->TranslateAccelerator(&key));
    EXPECT_EQ(std::vector<UINT>{WM_KEYDOWN}, Page()->input);
    key.wParam = VK_F8;
    EXPECT_EQ(S_FALSE, active->TranslateAccelerator(&key));
    key.wParam = VK_F5;
    EXPECT_EQ(S_OK, active->TranslateAccelerator(&key));
    EXPECT_EQ(L"reload", Page()->calls.back());
    site->calls.clear();
    site->onKey = S_OK;
    EXPECT_EQ(S_OK, active->TranslateAccelerator(&key));
    EXPECT_EQ((Journal{"handler's key"}), site->calls);
    EXPECT_EQ(2u, Page()->calls.size()) << "the handler took it";
    EXPECT_EQ(static_cast<LRESULT>(DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS),
              SendMessageW(Window(), WM_GETDLGCODE, 0, 0));
}

TEST_F(WebBrowserTest, PaintsThePictureOfThePage) {
    Activate();
    Navigate(first);
    auto picture = std::make_shared<Picture>();
    picture->size = {400, 300};
    picture->pixels.assign(400 * 300, 0x0000ff80);
    Page()->listener->Painted(picture);
    const HDC window = GetDC(Window());
    EXPECT_EQ(RGB(0x00, 0xff, 0x80), GetPixel(window, 399, 299));
    ReleaseDC(Window(), window);

    const HDC memory = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateBitmap(20, 20, 1, 32, nullptr);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    const RECTL bounds{0, 0, 20, 20};
    EXPECT_EQ(S_OK, browser.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, memory,
                                                    &bounds, nullptr, nullptr, 0));
    EXPECT_EQ(RGB(0x00, 0xff, 0x80), GetPixel(memory, 19, 19));
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
}

TEST_F(WebBrowserTest, CommandsOfTheContainerReachThePage) {
    const ComPtr<IOleCommandTarget> target = browser.As<IOleCommandTarget>();
    EXPECT_EQ(OLECMDERR_E_DISABLED, target->Exec(nullptr, OLECMDID_COPY, 0, nullptr, nullptr))
        << "without a page";
    Navigate(first);
    OLECMD commands[] = {{OLECMDID_COPY, 0}, {OLECMDID_STOP, 0}, {OLECMDID_PRINT, 0}};
    EXPECT_EQ(S_OK, target->QueryStatus(nullptr, 3, commands, nullptr));
    EXPECT_EQ(OLECMDF_SUPPORTED | OLECMDF_ENABLED, static_cast<int>(commands[0].cmdf));
    EXPECT_EQ(OLECMDF_SUPPORTED | OLECMDF_ENABLED, static_cast<int>(commands[1].cmdf)) << "while it loads";
    EXPECT_EQ(0u, commands[2].cmdf);
    EXPECT_EQ(S_OK, target->Exec(nullptr, OLECMDID_COPY, 0, nullptr, nullptr));
    EXPECT_NE(std::wstring::npos, Page()->calls.back().find(L"'copy'"));
    EXPECT_EQ(OLECMDERR_E_NOTSUPPORTED, target->Exec(nullptr, OLECMDID_PRINT, 0, nullptr, nullptr));
    EXPECT_EQ(OLECMDERR_E_UNKNOWNGROUP, target->Exec(&CGID_MSHTML, 1, 0, nullptr, nullptr));
    EXPECT_EQ(S_OK, browser->ExecWB(OLECMDID_STOP, OLECMDEXECOPT_DODEFAULT, nullptr, nullptr));
    EXPECT_EQ(L"stop", Page()->calls.back());
}

TEST_F(WebBrowserTest, ReadyStatesAreToldToWatchersOfProperties) {
    class Watcher : public Implements<IPropertyNotifySink> {
    public:
        virtual ~Watcher() = default;
        std::vector<DISPID> changed;
        STDMETHODIMP OnChanged(DISPID id) override {
            changed.push_back(id);
            return S_OK;
        }
        STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }
    };
    const auto watcher = MakeObject<Watcher>();
    Connect(IdOf<IPropertyNotifySink>(), watcher.Get());
    Navigate(first);
    Page()->Become(ReadyState::interactive);
    EXPECT_EQ(std::vector<DISPID>{DISPID_READYSTATE}, watcher->changed);
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
