// The life of the control, its window, and what its page tells.

#include "webbrowser/WebBrowser.h"

#include <exdispid.h>
#include <urlmon.h>

#include <utility>

#include "framework/ComObject.h"
#include "framework/DebugOutput.h"
#include "framework/Drawing.h"
#include "webbrowser/ControlText.h"
#include "webbrowser/FrameBrowser.h"
#include "webbrowser/HtmlObjects.h"
#include "webbrowser/resource.h"

namespace nux::webbrowser {
namespace {

constexpr DWORD miscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                             OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;

constexpr ControlState::Identity identity{CLSID_WebBrowser, DIID_DWebBrowserEvents2, "Web Browser Control",
                                          miscStatus};

const WindowClass& BrowserWindowClass() noexcept {
    static const WindowClass windowClass(L"nuxWebBrowser", CS_DBLCLKS, nullptr);
    return windowClass;
}

constexpr int hundredthsOfInch = 2540;  // of a millimetre

/// The address of the document alone, as it is asked for again.
std::wstring WithoutFragment(const std::wstring& address) {
    return address.substr(0, address.find(L'#'));
}

}  // namespace

WebBrowser::WebBrowser(PageOpener openPage)
    : OleControl(BrowserWindowClass(), identity),
      openPage_(openPage),
      link_(nux::MakeObject<BrowserLink>(static_cast<IServiceProvider&>(*this))),
      cursor_(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW))) {
    AddConnectionPoint(DIID_DWebBrowserEvents);
}

void WebBrowser::OnLastRelease() noexcept {
    link_->Cut();
    ClosePage();
    ReleaseContainer();
    objectSite_.Reset();
    properties_.clear();
}

void* WebBrowser::FindInterface(REFIID iid) noexcept {
    if (iid == IdOf<IWebBrowser>() || iid == IdOf<IWebBrowserApp>())
        return static_cast<IWebBrowser2*>(this);
    for (void* found : {BrowserInterface::FindInterface(iid), BrowserServices::FindInterface(iid),
                        OleControl::FindInterface(iid)}) {
        if (found)
            return found;
    }
    return nullptr;
}

DocumentHost WebBrowser::Host() const noexcept {
    return DocumentHost(site_ ? ComPtr<IUnknown>(site_) : objectSite_);
}

// The page

std::shared_ptr<Page> WebBrowser::OpenedPage() {
    if (page_ && page_->IsOpen())
        return page_;
    page_.reset();
    std::shared_ptr<Page> opened;
    try {
        opened = openPage_(*this, ViewSize());
    } catch (const HResultError& error) {
        ShowNotice(error.Words());
        throw;
    }
    if (page_ && page_->IsOpen())
        opened->Close();  // one that was opened for a call that came meanwhile is shown
    else
        page_ = std::move(opened);
    std::shared_ptr<Page> page = page_;
    page->Resize(ViewSize());
    // Nobody tells the window when its container's is shown, so that one doesn't count.
    page->SetVisible(Handle() && (GetWindowLongPtrA(Handle(), GWL_STYLE) & WS_VISIBLE) != 0);
    if (Handle() && GetFocus() == Handle())
        page->SetFocus(true);
    return page;
}

void WebBrowser::ClosePage() noexcept {
    ++closings_;
    CloseList();
    if (const std::shared_ptr<Page> page = std::move(page_))
        page->Close();
    view_.SetPicture(nullptr);
    view_.SetNotice({});
    frames_.clear();
    hasDocument_ = isLost_ = isAnnounced_ = isRefreshing_ = isDownloading_ = false;
    if (Handle())
        InvalidateRect(Handle(), nullptr, FALSE);
}

void WebBrowser::ShowNotice(const std::wstring& reason) {
    isLost_ = true;
    view_.SetNotice(ControlText(IDS_NO_PAGE) + L"\n" + reason + L"\n\n" + ControlText(IDS_LOAD_AGAIN));
    if (Handle())
        InvalidateRect(Handle(), nullptr, FALSE);
}

void WebBrowser::Begin(const std::wstring& address) {
    address_ = address;
    const std::shared_ptr<Page> page = OpenedPage();
    isLost_ = isRefreshing_ = false;
    view_.SetNotice({});
    isAnnounced_ = true;
    BeginDownload();
    page->Navigate(address);
}

void WebBrowser::BeginDownload() {
    if (!std::exchange(isDownloading_, true))
        DownloadBegin();
}

void WebBrowser::EndDownload() {
    if (std::exchange(isDownloading_, false))
        DownloadComplete();
}

