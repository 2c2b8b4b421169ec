// Mouse, keyboard and focus of the control's window, and what comes of them: lists that drop down, the
// clipboard.

#include <windowsx.h>

#include <cwchar>
#include <utility>

#include "webbrowser/Clipboard.h"
#include "webbrowser/WebBrowser.h"

namespace nux::webbrowser {
namespace {

/// Whether the page will paste because of a key.
bool IsPaste(UINT message, WPARAM key) noexcept {
    return message == WM_KEYDOWN &&
           ((key == 'V' && GetKeyState(VK_CONTROL) < 0) || (key == VK_INSERT && GetKeyState(VK_SHIFT) < 0));
}

}  // namespace

void WebBrowser::OnMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_MOUSEWHEEL:
            if (list_.IsOpen()) {
                list_.Take(message, wParam);
                return;
            }
            [[fallthrough]];
        case WM_MOUSEHWHEEL:
            ScreenToClient(Handle(), &at);
            break;
        case WM_MOUSELEAVE:
            isTracking_ = false;
            break;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
            if (GetFocus() != Handle())
                ::SetFocus(Handle());
            SetCapture(Handle());
            break;
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
        case WM_MBUTTONUP:
            if ((wParam & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON)) == 0 && GetCapture() == Handle())
                ReleaseCapture();
            if (message == WM_LBUTTONUP && view_.HasNotice()) {
                Refresh();
                return;
            }
            break;
        default:
            break;
    }
    if (message == WM_MOUSEMOVE && !isTracking_) {
        TRACKMOUSEEVENT tracking{sizeof tracking, TME_LEAVE, Handle(), 0};
        isTracking_ = TrackMouseEvent(&tracking) != FALSE;
    }
    if (const std::shared_ptr<Page> page = page_)
        page->Mouse(message, wParam, at);
}

void WebBrowser::OnFocus(bool focused) {
    if (!focused)
        CloseList();
    const std::shared_ptr<Page> page = page_;
    if (page)
        page->SetFocus(focused);
    if (page && focused && GetKeyState(VK_TAB) < 0)
        page->TabInto(GetKeyState(VK_SHIFT) >= 0);
    const ComPtr<IOleClientSite> site = site_;
    if (const ComPtr<IOleControlSite> controlSite = site.As<IOleControlSite>())
        controlSite->OnFocus(focused);
    if (focused && InPlaceSite() && !HasUserInterface())
        DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, GetParent(Handle()), nullptr);
}

void WebBrowser::OnKey(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool isDown = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    if (message == WM_KEYDOWN && view_.HasNotice() && (wParam == VK_RETURN || wParam == VK_F5)) {
        Refresh();
        return;
    }
    // The key that ends a list is the list's to its end: the page would press a button by it.
    if (isDown)
        isKeyOfList_ = list_.IsOpen();
    if (isKeyOfList_) {
        if (list_.IsOpen() && (isDown || message == WM_CHAR))
            list_.Take(message, wParam);
        return;
    }
    const std::shared_ptr<Page> page = page_;
    if (page && IsPaste(message, wParam))
        page->SetClipboardText(ClipboardText(Handle()));
    if (page)
        page->Key(message, wParam, lParam);
}

bool WebBrowser::TakesAccelerator(const MSG& message) {
    if (message.message == WM_KEYDOWN && message.wParam == VK_F5) {
        Variant level;
        level.SetNumber(GetKeyState(VK_CONTROL) < 0 ? REFRESH_COMPLETELY : REFRESH_NORMAL);
        Refresh2(const_cast<VARIANT*>(&level.Get()));
        return true;
    }
    if (message.message != WM_SYSKEYDOWN || GetKeyState(VK_MENU) >= 0)
        return false;
    if (message.wParam == VK_LEFT)
        return SUCCEEDED(GoBack());
    return message.wParam == VK_RIGHT && SUCCEEDED(GoForward());
}

STDMETHODIMP WebBrowser::TranslateAccelerator(LPMSG message) {
    if (!message)
        return E_POINTER;
    const ComPtr<IOleObject> self = Held();
    if (message->message < WM_KEYFIRST || message->message > WM_KEYLAST)
        return S_FALSE;
    if (Host().TakesKey(*message))
        return S_OK;
    if (!page_ || message->hwnd != Handle())
        return S_FALSE;
    if (TakesAccelerator(*message))
        return S_OK;
    if (message->message != WM_KEYDOWN)
        return S_FALSE;
    // What containers would take for themselves is the page's while it has the focus, and all is the list's.
    switch (list_.IsOpen() ? WPARAM{VK_TAB} : message->wParam) {
        case VK_TAB:
        case VK_RETURN:
        case VK_BACK:
        case VK_DELETE:
        case VK_LEFT:
        case VK_RIGHT:
        case VK_UP:
        case VK_DOWN:
        case VK_HOME:
        case VK_END:
        case VK_PRIOR:
        case VK_NEXT:
            break;
        default:
            if (GetKeyState(VK_CONTROL) >= 0 || !wcschr(L"ACVXYZ", static_cast<wchar_t>(message->wParam)))
                return S_FALSE;
    }
    ::TranslateMessage(message);
    DispatchMessageW(message);
    return S_OK;
}

void WebBrowser::MoveFocus(bool forward) {
    MSG message{};
    message.hwnd = Handle();
    message.message = WM_KEYDOWN;
    message.wParam = VK_TAB;
    constexpr DWORD shift = 1;  // of KEYMODIFIERS
    const ComPtr<IOleControlSite> site = site_.As<IOleControlSite>();
    if (site && site->TranslateAccelerator(&message, forward ? 0 : shift) == S_OK)
        return;
    const HWND next =
        Handle() ? GetNextDlgTabItem(GetAncestor(Handle(), GA_ROOT), Handle(), !forward) : nullptr;
    if (next && next != Handle())
        ::SetFocus(next);
    else if (const std::shared_ptr<Page> page = page_)
        page->TabInto(forward);
}

// Lists and the clipboard

void WebBrowser::ListOpened(const PageList& list) {
    const ComPtr<IOleObject> self = Held();
    const std::shared_ptr<Page> page = page_;
    if (!page || !Handle() || list.entries.empty())
        return;
    // From now on the list has the mouse: the page won't see the button that has opened it come up.
    if (GetCapture() == Handle()) {
        ReleaseCapture();
        page->Mouse(WM_LBUTTONUP, 0,
                    {(list.place.left + list.place.right) / 2, (list.place.top + list.place.bottom) / 2});
    }
    RECT place = list.place;
    MapWindowPoints(Handle(), HWND_DESKTOP, reinterpret_cast<POINT*>(&place), 2);
    list_.Open(Handle(), place, list.entries, list.selected);
    listElement_ = list.element;
}

void WebBrowser::CloseList() noexcept {
    list_.Close();
    listElement_ = {};
}

void WebBrowser::ListEnded(int entry) {
    const PageReference element = std::exchange(listElement_, {});
    const std::shared_ptr<Page> page = page_;
    if (page && entry >= 0)
        page->ChooseInList(element, entry);
}

void WebBrowser::Copied(const std::wstring& text) {
    nux::webbrowser::SetClipboardText(Handle(), text);
}

}  // namespace nux::webbrowser
