#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "webbrowser/Picture.h"

namespace nux::webbrowser {

/// What a browser control's window shows: the page's picture, a notice in the place of a page that is lost,
/// or nothing.
class PageView {
public:
    ~PageView() { DestroyToolTip(); }

    void SetPicture(std::shared_ptr<const Picture> picture) noexcept { picture_ = std::move(picture); }
    /// @param notice  lines for the user; empty for none
    void SetNotice(std::wstring notice) noexcept { notice_ = std::move(notice); }
    bool HasNotice() const noexcept { return !notice_.empty(); }

    /// Paints all of a rectangle. A picture of another size isn't stretched: it is replaced soon.
    void Paint(HDC context, const RECT& bounds) const noexcept;
    /// The same, with the picture stretched to a rectangle.
    void Draw(HDC context, const RECT& bounds) const noexcept;

    /// @param text  for the pointer's place, empty for none
    void ShowToolTip(HWND window, const std::wstring& text) noexcept;
    void DestroyToolTip() noexcept;

private:
    void PaintNotice(HDC context, const RECT& bounds) const noexcept;

    std::shared_ptr<const Picture> picture_;
    std::wstring notice_;
    HWND toolTip_ = nullptr;
};

}  // namespace nux::webbrowser
