#include "webbrowser/ListWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "framework/ComPtr.h"
#include "framework/Drawing.h"

namespace nux::webbrowser {
namespace {

constexpr int mostRows = 20;
constexpr int margin = 4;  ///< pixels beside a text

const WindowClass& ListWindowClass() noexcept {
    static const WindowClass windowClass(L"nuxWebBrowserList", CS_DROPSHADOW | CS_SAVEBITS, nullptr);
    return windowClass;
}

HGDIOBJ Font() noexcept {
    return GetStockObject(DEFAULT_GUI_FONT);
}

/// Of the widest entry, and of a row.
SIZE Measure(const std::vector<ListEntry>& entries) noexcept {
    const WindowContext screen(nullptr);
    const Selection font(screen.Context(), Font());
    TEXTMETRICW metrics{};
    GetTextMetricsW(screen.Context(), &metrics);
    SIZE size{0, metrics.tmHeight + 2};
    for (const ListEntry& entry : entries) {
        SIZE text{};
        GetTextExtentPoint32W(screen.Context(), entry.text.c_str(), static_cast<int>(entry.text.size()),
                              &text);
        size.cx = std::max(size.cx, text.cx);
    }
    size.cx += 2 * margin;
    return size;
}

RECT WorkArea(const RECT& place) noexcept {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

}  // namespace

void ListWindow::Open(HWND owner, const RECT& place, std::vector<ListEntry> entries, int marked) {
    Close();
    const RECT screen = WorkArea(place);
    const SIZE row = Measure(entries);
    const int count = static_cast<int>(entries.size());
    const int below = static_cast<int>(screen.bottom - place.bottom);
    const int above = static_cast<int>(place.top - screen.top);
    rowHeight_ = static_cast<int>(row.cy);
    constexpr int border = 1;
    const int most = std::max((std::max(below, above) - 2 * border) / rowHeight_, 1);
    const int rows = std::min({count, mostRows, most});
    const bool hasScrollBar = rows < count;
    const int height = rows * rowHeight_ + 2 * border;
    const LONG width = std::min<LONG>(
        std::max<LONG>(row.cx + 2 * border + (hasScrollBar ? GetSystemMetrics(SM_CXVSCROLL) : 0),
                       place.right - place.left),
        screen.right - screen.left);
    const LONG left = std::clamp(place.left, screen.left, screen.right - width);
    const LONG top = height <= below || below >= above ? place.bottom : place.top - height;

    selection_.emplace(std::move(entries), marked, rows);
    hasMoved_ = isScrolling_ = false;
    GetCursorPos(&opened_);
    Create(ListWindowClass(), owner, {left, top, left + width, top + height},
           WS_POPUP | WS_BORDER | (hasScrollBar ? WS_VSCROLL : 0), WS_EX_TOOLWINDOW | WS_EX_TOPMOST);
    UpdateScrollBar();
    ShowWindow(Handle(), SW_SHOWNA);
    SetCapture(Handle());
}

void ListWindow::Close() noexcept {
    if (!Handle())
        return;
    isScrolling_ = true;  // the end of the capture is no click elsewhere
    Destroy();
}

void ListWindow::End(int entry) {
    Close();
    ended_(entry);
}

void ListWindow::Take(UINT message, WPARAM wParam) {
    if (message == WM_KEYDOWN || message == WM_SYSKEYDOWN) {
        OnKey(wParam);
    } else if (message == WM_CHAR) {
        if (wParam >= L' ' && selection_->Type(static_cast<wchar_t>(wParam), GetTickCount64()))
            Refresh();
    } else {
        constexpr int rowsOfNotch = 3;
        selection_->ScrollTo(selection_->First() -
                             GET_WHEEL_DELTA_WPARAM(wParam) * rowsOfNotch / WHEEL_DELTA);
        Refresh();
    }
}

void ListWindow::OnKey(WPARAM key) {
    const bool withAlt = GetKeyState(VK_MENU) < 0;
    switch (key) {
        case VK_RETURN:
        case VK_TAB:
        case VK_F4:
            return End(selection_->Marked());
        case VK_ESCAPE:
            return End(-1);
        case VK_UP:
        case VK_DOWN:
            if (withAlt)
                return End(selection_->Marked());
            selection_->Move(key == VK_UP ? -1 : 1);
            break;
        case VK_PRIOR:
            selection_->Move(-selection_->Rows());
            break;
        case VK_NEXT:
            selection_->Move(selection_->Rows());
            break;
        case VK_HOME:
        case VK_END:
            selection_->MoveToEnd(key == VK_END);
            break;
        default:
            return;
    }
    Refresh();
}

LRESULT ListWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_PAINT:
            Paint();
            return 0;
        case WM_ERASEBKGND:
            return TRUE;  // all of it is painted
        case WM_MOUSEACTIVATE:
            return MA_NOACTIVATE;
        case WM_SETCURSOR:
            SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW)));
            return TRUE;
        case WM_MOUSEMOVE: {
            POINT now{};
            GetCursorPos(&now);
            hasMoved_ = hasMoved_ || now.x != opened_.x || now.y != opened_.y;
            if (hasMoved_ && EntryAt(at) >= 0) {
                selection_->Mark(EntryAt(at));
                Refresh();
            }
            return 0;
        }
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
            OnPress(at);
            return 0;
        case WM_LBUTTONUP:
            // That of the click which has opened the list comes here too.
            if (hasMoved_ && selection_->IsEnabled(EntryAt(at)))
                End(EntryAt(at));
            return 0;
        case WM_VSCROLL:
            ScrollBy(LOWORD(wParam));
            return 0;
        case WM_CAPTURECHANGED:
            if (!isScrolling_ && reinterpret_cast<HWND>(lParam) != Handle())
                End(-1);
            return 0;
        default:
            return Default(message, wParam, lParam);
    }
}

