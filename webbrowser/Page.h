#pragma once

#include <windows.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "framework/PixelGeometry.h"
#include "framework/Variant.h"
#include "webbrowser/PageListener.h"
#include "webbrowser/PageReference.h"

namespace nux::webbrowser {

/// A page of the process's browser: what one control shows. It belongs to the thread that opened it, which
/// serves messages. Held by shared pointers, as what it calls may let go of it.
///
/// While a call of C++ waits for the page, what the page asks of C++ is answered (window.external, files,
/// dialogs); the thread's other messages are served when the wait lasts for more than 50 ms.
class Page : public std::enable_shared_from_this<Page> {
public:
    /// Opens a page that shows about:blank, and starts the browser if there is none yet.
    /// @param listener  lives longer than the page, or calls Close
    /// @param size      of the view in pixels
    /// Throws HResultError, with words for the user, if no browser can be started.
    static std::shared_ptr<Page> Open(PageListener& listener, PixelSize size);

    virtual ~Page() = default;
    /// Ends the page, also while it waits for C++ and C++ for it. The listener is told nothing more, waiting
    /// calls fail with RPC_E_DISCONNECTED, and so does each later one.
    virtual void Close() noexcept = 0;
    /// False after Close, and when the page is lost.
    virtual bool IsOpen() const noexcept = 0;

    // What it shows. None of these waits.

    /// Shows another document.
    /// @param address  "file://C:\dir\x.htm", "C:\dir\x.htm", "file:///C:/dir/x.htm", with mixed slashes,
    /// blanks
    ///                 and characters of any language; "about:blank", "javascript:..."
    /// The documents of its folder and of those below may be read by the page from now on.
    virtual void Navigate(std::wstring_view address) = 0;
    /// @return whether there is something to go to
    virtual bool GoBack() = 0;
    virtual bool GoForward() = 0;
    virtual void Reload(bool fromDisk) = 0;
    virtual void Stop() = 0;

    /// The document's address, as "file:///C:/dir/x.htm" or "about:blank".
    virtual std::wstring Location() const = 0;
    virtual std::wstring Title() const = 0;
    virtual ReadyState State() const noexcept = 0;
    virtual bool IsBusy() const noexcept = 0;
    virtual bool CanGoBack() const noexcept = 0;
    virtual bool CanGoForward() const noexcept = 0;

    // Scripts. They throw HResultError as PageReference tells.

    /// Calls a function that is written here.
    /// @param function   in the page's language: "(element, name) => element.getAttribute(name)". Its text is
    ///                   kept by the page, so that the second call of the same text is cheaper.
    /// @param arguments  objects of the page come as they are, others as objects with their members
    /// @return numbers as VT_I4 or VT_R8, texts, VT_BOOL, VT_DATE, VT_EMPTY for undefined, VT_NULL,
    /// VT_DISPATCH
    virtual Variant Call(std::string_view function, std::span<const Variant> arguments = {}) = 0;
    /// The same, with the answer as a reference: null unless it is an object of the page.
    virtual PageReference CallForObject(std::string_view function,
                                        std::span<const Variant> arguments = {}) = 0;
    /// The same without waiting for it or its failure.
    virtual void Post(std::string_view function, std::span<const Variant> arguments = {}) = 0;
    /// Runs source text in the page, as an element `script` does, and gives its last value.
    virtual Variant Execute(std::wstring_view source) = 0;
    /// The object `document` of the document that is shown.
    virtual PageReference Document() = 0;
    /// The object `window`, which holds the page's functions and global variables.
    virtual PageReference Window() = 0;
    /// The COM object of a page's object: the same one for as long as somebody holds it.
    virtual ComPtr<IDispatch> ObjectOf(const PageReference& reference) = 0;

    // The view.

    virtual void Resize(PixelSize size) = 0;
    /// A page that can't be seen isn't painted.
    virtual void SetVisible(bool visible) = 0;
    /// What was painted last; null before the first.
    virtual std::shared_ptr<const Picture> LastPicture() const noexcept = 0;

    // Input. None of these waits.

    /// A message of the mouse (WM_MOUSEMOVE, WM_MOUSELEAVE, buttons with their double clicks, WM_MOUSEWHEEL,
    /// WM_MOUSEHWHEEL) with its arguments.
    /// @param at  client pixels, also for the wheel
    virtual void Mouse(UINT message, WPARAM wParam, POINT at) = 0;
    /// A message of the keyboard (WM_KEYDOWN, WM_SYSKEYDOWN, WM_CHAR, WM_SYSCHAR, WM_KEYUP, WM_SYSKEYUP).
    /// WM_CHAR follows its WM_KEYDOWN, as TranslateMessage does it.
    virtual void Key(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    /// Writes text where the focus is, in the place of what is selected: what pasting the clipboard does.
    virtual void InsertText(std::wstring_view text) = 0;
    /// What the page's own paste takes from now on: each browser has a clipboard of its own.
    virtual void SetClipboardText(std::wstring_view text) = 0;
    /// Selects an entry of an element `select`, as the user does.
    virtual void ChooseInList(const PageReference& element, int entry) = 0;
    virtual void SetFocus(bool focused) = 0;
    /// Gives the focus to the first or last element that takes it, as Tab into the page does.
    virtual void TabInto(bool forward) = 0;

protected:
    Page() = default;
};

}  // namespace nux::webbrowser
