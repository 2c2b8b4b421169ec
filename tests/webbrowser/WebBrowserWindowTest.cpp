// What a container and a user see of the control, over a page that the test plays.

#include <windows.h>

#include <commctrl.h>

#include <functional>

#include "framework/Module.h"
#include "tests/webbrowser/ContainedBrowser.h"

namespace nux::webbrowser {
namespace {

using Events = std::vector<std::wstring>;
using WebBrowserWindow = ContainedBrowser;

constexpr wchar_t first[] = L"file:///C:/a/first.htm";
constexpr wchar_t second[] = L"file:///C:/a/second.htm";

// The container's word

TEST_F(WebBrowserWindow, TheSitesHandlerGivesTheExternalObject) {
    Activate();
    Navigate(first);
    EXPECT_FALSE(Page()->listener->External());
    site->external = browser.As<IDispatch>();
    EXPECT_EQ(site->external.Get(), Page()->listener->External().Get());
    site->hasHandler = false;
    EXPECT_FALSE(Page()->listener->External());
    site->external.Reset();
}

TEST_F(WebBrowserWindow, TheSitesHandlerSendsNavigationsOfAPageElsewhere) {
    Activate();
    Navigate(first);
    Page()->Finish(first);
    sink->Take();
    site->translated = second;
    EXPECT_FALSE(Page()->listener->Navigating(first, true));
    EXPECT_EQ((Events{std::wstring(L"BeforeNavigate2 ") + second, L"DownloadBegin"}), sink->Take());
    EXPECT_EQ(std::wstring(L"navigate ") + second, Page()->calls.back());
}

TEST_F(WebBrowserWindow, TheBorderIsTheHandlersChoice) {
    Activate();
    EXPECT_FALSE(GetWindowLongA(Window(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
    object->SetClientSite(nullptr);
    site->flags = 0;
    Activate();
    EXPECT_TRUE(GetWindowLongA(Window(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
}

TEST_F(WebBrowserWindow, TheHandlerShowsTheContextMenu) {
    Activate();
    Navigate(first);
    site->calls.clear();
    Page()->listener->ContextMenu({3, 4}, {});
    EXPECT_EQ((Journal{"ShowContextMenu 0"}), site->calls);
}

TEST_F(WebBrowserWindow, SilentQuestionsAreAnsweredWithoutTheUser) {
    Activate();
    Navigate(first);
    browser->put_Silent(VARIANT_TRUE);
    EXPECT_TRUE(Page()->listener->Asked({PageDialog::Kind::alert, L"text", {}}).accepted);
    EXPECT_FALSE(Page()->listener->Asked({PageDialog::Kind::confirm, L"text", {}}).accepted);
    browser->put_Silent(VARIANT_FALSE);
    site->ambient[DISPID_AMBIENT_DLCONTROL] = DLCTL_SILENT;
    EXPECT_FALSE(Page()->listener->Asked({PageDialog::Kind::confirm, L"text", {}}).accepted);
}

TEST_F(WebBrowserWindow, PagesOfFilesMakeObjectsUnlessTheContainerForbidsIt) {
    Activate();
    Navigate(first);
    EXPECT_TRUE(Page()->listener->MayMakeObjects(first));
    EXPECT_FALSE(Page()->listener->MayMakeObjects(L"about:blank"));
    site->ambient[DISPID_AMBIENT_DLCONTROL] = DLCTL_NO_RUNACTIVEXCTLS;
    EXPECT_FALSE(Page()->listener->MayMakeObjects(first));
}

// The window

TEST_F(WebBrowserWindow, ThePageHasTheSizeOfTheWindow) {
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

TEST_F(WebBrowserWindow, ThePageIsPaintedForAContainerThatIsShownLater) {
    ShowWindow(frame, SW_HIDE);
    Activate();
    Navigate(first);
    EXPECT_TRUE(Page()->isVisible);
    ShowWindow(Window(), SW_HIDE);
    EXPECT_FALSE(Page()->isVisible);
}

TEST_F(WebBrowserWindow, ThePageGetsMouseAndKeysOfTheWindow) {
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

TEST_F(WebBrowserWindow, AClickActivatesItsUserInterface) {
    Activate();
    Navigate(first);
    site->calls.clear();
    SendMessageW(Window(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
    EXPECT_EQ((Journal{"OnFocus", "OnUIActivate", "ShowUI", "ShowObject"}), site->calls);
    site->calls.clear();
    browser.As<IOleInPlaceObject>()->UIDeactivate();
    EXPECT_EQ((Journal{"HideUI", "OnUIDeactivate"}), site->calls);
}

TEST_F(WebBrowserWindow, TabLeavesThroughTheSite) {
    Activate();
    Navigate(first);
    site->calls.clear();
    Page()->listener->TabbedOut(true);
    Page()->listener->TabbedOut(false);
    EXPECT_EQ((Journal{"site's key 9 0", "site's key 9 1"}), site->calls);
}

TEST_F(WebBrowserWindow, TabEntersWithTheVerbThatBringsIt) {
    Activate();
    Navigate(first);
    MSG tab{};
    tab.message = WM_KEYDOWN;
    tab.wParam = VK_TAB;
    EXPECT_EQ(S_OK, object->DoVerb(OLEIVERB_UIACTIVATE, &tab, site.Get(), 0, frame, nullptr));
    EXPECT_EQ(L"tab into", Page()->calls.back());
}

TEST_F(WebBrowserWindow, NoFailureOfThePageLeavesTheVerbThatBringsTab) {
    Activate();
    Navigate(first);
    Page()->tabFailure = RPC_E_DISCONNECTED;
    MSG tab{};
    tab.message = WM_KEYDOWN;
    tab.wParam = VK_TAB;
    HRESULT result = S_OK;
    EXPECT_NO_THROW(result = object->DoVerb(OLEIVERB_UIACTIVATE, &tab, site.Get(), 0, frame, nullptr));
    EXPECT_EQ(RPC_E_DISCONNECTED, result);
}

class Deed {
public:
    static inline std::function<void()> deed;
    static void CALLBACK Run(HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        deed();
        deed = nullptr;
    }
};

TEST_F(WebBrowserWindow, EndsWhileTheListOfAnElementIsScrolledAndNotBefore) {
    Activate();
    Navigate(first);
    PageList list;
    list.place = {10, 10, 110, 30};
    list.selected = 0;
    list.entries.resize(200, {L"entry", true});
    Page()->listener->ListOpened(list);
    const HWND window = FindWindowA("nuxWebBrowserList", nullptr);
    ASSERT_TRUE(window);
    RECT client{};
    GetClientRect(window, &client);
    const long all = LiveObjects();
    long after = 0;
    Deed::deed = [&] {
        object->SetClientSite(nullptr);
        sink->source.Reset();
        object.Reset();
        browser.Reset();
        control.Reset();
        after = LiveObjects();
    };
    SetTimer(nullptr, 0, 10, &Deed::Run);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(client.right + 4, client.bottom / 2));
    EXPECT_FALSE(Deed::deed) << "that was within";
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(all, after) << "its list needs it until the scroll bar is left";
    EXPECT_GT(all, LiveObjects());
}

TEST_F(WebBrowserWindow, KeysOfThePageAreTakenBeforeItsContainer) {
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

TEST_F(WebBrowserWindow, PaintsThePictureOfThePage) {
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

TEST_F(WebBrowserWindow, CommandsOfTheContainerReachThePage) {
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

TEST_F(WebBrowserWindow, ReadyStatesAreToldToWatchersOfProperties) {
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

TEST_F(WebBrowserWindow, ZoomIsNotOffered) {
    Navigate(first);
    for (const OLECMDID command : {OLECMDID_ZOOM, OLECMDID_OPTICAL_ZOOM, OLECMDID_OPTICAL_GETZOOMRANGE}) {
        OLECMDF state = OLECMDF_ENABLED;
        EXPECT_EQ(S_OK, browser->QueryStatusWB(command, &state));
        EXPECT_EQ(0, static_cast<int>(state));
        EXPECT_EQ(OLECMDERR_E_NOTSUPPORTED,
                  browser->ExecWB(command, OLECMDEXECOPT_DODEFAULT, nullptr, nullptr));
    }
}

TEST_F(WebBrowserWindow, TheSiteMayShowMessagesOfAPageItself) {
    Activate();
    Navigate(first);
    site->onMessage = S_OK;
    site->messageAnswer = IDOK;
    EXPECT_TRUE(Page()->listener->Asked({PageDialog::Kind::confirm, L"Sure?", {}}).accepted);
    site->messageAnswer = IDCANCEL;
    EXPECT_FALSE(Page()->listener->Asked({PageDialog::Kind::confirm, L"Sure?", {}}).accepted);
    EXPECT_TRUE(Page()->listener->Asked({PageDialog::Kind::alert, L"Read", {}}).accepted);
    EXPECT_EQ(3, std::count(site->calls.begin(), site->calls.end(), "EnableModeless not"));
    EXPECT_EQ((std::vector<std::wstring>{L"Sure?", L"Sure?", L"Read"}), site->messages);
}

TEST_F(WebBrowserWindow, TheSitesSecurityManagerIsAskedForObjects) {
    Activate();
    Navigate(first);
    site->policy = URLPOLICY_DISALLOW;
    EXPECT_FALSE(Page()->listener->MayMakeObjects(first));
    site->policy = URLPOLICY_ALLOW;
    EXPECT_TRUE(Page()->listener->MayMakeObjects(first));
    EXPECT_EQ((std::vector<DWORD>{URLACTION_ACTIVEX_RUN, URLACTION_ACTIVEX_RUN}), site->actions);
}

TEST_F(WebBrowserWindow, ShowsThePagesCursor) {
    Activate();
    Navigate(first);
    const auto shown = [&](const char* expected) {
        SendMessageW(Window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Window()),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor() == LoadCursorA(nullptr, expected);
    };
    EXPECT_TRUE(shown(IDC_ARROW));
    Page()->listener->CursorChanged(LoadCursorA(nullptr, IDC_HAND));
    EXPECT_TRUE(shown(IDC_HAND));
    Page()->listener->CursorChanged(LoadCursorA(nullptr, IDC_IBEAM));
    EXPECT_TRUE(shown(IDC_IBEAM));
}

TEST_F(WebBrowserWindow, ShowsToolTips) {
    Activate();
    Navigate(first);
    Page()->listener->ToolTipChanged(L"A tip");
    const HWND tip = FindWindowW(TOOLTIPS_CLASSW, nullptr);
    ASSERT_TRUE(tip);
    const auto text = [&] {
        wchar_t words[80]{};
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        tool.hwnd = Window();
        tool.uId = reinterpret_cast<UINT_PTR>(Window());
        tool.lpszText = words;
        SendMessageW(tip, TTM_GETTEXTW, 80, reinterpret_cast<LPARAM>(&tool));
        return std::wstring(words);
    };
    EXPECT_EQ(L"A tip", text());
    Page()->listener->ToolTipChanged(L"Another");
    EXPECT_EQ(L"Another", text());
    browser.As<IOleInPlaceObject>()->InPlaceDeactivate();
    EXPECT_FALSE(IsWindow(tip)) << "it goes with the window";
}

}  // namespace
}  // namespace nux::webbrowser
