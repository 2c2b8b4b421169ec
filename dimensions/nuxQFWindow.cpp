#include "dimensions/nuxQFWindow.h"

#include <commctrl.h>
#include <windowsx.h>

#include <cstdint>
#include <utility>

#include "framework/Drawing.h"
#include "framework/HResult.h"
#include "framework/Module.h"

namespace nux {
namespace {

constexpr DWORD frameStyle = WS_POPUP | WS_DLGFRAME;

const WindowClass& FrameClass() noexcept {
    static const WindowClass windowClass("nuxQFWindow", CS_SAVEBITS,
                                         reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    return windowClass;
}

const WindowClass& ListClass() noexcept {
    static const WindowClass windowClass("nuxQFWindowChild", 0, nullptr);
    return windowClass;
}

PixelPoint Pointer() noexcept {
    POINT pointer{};
    GetCursorPos(&pointer);
    return {pointer.x, pointer.y};
}

HGDIOBJ ListFont() noexcept {
    return GetStockObject(DEFAULT_GUI_FONT);
}

/// Alt and F10 would take the keyboard to the dialog's menu. As modifiers they count by the state of the key.
bool OpensMenu(const MSG& message) noexcept {
    switch (message.message) {
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP:
            return message.wParam == VK_MENU || message.wParam == VK_F10;
        default:
            return false;
    }
}

TEXTMETRICA MeasureListFont(HWND list) noexcept {
    TEXTMETRICA metrics{};
    const WindowContext window(list);
    const Selection font(window.Context(), ListFont());
    GetTextMetricsA(window.Context(), &metrics);
    return metrics;
}

}  // namespace

nuxQFWindowChild::nuxQFWindowChild(nuxQFWindow& owner, std::vector<std::string> strings)
    : Window(&owner), owner_(owner), strings_(std::move(strings)), geometry_({}, 1, 1) {}

void nuxQFWindowChild::CreateInside(HWND pager) {
    pager_ = pager;
    Create(ListClass(), pager, {0, 0, 100, 500}, WS_CHILD | WS_VISIBLE);
    const TEXTMETRICA metrics = MeasureListFont(Handle());
    geometry_ = QuickFilterGeometry(strings_, metrics.tmHeight, metrics.tmMaxCharWidth);
    const PixelSize size = geometry_.ListSize();
    SetWindowPos(Handle(), nullptr, 0, 0, size.width, size.height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT nuxQFWindowChild::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
            Paint();
            return 0;
        case WM_ERASEBKGND:
            return 0;
        case WM_MOUSEMOVE:
            Track(wParam, lParam);
            return 0;
        case WM_RBUTTONUP:
            owner_.End(RowAtPointer(lParam));
            return 0;
        default:
            return Default(message, wParam, lParam);
    }
}

int nuxQFWindowChild::RowAtPointer(LPARAM position) const noexcept {
    return geometry_.RowAt(Pointer(), ToPixels(WindowRectangle(pager_)),
                           static_cast<std::int16_t>(HIWORD(position)));
}

void nuxQFWindowChild::Track(WPARAM buttons, LPARAM position) {
    const int row = RowAtPointer(position);
    if (row != hotRow_) {
        hotRow_ = row;
        InvalidateRect(Handle(), nullptr, TRUE);
    }
    // The mouse is captured here, and the pager's scroll buttons are to react all the same.
    const PixelPoint pointer = Pointer();
    POINT inPager{pointer.x, pointer.y};
    ScreenToClient(pager_, &inPager);
    SendMessageA(pager_, WM_MOUSEMOVE, buttons, MAKELPARAM(inPager.x, inPager.y));
}

void nuxQFWindowChild::Paint() {
    const Painting painting(Handle());
    const RECT& area = painting.Area();
    FillRect(painting.Context(), &area, GetSysColorBrush(COLOR_WINDOW));
    const Selection font(painting.Context(), ListFont());
    SetBkColor(painting.Context(), GetSysColor(COLOR_WINDOW));
    SetTextColor(painting.Context(), GetSysColor(COLOR_WINDOWTEXT));
    // Rows out of sight take no time, however many there are.
    const int end = static_cast<int>(strings_.size());
    for (int row = area.top / geometry_.RowHeight(); row < end && geometry_.Row(row).top < area.bottom; ++row)
        PaintRow(painting.Context(), row);
}

void nuxQFWindowChild::PaintRow(HDC context, int row) const {
    const std::string text = " " + strings_[row];
    const int length = static_cast<int>(text.size());
    const PixelRectangle place = geometry_.Row(row);
    if (row != hotRow_) {
        TextOutA(context, place.left, place.top, text.c_str(), length);
        return;
    }
    const COLORREF background = SetBkColor(context, GetSysColor(COLOR_HIGHLIGHT));
    const COLORREF foreground = SetTextColor(context, GetSysColor(COLOR_HIGHLIGHTTEXT));
    const RECT bounds{place.left, place.top, place.right, place.bottom};
    ExtTextOutA(context, place.left, place.top, ETO_OPAQUE | ETO_CLIPPED, &bounds, text.c_str(), length,
                nullptr);
    DrawFocusRect(context, &bounds);
    SetBkColor(context, background);
    SetTextColor(context, foreground);
}

LRESULT nuxQFWindow::Pager::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_RBUTTONUP) {
        owner_.End(-1);
        return 0;
    }
    return Default(message, wParam, lParam);
}

