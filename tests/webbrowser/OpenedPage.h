#pragma once

#include <functional>
#include <string>
#include <vector>

#include "framework/ComPtr.h"
#include "tests/support/Await.h"
#include "tests/support/TempFolder.h"
#include "webbrowser/Page.h"
#include "webbrowser/PageListener.h"

namespace nux::webbrowser {

/// A page with a folder for its files, which records what it is told.
class OpenedPage : public PageListener {
public:
    explicit OpenedPage(PixelSize size = {400, 300});
    ~OpenedPage();

    Page& operator*() const { return *page; }
    Page* operator->() const { return page.get(); }

    bool Await(const std::function<bool()>& isSo) const { return nux::Await(isSo); }
    /// Writes a document, shows it and waits until it is loaded.
    void Show(const std::string& html, const std::string& name = "page.htm");
    /// Shows an address and waits until something is loaded.
    void Load(const std::wstring& address);
    /// The value of an expression of the page, as text.
    std::wstring Text(const std::wstring& expression);
    /// Has the memory of all pages collected, and serves what comes of it. @return bytes that their scripts
    /// have
    std::int64_t CollectGarbage() const;
    bool WasTold(const std::wstring& line) const;

    TempFolder folder;
    std::vector<std::wstring> told;  ///< one line for each call
    int loads = 0;                   ///< of the page itself
    ComPtr<IDispatch> external;
    bool refuses = false;  ///< navigations that the page begins
    bool mayMakeObjects = true;
    std::function<PageDialogAnswer(const PageDialog&)> answer;
    std::function<void()> whenPainted;
    std::shared_ptr<const Picture> picture;
    HCURSOR cursor = nullptr;
    PageReference menuElement;
    PageList list;
    std::shared_ptr<Page> page;

    bool Navigating(const std::wstring& address, bool isTop) override;
    void Navigated(const std::wstring& address, bool isTop) override;
    void Loaded(const std::wstring& address, bool isTop) override;
    void NavigationFailed(const std::wstring& address, bool isTop, HRESULT status) override;
    void ReadyStateChanged(ReadyState state) override;
    void TitleChanged(const std::wstring& title) override { Tell(L"title " + title); }
    void StatusChanged(const std::wstring& status) override { Tell(L"status " + status); }
    void HistoryChanged() override { Tell(L"history"); }
    void NewWindow(const std::wstring& address) override { Tell(L"new window " + address); }
    void CloseRequested() override { Tell(L"close"); }
    PageDialogAnswer Asked(const PageDialog& question) override;
    ComPtr<IDispatch> External() override { return external; }
    bool MayMakeObjects(const std::wstring&) override { return mayMakeObjects; }
    ComPtr<IDispatch> MakeObject(const PageReference&) override { return nullptr; }
    void Painted(const std::shared_ptr<const Picture>& shown) override;
    void CursorChanged(HCURSOR shape) override { cursor = shape; }
    void ToolTipChanged(const std::wstring& text) override { Tell(L"tip " + text); }
    void TabbedOut(bool forward) override { Tell(forward ? L"tab" : L"tab back"); }
    void ContextMenu(POINT at, const PageReference& element) override;
    void ListOpened(const PageList& opened) override { list = opened; }
    void Copied(const std::wstring& text) override { Tell(L"copied " + text); }
    void Lost(PageLoss loss) override;

private:
    void Tell(std::wstring line) { told.push_back(std::move(line)); }
};

}  // namespace nux::webbrowser
