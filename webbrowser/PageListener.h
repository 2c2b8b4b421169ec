#pragma once

#include <windows.h>

#include <ole2.h>

#include <memory>
#include <string>
#include <vector>

#include "framework/ComPtr.h"
#include "framework/Variant.h"
#include "webbrowser/ListSelection.h"
#include "webbrowser/PageReference.h"
#include "webbrowser/Picture.h"

namespace nux::webbrowser {

/// What a page says while it is loaded, in the numbers of the platform's READYSTATE.
enum class ReadyState { uninitialized = 0, loading = 1, loaded = 2, interactive = 3, complete = 4 };

/// A question that a page's script asks with a dialog; the script waits for the answer.
struct PageDialog {
    enum class Kind { alert, confirm, prompt, leave };
    Kind kind;
    std::wstring message;
    std::wstring text;  ///< what a prompt proposes
};

struct PageDialogAnswer {
    bool accepted = false;
    std::wstring text;  ///< what was typed for a prompt
};

/// The list of an element `select` that the user wants to see. The page shows none.
struct PageList {
    PageReference element;  ///< to be given to Page::ChooseInList
    RECT place{};           ///< of the element, in client pixels
    int selected = -1;      ///< index of the entry
    std::vector<ListEntry> entries;
};

/// Why a page is no longer there.
enum class PageLoss {
    rendererEnded,  ///< the page's own process; the next navigation makes a new one
    browserEnded,   ///< the browser; Page::Open starts a new one
};

/// Whoever owns a page is told what it does, on the thread that opened it. Each function may close the page
/// and let go of it. None runs within a short call of Page (50 ms), unless a script of the page waits for its
/// answer: External, MakeObject, Asked. An exception ends in the debugger's output.
class PageListener {
public:
    /// A frame is to show another document, by a script or a link; navigations that Page::Navigate begins
    /// aren't asked.
    /// @param address  in the form of Page::Location
    /// @param isTop    whether it is the page itself and not a frame in it
    /// @return false to keep what is shown
    virtual bool Navigating(const std::wstring& address, bool isTop) = 0;
    /// The new document is there, without its content: page objects of the old one are gone.
    virtual void Navigated(const std::wstring& address, bool isTop) = 0;
    /// A document is complete: frames first, the page last.
    virtual void Loaded(const std::wstring& address, bool isTop) = 0;
    /// There is no document; the page shows a text that says so.
    /// @param status  one of the platform's INET_E_ codes
    virtual void NavigationFailed(const std::wstring& address, bool isTop, HRESULT status) = 0;
    virtual void ReadyStateChanged(ReadyState state) = 0;
    virtual void TitleChanged(const std::wstring& title) = 0;
    /// The text for a status bar, empty for none.
    virtual void StatusChanged(const std::wstring& status) = 0;
    /// Back or forward have become possible or impossible (Page::CanGoBack, Page::CanGoForward).
    virtual void HistoryChanged() = 0;

    /// A script or a link wants a window of its own. None is opened; a listener that wants one opens a page.
    virtual void NewWindow(const std::wstring& address) = 0;
    /// A script has called window.close().
    virtual void CloseRequested() = 0;
    /// A script asks by a dialog and waits.
    virtual PageDialogAnswer Asked(const PageDialog& question) = 0;

    /// What the page's scripts find as window.external; null for none. Asked at each use.
    virtual ComPtr<IDispatch> External() = 0;
    /// Whether the page may make objects of registered classes with ActiveXObject.
    virtual bool MayMakeObjects(const std::wstring& address) = 0;
    /// The COM object that stands for an object of the page, when C++ sees it for the first time or again
    /// after it has let go of it. Null for the ordinary one (PageObject). It offers IPageObject, by which it
    /// comes back as the page's own object.
    virtual ComPtr<IDispatch> MakeObject(const PageReference& reference) = 0;

    /// The page looks otherwise.
    /// @param picture  all of it, in the size of the last Page::Resize or, for a moment after one, of an
    ///                 earlier one
    virtual void Painted(const std::shared_ptr<const Picture>& picture) = 0;
    /// The pointer's shape over the page has changed. @param cursor  shared, of the system
    virtual void CursorChanged(HCURSOR cursor) = 0;
    /// The tool tip of what lies under the pointer, empty for none.
    virtual void ToolTipChanged(const std::wstring& text) = 0;
    /// Tab went past the last element (or, with Shift, the first one). The page has no focus any more.
    virtual void TabbedOut(bool forward) = 0;
    /// The user asks for a context menu, at client pixels. The page itself shows none.
    virtual void ContextMenu(POINT at, const PageReference& element) = 0;

    /// The user opens the list of an element `select`.
    virtual void ListOpened(const PageList&) {}
    /// The user or a script has copied text in the page (Ctrl+C, Ctrl+X, copy): for the clipboard, of which
    /// the page has one of its own.
    virtual void Copied(const std::wstring&) {}

    /// The page is lost: each call of Page fails, each waiting one has failed.
    virtual void Lost(PageLoss loss) = 0;

protected:
    ~PageListener() = default;
};

}  // namespace nux::webbrowser
