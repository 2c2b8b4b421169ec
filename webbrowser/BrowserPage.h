#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/Module.h"
#include "webbrowser/Page.h"
#include "webbrowser/PagePainting.h"
#include "webbrowser/Reach.h"
#include "webbrowser/ScriptBridge.h"
#include "webbrowser/Session.h"

namespace nux::webbrowser {

/// A page as a target of the browser, in a browser context of its own: it shares nothing with other pages.
class BrowserPage final : public Page, private ScriptBridgeOwner {
public:
    BrowserPage(PageListener& listener, PixelSize size);
    ~BrowserPage() override { Close(); }

    /// What the constructor can't do: events may hold the page from now on.
    void Begin();

    void Close() noexcept override;
    bool IsOpen() const noexcept override { return session_.isOpen; }

    void Navigate(std::wstring_view address) override;
    bool GoBack() override { return GoBy(-1); }
    bool GoForward() override { return GoBy(1); }
    void Reload(bool fromDisk) override;
    void Stop() override;
    std::wstring Location() const override { return location_; }
    std::wstring Title() const override { return title_; }
    ReadyState State() const noexcept override { return state_; }
    bool IsBusy() const noexcept override { return isLoading_; }
    bool CanGoBack() const noexcept override { return canGoBack_; }
    bool CanGoForward() const noexcept override { return canGoForward_; }

    Variant Call(std::string_view function, std::span<const Variant> arguments) override;
    PageReference CallForObject(std::string_view function, std::span<const Variant> arguments) override;
    void Post(std::string_view function, std::span<const Variant> arguments) override;
    Variant Execute(std::wstring_view source) override;
    PageReference Document() override;
    PageReference Window() override;
    ComPtr<IDispatch> ObjectOf(const PageReference& reference) override;

    void Resize(PixelSize size) override { painting_.Resize(size); }
    void SetVisible(bool visible) override { painting_.SetVisible(visible); }
    std::shared_ptr<const Picture> LastPicture() const noexcept override { return painting_.Last(); }

    void Mouse(UINT message, WPARAM wParam, POINT at) override;
    void Key(UINT message, WPARAM wParam, LPARAM lParam) override;
    void InsertText(std::wstring_view text) override;
    void SetClipboardText(std::wstring_view text) override;
    void ChooseInList(const PageReference& element, int entry) override;
    void SetFocus(bool focused) override;
    void TabInto(bool forward) override;

private:
    // ScriptBridgeOwner
    ComPtr<IDispatch> External() override { return listener_ ? listener_->External() : nullptr; }
    ComPtr<IDispatch> MakeObject(const PageReference& reference) override {
        return listener_ ? listener_->MakeObject(reference) : nullptr;
    }
    bool MayMakeObjects() override { return listener_ && listener_->MayMakeObjects(location_); }
    std::shared_ptr<Page> OwningPage() override { return shared_from_this(); }

    static bool IsUrgent(const ChannelMessage& event);
    void OnEvent(const ChannelMessage& event);
    void OnRequest(const Json& request);
    void OnDocumentRequest(const Json& request, const std::string& url, bool isTop);
    void AnswerFile(const Json& request, const std::string& url);
    void Refuse(const Json& request, const char* reason);
    void OnTold(const std::string& text);
    void OnListOpened(const ScriptArray& list);
    void OnFrameNavigated(const Json& frame);
    void OnLifecycle(const Json& event, bool isTop);
    void OnFrameLoaded(const std::string& frameId);
    void OnStopped();
    void OnShownWithinDocument(const std::string& url);
    void OnDialog(const Json& dialog);
    void Lose(PageLoss loss);
    void SetState(ReadyState state);
    void AskHistory();
    void Fail(const std::string& url, bool isTop, HRESULT status);
    void FailUnasked(HRESULT status);
    ScriptBridge& Bridge() const;
    bool GoBy(int steps);
    void SendKey(Json key);

    PageListener* listener_;
    const std::string key_;  ///< by which a request shows that this page's part of the bridge has sent it
    LiveObject alive_;
    Session session_;
    std::string context_;
    std::string target_;  ///< also the name of the page's frame
    std::shared_ptr<ScriptBridge> bridge_;
    PagePainting painting_;
    Reach reach_;
    std::string loader_;                         ///< of the page's document
    std::map<std::string, std::string> frames_;  ///< the addresses of the frames in it
    std::string hostUrl_;       ///< that the host navigates to, without its part, until it is requested
    unsigned navigations_ = 0;  ///< of the host
    int firstEntry_ = 1;        ///< of the history: before it lies the empty page
    std::wstring location_ = L"about:blank";
    std::wstring title_;
    ReadyState state_ = ReadyState::uninitialized;
    bool isLoading_ = false;
    bool isLoadFired_ = false;  ///< the document's, which may go on loading
    bool isCrashed_ = false;
    bool canGoBack_ = false;
    bool canGoForward_ = false;
    int clicks_ = 1;                 ///< of the button that is down
    wchar_t firstHalf_ = 0;          ///< of a character that comes in two messages
    int clipboardWrites_ = 0;        ///< that are under way
    std::vector<Json> waitingKeys_;  ///< for the end of them
};

}  // namespace nux::webbrowser