PixelSize WebBrowser::ViewSize() const noexcept {
    RECT client{};
    if (Handle()) {
        GetClientRect(Handle(), &client);
    } else {
        const WindowContext screen(nullptr);
        client.right = MulDiv(extent_.cx, GetDeviceCaps(screen.Context(), LOGPIXELSX), hundredthsOfInch);
        client.bottom = MulDiv(extent_.cy, GetDeviceCaps(screen.Context(), LOGPIXELSY), hundredthsOfInch);
    }
    return {client.right, client.bottom};
}

// Embedding

STDMETHODIMP WebBrowser::Close(DWORD saveOption) {
    const ComPtr<IOleObject> self = Held();
    ClosePage();
    return OleControl::Close(saveOption);
}

STDMETHODIMP WebBrowser::DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                                LPCRECT bounds) {
    const ComPtr<IOleObject> self = Held();
    const HRESULT result = OleControl::DoVerb(verb, message, site, index, parent, bounds);
    const bool isTab = message && message->message == WM_KEYDOWN && message->wParam == VK_TAB;
    const std::shared_ptr<Page> page = page_;
    if (FAILED(result) || !isTab || !HasUserInterface() || !page)
        return result;
    return Guarded([&] {
        page->TabInto(GetKeyState(VK_SHIFT) >= 0);
        return result;
    });
}

STDMETHODIMP WebBrowser::GetClassInfo(ITypeInfo** typeInfo) {
    if (!typeInfo)
        return E_POINTER;
    *typeInfo = nullptr;
    return Guarded([&] {
        *typeInfo = TypeInfoOf(CLSID_WebBrowser, &browserLibrary).Detach();
        return S_OK;
    });
}

STDMETHODIMP WebBrowser::GetViewStatus(DWORD* status) {
    if (!status)
        return E_POINTER;
    *status = VIEWSTATUS_OPAQUE;
    return S_OK;
}

STDMETHODIMP WebBrowser::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC draw, LPCRECTL bounds,
                              LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    if (!draw || !bounds)
        return E_INVALIDARG;
    view_.Draw(draw, {bounds->left, bounds->top, bounds->right, bounds->bottom});
    return S_OK;
}

STDMETHODIMP WebBrowser::FreezeEvents(BOOL freeze) {
    const ComPtr<IOleObject> self = Held();
    return Guarded([&] {
        FreezeSinks(freeze != FALSE);
        return S_OK;
    });
}

STDMETHODIMP WebBrowser::OnDocWindowActivate(BOOL activate) {
    const ComPtr<IOleObject> self = Held();
    if (const ComPtr<IDocHostUIHandler> handler = Host().Handler())
        handler->OnDocWindowActivate(activate);
    return OleControl::OnDocWindowActivate(activate);
}

STDMETHODIMP WebBrowser::OnFrameWindowActivate(BOOL activate) {
    const ComPtr<IOleObject> self = Held();
    if (const ComPtr<IDocHostUIHandler> handler = Host().Handler())
        handler->OnFrameWindowActivate(activate);
    return S_OK;
}

STDMETHODIMP WebBrowser::EnableModeless(BOOL enable) {
    const ComPtr<IOleObject> self = Held();
    Host().EnableModeless(enable != FALSE);
    return S_OK;
}

STDMETHODIMP WebBrowser::SetSite(IUnknown* site) {
    objectSite_ = ComPtr<IUnknown>(site);
    return S_OK;
}

STDMETHODIMP WebBrowser::GetSite(REFIID iid, void** site) {
    if (!site)
        return E_POINTER;
    *site = nullptr;
    return objectSite_ ? objectSite_->QueryInterface(iid, site) : E_FAIL;
}

STDMETHODIMP WebBrowser::QueryService(REFGUID service, REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    const ComPtr<IOleObject> self = Held();
    if (service == IdOf<IWebBrowserApp>() || service == IdOf<IWebBrowser2>())
        return self->QueryInterface(iid, object);
    const ComPtr<IServiceProvider> provider =
        Query<IServiceProvider>(site_ ? site_.Get() : objectSite_.Get());
    return provider ? provider->QueryService(service, iid, object) : E_NOINTERFACE;
}

void WebBrowser::OnSiteChanged() noexcept {
    if (!site_)
        ClosePage();
}

void WebBrowser::OnUserInterface(bool active) noexcept {
    const ComPtr<IDocHostUIHandler> handler = Host().Handler();
    if (!handler)
        return;
    if (active)
        handler->ShowUI(DOCHOSTUITYPE_BROWSE, this, this, Frame().Get(), nullptr);
    else
        handler->HideUI();
}

// The window

