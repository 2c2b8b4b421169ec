#pragma once

#include <string>
#include <vector>

#include "framework/HResult.h"
#include "webbrowser/Page.h"
#include "webbrowser/PageListener.h"

namespace nux::webbrowser {

/// A page without a browser, which writes down what it is told, and whose listener the test tells what it
/// likes.
class FakePage : public Page {
public:
    /// For WebBrowser's constructor.
    static std::shared_ptr<Page> Open(PageListener& listener, PixelSize size) {
        if (FAILED(failure))
            throw HResultError(failure, L"there is no browser");
        const auto page = std::make_shared<FakePage>(listener, size);
        last = page;
        ++opened;
        return page;
    }
    static inline std::weak_ptr<FakePage> last;
    static inline HRESULT failure = S_OK;  ///< of Open
    static inline int opened = 0;

    FakePage(PageListener& told, PixelSize first) : listener(&told), size(first) {}

    PageListener* listener;  ///< null once it is closed
    std::vector<std::wstring> calls;
    PixelSize size;
    std::wstring location = L"about:blank";
    std::wstring title;
    ReadyState state = ReadyState::uninitialized;
    bool isBusy = false;
    bool isLost = false;
    bool canGoBack = false;
    bool canGoForward = false;
    bool isVisible = false;
    bool hasFocus = false;
    HRESULT tabFailure = S_OK;  ///< of TabInto
    std::vector<UINT> input;
    POINT lastPoint{};

    /// What a page tells when a document is shown, from beginning to end.
    void Finish(const std::wstring& address) {
        location = address;
        Become(ReadyState::loaded);
        listener->Navigated(address, true);
        Become(ReadyState::interactive);
        isBusy = false;
        Become(ReadyState::complete);
        if (listener)
            listener->Loaded(address, true);
    }
    void Become(ReadyState next) {
        state = next;
        if (listener)
            listener->ReadyStateChanged(next);
    }

    void Close() noexcept override { listener = nullptr; }
    bool IsOpen() const noexcept override { return listener && !isLost; }
    void Navigate(std::wstring_view address) override {
        calls.push_back(L"navigate " + std::wstring(address));
        isBusy = true;
        state = ReadyState::loading;
    }
    bool GoBack() override { return Noted(L"back") && canGoBack; }
    bool GoForward() override { return Noted(L"forward") && canGoForward; }
    void Reload(bool fromDisk) override { Noted(fromDisk ? L"reload all" : L"reload"); }
    void Stop() override { Noted(L"stop"); }
    std::wstring Location() const override { return location; }
    std::wstring Title() const override { return title; }
    ReadyState State() const noexcept override { return state; }
    bool IsBusy() const noexcept override { return isBusy; }
    bool CanGoBack() const noexcept override { return canGoBack; }
    bool CanGoForward() const noexcept override { return canGoForward; }
    Variant Call(std::string_view, std::span<const Variant>) override { return Answer<Variant>(); }
    PageReference CallForObject(std::string_view, std::span<const Variant>) override {
        return Answer<PageReference>();
    }
    void Post(std::string_view function, std::span<const Variant>) override {
        ThrowIfNotOpen();
        calls.push_back(L"post " + std::wstring(function.begin(), function.end()));
    }
    Variant Execute(std::wstring_view) override { return Answer<Variant>(); }
    PageReference Document() override { return Answer<PageReference>(); }
    PageReference Window() override { return Answer<PageReference>(); }
    ComPtr<IDispatch> ObjectOf(const PageReference&) override { return nullptr; }
    void Resize(PixelSize now) override { size = now; }
    void SetVisible(bool visible) override { isVisible = visible; }
    std::shared_ptr<const Picture> LastPicture() const noexcept override { return nullptr; }
    void Mouse(UINT message, WPARAM, POINT at) override {
        input.push_back(message);
        lastPoint = at;
    }
    void Key(UINT message, WPARAM, LPARAM) override { input.push_back(message); }
    void InsertText(std::wstring_view text) override { calls.push_back(L"insert " + std::wstring(text)); }
    void SetClipboardText(std::wstring_view text) override {
        calls.push_back(L"clipboard " + std::wstring(text));
    }
    void ChooseInList(const PageReference&, int entry) override {
        calls.push_back(L"choose " + std::to_wstring(entry));
    }
    void SetFocus(bool focused) override { hasFocus = focused; }
    void TabInto(bool forward) override {
        ThrowIfFailed(tabFailure);
        Noted(forward ? L"tab into" : L"tab into backwards");
    }

private:
    void ThrowIfNotOpen() const {
        if (!IsOpen())
            throw HResultError(RPC_E_DISCONNECTED, L"the page is not there");
    }
    template <class T>
    T Answer() const {
        ThrowIfNotOpen();
        return {};
    }
    bool Noted(const wchar_t* call) {
        calls.push_back(call);
        return true;
    }
};

}  // namespace nux::webbrowser