nuxQFWindow::nuxQFWindow(std::vector<std::string> strings)
    : child_(*this, std::move(strings)), pager_(*this) {}

int nuxQFWindow::RunQuickFilter(HWND parent) {
    const LiveObject loaded;
    Create(FrameClass(), parent, {100, 100, 200, 250}, frameStyle);
    CreatePager();
    child_.CreateInside(pager_.Handle());
    PlaceUnderPointer();
    SendMessageA(pager_.Handle(), PGM_SETCHILD, 0, reinterpret_cast<LPARAM>(child_.Handle()));
    SetCapture(child_.Handle());
    RunMessageLoop();
    if (HasMouse())
        ReleaseCapture();
    Destroy();
    RethrowFailure();
    return result_;
}

void nuxQFWindow::CreatePager() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_PAGESCROLLER_CLASS};
    InitCommonControlsEx(&classes);
    const HWND pager =
        CreateWindowExA(0, WC_PAGESCROLLERA, "", WS_CHILD | WS_VISIBLE | PGS_VERT | PGS_AUTOSCROLL, 0, 0, 100,
                        150, Handle(), nullptr, ThisModule(), nullptr);
    if (!pager)
        throw HResultError(E_FAIL);
    pager_.Attach(pager);
}

void nuxQFWindow::PlaceUnderPointer() {
    const QuickFilterGeometry& geometry = child_.Geometry();
    const PixelSize pager = geometry.PagerSize();
    SetWindowPos(pager_.Handle(), nullptr, 0, 0, pager.width, pager.height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    RECT frame{0, 0, pager.width, pager.height};
    AdjustWindowRect(&frame, frameStyle, FALSE);

    const PixelPoint place = geometry.PointerPlace();
    POINT onScreen{place.x, place.y};
    ClientToScreen(Handle(), &onScreen);
    const RECT present = WindowRectangle(Handle());
    const PixelPoint topLeft =
        TopLeftUnderPointer(Pointer(), {onScreen.x, onScreen.y}, {present.left, present.top});
    // The dialog stays the active window.
    SetWindowPos(Handle(), HWND_TOP, topLeft.x, topLeft.y, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_SHOWWINDOW | SWP_NOACTIVATE);
}

LRESULT nuxQFWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NOTIFY:
            return OnPagerNotify(*reinterpret_cast<NMHDR*>(lParam));
        case WM_DESTROY:
            End(-1);  // with the parent, if the gesture hasn't ended yet
            return 0;
        default:
            return Default(message, wParam, lParam);
    }
}

LRESULT nuxQFWindow::OnPagerNotify(NMHDR& notification) {
    switch (notification.code) {
        case PGN_CALCSIZE: {
            auto& request = reinterpret_cast<NMPGCALCSIZE&>(notification);
            const PixelSize list = child_.Geometry().ListSize();
            if (request.dwFlag == PGF_CALCWIDTH)
                request.iWidth = list.width;
            else
                request.iHeight = list.height;
            break;
        }
        case PGN_SCROLL: {
            const auto isHeld = [](int key) { return GetKeyState(key) < 0; };
            reinterpret_cast<NMPGSCROLL&>(notification).iScroll =
                child_.Geometry().ScrollStep(isHeld(VK_SHIFT) || isHeld(VK_CONTROL) || isHeld(VK_MENU));
            break;
        }
        case NM_RELEASEDCAPTURE:
            // The pager gives the mouse away when the pointer leaves one of its buttons.
            SetCapture(child_.Handle());
            break;
    }
    return 0;
}

void nuxQFWindow::End(int row) noexcept {
    if (ended_)
        return;
    ended_ = true;
    result_ = row;
    // The message that ended the gesture may have been sent from elsewhere, while the loop waits for a posted
    // one.
    PostThreadMessageA(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void nuxQFWindow::RunMessageLoop() {
    MSG message;
    while (!ended_) {
        const BOOL received = GetMessageA(&message, nullptr, 0, 0);
        if (received <= 0) {
            // The host quits: that is for the outer loops.
            if (received == 0)
                PostQuitMessage(static_cast<int>(message.wParam));
            End(-1);
            break;
        }
        if (OpensMenu(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
        // Whoever has the mouse now will be told of the button instead.
        if (!HasMouse())
            End(-1);
    }
}

bool nuxQFWindow::HasMouse() const noexcept {
    const HWND owner = GetCapture();
    return owner && (owner == child_.Handle() || owner == pager_.Handle());
}

}  // namespace nux