void WebBrowser::UpdateBorder() noexcept {
    const bool hasBorder = (Host().Flags() & (DOCHOSTUIFLAG_NO3DBORDER | DOCHOSTUIFLAG_NO3DOUTERBORDER)) == 0;
    const LONG_PTR style = GetWindowLongPtrA(Handle(), GWL_EXSTYLE);
    SetWindowLongPtrA(Handle(), GWL_EXSTYLE,
                      hasBorder ? style | WS_EX_CLIENTEDGE : style & ~WS_EX_CLIENTEDGE);
    SetWindowPos(Handle(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

LRESULT WebBrowser::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const ComPtr<IOleObject> self = Held();
    const std::shared_ptr<Page> page = page_;
    switch (message) {
        case WM_CREATE:
            UpdateBorder();
            if (page) {
                page->Resize(ViewSize());
                page->SetVisible(true);
            }
            break;
        case WM_DESTROY:
            CloseList();
            view_.DestroyToolTip();
            if (page)
                page->SetVisible(false);
            break;
        case WM_SHOWWINDOW:
            CloseList();
            if (page)
                page->SetVisible(wParam != FALSE);
            break;
        case WM_MOVE:
            CloseList();
            break;
        case WM_SIZE:
            CloseList();
            if (page && wParam != SIZE_MINIMIZED)
                page->Resize(ViewSize());
            break;
        case WM_ERASEBKGND:
            return TRUE;  // all of the window is painted
        case WM_PAINT: {
            const Painting painting(Handle());
            RECT client{};
            GetClientRect(Handle(), &client);
            view_.Paint(painting.Context(), client);
            return 0;
        }
        case WM_PRINTCLIENT: {
            RECT client{};
            GetClientRect(Handle(), &client);
            view_.Paint(reinterpret_cast<HDC>(wParam), client);
            return 0;
        }
        case WM_SETCURSOR:
            if (LOWORD(lParam) != HTCLIENT || reinterpret_cast<HWND>(wParam) != Handle())
                break;
            SetCursor(view_.HasNotice() ? LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_HAND)) : cursor_);
            return TRUE;
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS;
        case WM_MOUSEACTIVATE:
            return MA_ACTIVATE;
        case WM_SETFOCUS:
            OnFocus(true);
            return 0;
        case WM_KILLFOCUS:
            OnFocus(false);
            return 0;
        case WM_CONTEXTMENU:
            return 0;  // the page tells where its menu is asked for
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP:
        case WM_SYSCHAR:
            OnKey(message, wParam, lParam);
            break;  // the menu of the window, and its end
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_CHAR:
            OnKey(message, wParam, lParam);
            return 0;
        case WM_MOUSEMOVE:
        case WM_MOUSELEAVE:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_LBUTTONUP:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_RBUTTONUP:
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
        case WM_MBUTTONUP:
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            OnMouse(message, wParam, lParam);
            return 0;
        default:
            break;
    }
    return Default(message, wParam, lParam);
}

// What the page tells

IDispatch* WebBrowser::FrameOf(const std::wstring& address) {
    ComPtr<IDispatch>& frame = frames_[address];
    if (!frame)
        frame = nux::MakeObject<FrameBrowser>(address);
    return frame.Get();
}

bool WebBrowser::Navigating(const std::wstring& address, bool isTop) {
    const ComPtr<IOleObject> self = Held();
    const std::shared_ptr<Page> page = page_;
    if (isTop && isRefreshing_ && page && address == WithoutFragment(page->Location()))
        return true;
    const std::wstring translated = Host().Translated(address);
    const ComPtr<IDispatch> browser(isTop ? Self() : FrameOf(address));
    if (BeforeNavigate({browser.Get(), translated}))
        return false;
    if (isTop && translated != address) {
        Begin(translated);
        return false;
    }
    if (isTop) {
        isRefreshing_ = false;
        isAnnounced_ = true;
        BeginDownload();
    }
    return true;
}

void WebBrowser::Navigated(const std::wstring& address, bool isTop) {
    const ComPtr<IOleObject> self = Held();
    if (!isTop) {
        const ComPtr<IDispatch> frame(FrameOf(address));
        NavigateComplete(frame.Get(), address);
        return;
    }
    CloseList();
    frames_.clear();
    hasDocument_ = true;
    if (isRefreshing_)
        return;
    // A document that needs no file, such as about:blank, comes without having been asked for.
    if (!std::exchange(isAnnounced_, false)) {
        BeforeNavigate({Self(), address});
        BeginDownload();
    }
    if (const std::shared_ptr<Page> page = page_; page && (Host().Flags() & DOCHOSTUIFLAG_SCROLL_NO))
        page->Post("() => { document.documentElement.style.overflow = 'hidden'; }");
    NavigateComplete(Self(), address);
}

void WebBrowser::Loaded(const std::wstring& address, bool isTop) {
    const ComPtr<IOleObject> self = Held();
    if (!isTop) {
        const ComPtr<IDispatch> frame(FrameOf(address));
        DocumentComplete(frame.Get(), address);
        return;
    }
    EndDownload();
    isAnnounced_ = false;
    if (!std::exchange(isRefreshing_, false) && page_)
        DocumentComplete(Self(), address);
}