void ListWindow::OnPress(POINT at) {
    hasMoved_ = true;
    if (EntryAt(at) >= 0)
        return;
    ClientToScreen(Handle(), &at);
    const RECT bounds = WindowRectangle(Handle());
    if (!PtInRect(&bounds, at))
        return End(-1);
    // The scroll bar, which doesn't get the mouse while it is captured. It takes all of it until the button
    // is up.
    // The button may come up only after the control has been let go of.
    const ComPtr<IUnknown> holder(&holder_);
    isScrolling_ = true;
    ReleaseCapture();
    SendMessageW(Handle(), WM_NCLBUTTONDOWN, HTVSCROLL, MAKELPARAM(at.x, at.y));
    isScrolling_ = false;
    if (Handle())
        SetCapture(Handle());
}

void ListWindow::Paint() const {
    const Painting painting(Handle());
    const HDC context = painting.Context();
    const Selection font(context, Font());
    RECT client{};
    GetClientRect(Handle(), &client);
    SetBkMode(context, TRANSPARENT);
    for (int row = 0; row < selection_->Rows(); ++row) {
        const int entry = selection_->First() + row;
        if (entry >= static_cast<int>(selection_->Entries().size()))
            break;
        RECT line{client.left, row * rowHeight_, client.right, (row + 1) * rowHeight_};
        const bool isMarked = entry == selection_->Marked();
        FillRect(context, &line, GetSysColorBrush(isMarked ? COLOR_HIGHLIGHT : COLOR_WINDOW));
        SetTextColor(context, GetSysColor(!selection_->IsEnabled(entry) ? COLOR_GRAYTEXT
                                          : isMarked                    ? COLOR_HIGHLIGHTTEXT
                                                                        : COLOR_WINDOWTEXT));
        line.left += margin;
        const std::wstring& text = selection_->Entries()[static_cast<std::size_t>(entry)].text;
        DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &line,
                  DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
}

void ListWindow::ScrollBy(WORD request) {
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_TRACKPOS;
    GetScrollInfo(Handle(), SB_VERT, &bar);
    const int first = selection_->First();
    switch (request) {
        case SB_LINEUP:
            selection_->ScrollTo(first - 1);
            break;
        case SB_LINEDOWN:
            selection_->ScrollTo(first + 1);
            break;
        case SB_PAGEUP:
            selection_->ScrollTo(first - selection_->Rows());
            break;
        case SB_PAGEDOWN:
            selection_->ScrollTo(first + selection_->Rows());
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            selection_->ScrollTo(bar.nTrackPos);
            break;
        default:
            return;
    }
    Refresh();
}

void ListWindow::UpdateScrollBar() const noexcept {
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    bar.nMax = static_cast<int>(selection_->Entries().size()) - 1;
    bar.nPage = static_cast<UINT>(selection_->Rows());
    bar.nPos = selection_->First();
    SetScrollInfo(Handle(), SB_VERT, &bar, TRUE);
}

void ListWindow::Refresh() const noexcept {
    UpdateScrollBar();
    InvalidateRect(Handle(), nullptr, FALSE);
}

int ListWindow::EntryAt(POINT at) const noexcept {
    RECT client{};
    GetClientRect(Handle(), &client);
    if (!PtInRect(&client, at))
        return -1;
    const int entry = selection_->First() + static_cast<int>(at.y) / rowHeight_;
    return entry < static_cast<int>(selection_->Entries().size()) ? entry : -1;
}

}  // namespace nux::webbrowser
