#include "webbrowser/PageView.h"

#include <commctrl.h>

#include <utility>

#include "framework/Drawing.h"
#include "framework/Module.h"

namespace nux::webbrowser {
namespace {

BITMAPINFO DescriptionOf(const Picture& picture) noexcept {
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = picture.size.width;
    description.bmiHeader.biHeight = -picture.size.height;  // rows from the top
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 32;
    description.bmiHeader.biCompression = BI_RGB;
    return description;
}

void Fill(HDC context, const RECT& bounds) noexcept {
    FillRect(context, &bounds, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
}

}  // namespace

void PageView::Paint(HDC context, const RECT& bounds) const noexcept {
    if (!notice_.empty() || !picture_) {
        PaintNotice(context, bounds);
        return;
    }
    const auto [width, height] = picture_->size;
    const BITMAPINFO description = DescriptionOf(*picture_);
    SetDIBitsToDevice(context, bounds.left, bounds.top, static_cast<DWORD>(width), static_cast<DWORD>(height),
                      0, 0, 0, static_cast<UINT>(height), picture_->pixels.data(), &description,
                      DIB_RGB_COLORS);
    Fill(context, {bounds.left + width, bounds.top, bounds.right, bounds.bottom});
    Fill(context, {bounds.left, bounds.top + height, bounds.left + width, bounds.bottom});
}

void PageView::Draw(HDC context, const RECT& bounds) const noexcept {
    if (!notice_.empty() || !picture_) {
        PaintNotice(context, bounds);
        return;
    }
    const BITMAPINFO description = DescriptionOf(*picture_);
    SetStretchBltMode(context, COLORONCOLOR);
    StretchDIBits(context, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, 0,
                  0, picture_->size.width, picture_->size.height, picture_->pixels.data(), &description,
                  DIB_RGB_COLORS, SRCCOPY);
}

void PageView::PaintNotice(HDC context, const RECT& bounds) const noexcept {
    Fill(context, bounds);
    if (notice_.empty())
        return;
    const Selection font(context, GetStockObject(DEFAULT_GUI_FONT));
    RECT text = bounds;
    InflateRect(&text, -12, -12);
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, RGB(0, 0, 0));
    DrawTextW(context, notice_.c_str(), -1, &text, DT_LEFT | DT_WORDBREAK | DT_NOPREFIX);
}

void PageView::ShowToolTip(HWND window, const std::wstring& text) noexcept {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;  // known to the common controls of every version
    tool.uFlags = TTF_SUBCLASS | TTF_IDISHWND;
    tool.hwnd = window;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = const_cast<LPWSTR>(text.c_str());
    if (!toolTip_ && !text.empty()) {
        toolTip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                   WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                                   CW_USEDEFAULT, CW_USEDEFAULT, window, nullptr, ThisModule(), nullptr);
        SendMessageW(toolTip_, TTM_SETMAXTIPWIDTH, 0, 400);  // so that lines are kept
        SendMessageW(toolTip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
    if (!toolTip_)
        return;
    if (text.empty())
        SendMessageW(toolTip_, TTM_POP, 0, 0);
    SendMessageW(toolTip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(toolTip_, TTM_ACTIVATE, !text.empty(), 0);
}

void PageView::DestroyToolTip() noexcept {
    if (toolTip_)
        DestroyWindow(std::exchange(toolTip_, nullptr));
}

}  // namespace nux::webbrowser