void WebBrowser::NavigationFailed(const std::wstring& address, bool isTop, HRESULT status) {
    const ComPtr<IOleObject> self = Held();
    const ComPtr<IDispatch> browser(isTop ? Self() : FrameOf(address));
    if (isTop)
        EndDownload();
    const bool isCancelled = NavigateError(browser.Get(), address, status);
    if (const std::shared_ptr<Page> page = page_; page && isTop && isCancelled)
        page->Stop();
}

void WebBrowser::ReadyStateChanged(ReadyState state) {
    const ComPtr<IOleObject> self = Held();
    for (const ComPtr<IUnknown>& sink : Sinks(IID_IPropertyNotifySink))
        static_cast<IPropertyNotifySink*>(sink.Get())->OnChanged(DISPID_READYSTATE);
    constexpr LONG all = 4;  // states
    if (isDownloading_ && state != ReadyState::uninitialized)
        ProgressChange(state == ReadyState::complete ? -1 : static_cast<LONG>(state), all);
}

void WebBrowser::TitleChanged(const std::wstring& title) {
    const ComPtr<IOleObject> self = Held();
    TitleChange(title);
}

void WebBrowser::StatusChanged(const std::wstring& status) {
    const ComPtr<IOleObject> self = Held();
    statusText_ = status;
    if (const ComPtr<IOleInPlaceFrame> frame = Frame())
        frame->SetStatusText(status.c_str());
    StatusTextChange(status);
}

void WebBrowser::HistoryChanged() {
    const ComPtr<IOleObject> self = Held();
    const std::shared_ptr<Page> page = page_;
    if (!page)
        return;
    CommandStateChange(CSC_NAVIGATEBACK, page->CanGoBack());
    CommandStateChange(CSC_NAVIGATEFORWARD, page->CanGoForward());
    if (const ComPtr<IDocHostUIHandler> handler = Host().Handler())
        handler->UpdateUI();
}

void WebBrowser::NewWindow(const std::wstring& address) {
    const ComPtr<IOleObject> self = Held();
    OpenWindow(address);
}

void WebBrowser::OpenWindow(const std::wstring& address) {
    ComPtr<IDispatch> given;
    const std::wstring context = page_ ? page_->Location() : std::wstring();
    if (BrowserEvents::NewWindow(address, context, given))
        return;
    const ComPtr<IWebBrowser2> browser = given.As<IWebBrowser2>();
    if (browser && !address.empty())
        browser->Navigate(Bstr(address).Get(), nullptr, nullptr, nullptr, nullptr);
    else if (!browser)
        TellDebugger(L"no container has a window for " + address);
}

void WebBrowser::CloseRequested() {
    const ComPtr<IOleObject> self = Held();
    if (WindowClosing())
        return;
    BrowserEvents::Quit();
    ClosePage();
    InPlaceDeactivate();
}

PageDialogAnswer WebBrowser::Asked(const PageDialog& question) {
    const ComPtr<IOleObject> self = Held();
    return AskUser(question);
}

ComPtr<IDispatch> WebBrowser::External() {
    return Host().External();
}

bool WebBrowser::MayMakeObjects(const std::wstring& address) {
    return address.starts_with(L"file:") && Host().AllowsObjects(address);
}

ComPtr<IDispatch> WebBrowser::MakeObject(const PageReference& reference) {
    return MakeDocumentObject(reference, ComPtr<IServiceProvider>(link_.Get()));
}

void WebBrowser::Painted(const std::shared_ptr<const Picture>& picture) {
    view_.SetPicture(picture);
    if (Handle())
        RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_NOERASE);
}

void WebBrowser::CursorChanged(HCURSOR cursor) {
    cursor_ = cursor;
    POINT at{};
    if (Handle() && GetCursorPos(&at) && WindowFromPoint(at) == Handle())
        SetCursor(cursor);
}

void WebBrowser::ToolTipChanged(const std::wstring& text) {
    if (Handle())
        view_.ShowToolTip(Handle(), text);
}

void WebBrowser::TabbedOut(bool forward) {
    const ComPtr<IOleObject> self = Held();
    MoveFocus(forward);
}

void WebBrowser::Lost(PageLoss loss) {
    const ComPtr<IOleObject> self = Held();
    CloseList();
    ShowNotice(ControlText(loss == PageLoss::browserEnded ? IDS_BROWSER_ENDED : IDS_PAGE_ENDED));
    isAnnounced_ = isRefreshing_ = false;
    EndDownload();
}

}  // namespace nux::webbrowser
