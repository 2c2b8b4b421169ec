#include "webbrowser/BrowserPage.h"

#include <urlmon.h>

#include "framework/ComObject.h"
#include "framework/HResult.h"
#include "webbrowser/Base64.h"
#include "webbrowser/CursorName.h"
#include "webbrowser/PageFile.h"
#include "webbrowser/PageUrl.h"
#include "webbrowser/RandomName.h"
#include "webbrowser/ResourceText.h"
#include "webbrowser/Utf.h"
#include "webbrowser/resource.h"

namespace nux::webbrowser {
namespace {

std::wstring Shown(const std::string& url) {
    const std::u16string shown = ShownAddress(url);
    return {shown.begin(), shown.end()};
}

bool IsBridgeRequest(const Json& event) {
    return TextMember(ObjectMember(event, "request"), "url") == ScriptBridge::endpoint;
}

Json AllowedHeaders(const char* contentType) {
    return Json::array({{{"name", "Content-Type"}, {"value", contentType}},
                        {{"name", "Access-Control-Allow-Origin"}, {"value", "*"}},
                        {{"name", "Cache-Control"}, {"value", "no-store"}}});
}

/// Whether the browser shows such a file by itself. All else it would load down, and tell of no end.
bool IsShownAsDocument(std::string_view contentType) {
    return contentType != "application/octet-stream" && !contentType.starts_with("font/");
}

/// What the page shows in the place of a document that isn't there.
std::string FailurePage(const std::string& url) {
    std::string text;
    for (const char letter : ToUtf8(ShownAddress(url)))
        text += letter == '<' ? "&lt;" : letter == '&' ? "&amp;" : std::string(1, letter);
    return "<!DOCTYPE html><meta charset=utf-8><title>Not found</title><p>This page can't be shown:<p>" +
           text;
}

}  // namespace

std::shared_ptr<Page> Page::Open(PageListener& listener, PixelSize size) {
    const auto page = std::make_shared<BrowserPage>(listener, size);
    page->Begin();
    return page;
}

BrowserPage::BrowserPage(PageListener& listener, PixelSize size)
    : listener_(&listener), key_(RandomName()), painting_(session_, size) {
    session_.owner = this;
    session_.browser = Browser::Running();
    session_.inbox = Inbox::OfThisThread();
    const auto wait = [&](const char* method, const Json& arguments) {
        return session_.browser->Wait({}, method, arguments, session_.inbox);
    };
    context_ = TextMember(wait("Target.createBrowserContext", Json::object()), "browserContextId");
    target_ = TextMember(wait("Target.createTarget",
                              {{"url", "about:blank"}, {"browserContextId", context_}, {"newWindow", true}}),
                         "targetId");
    session_.id =
        TextMember(wait("Target.attachToTarget", {{"targetId", target_}, {"flatten", true}}), "sessionId");
    bridge_ = std::make_shared<ScriptBridge>(session_, static_cast<ScriptBridgeOwner&>(*this));
}

void BrowserPage::Begin() {
    const std::weak_ptr<BrowserPage> weak = std::static_pointer_cast<BrowserPage>(shared_from_this());
    session_.browser->SetWatch(session_.id, {session_.inbox->GetSlot(), this, &BrowserPage::IsUrgent,
                                             [weak](const ChannelMessage& event) {
                                                 if (const std::shared_ptr<BrowserPage> page = weak.lock())
                                                     page->OnEvent(event);
                                             }});
    session_.isOpen = true;
    session_.Send("Page.enable");
    // Without it a page without a script runs ours late.
    session_.Send("Runtime.enable");
    session_.Send("Runtime.addBinding", {{"name", "__nuxReport"}});
    session_.Send("Page.addScriptToEvaluateOnNewDocument",
                  {{"source", std::string(ResourceText(IDR_PAGE_SCRIPT)) + "('" + key_ + "')"},
                   {"runImmediately", true}});
    session_.Send("Fetch.enable", {{"patterns", Json::array({{{"urlPattern", "*"}}})}});
    painting_.Begin();
    // The page's own process takes its commands in this order, but a navigation doesn't wait for it: what it
    // tells of the first document would be lost.
    session_.browser->Wait(session_.id, "Page.setLifecycleEventsEnabled", {{"enabled", true}},
                           session_.inbox);
}

void BrowserPage::Close() noexcept {
    if (!listener_)
        return;
    listener_ = nullptr;
    const bool wasOpen = session_.isOpen;
    session_.isOpen = false;
    session_.browser->EndWatch(session_.id);
    bridge_->Disconnect();
    if (!wasOpen)
        return;
    try {
        session_.browser->Send({}, "Target.disposeBrowserContext", {{"browserContextId", context_}});
    } catch (...) {
        // Without memory the page stays until the browser ends.
    }
}

ScriptBridge& BrowserPage::Bridge() const {
    if (!session_.isOpen || isCrashed_)
        throw HResultError(RPC_E_DISCONNECTED, L"The page isn't there any more");
    return *bridge_;
}

void BrowserPage::SetState(ReadyState state) {
    if (state == state_)
        return;
    state_ = state;
    if (listener_)
        listener_->ReadyStateChanged(state);
}

void BrowserPage::Navigate(std::wstring_view address) {
    const PageUrl url = ReadHostAddress(std::u16string(address.begin(), address.end()));
    if (url.kind == PageUrl::Kind::script) {
        const std::string source = ToUtf8(address.substr(address.find(L':') + 1));
        session_.Send("Runtime.evaluate", {{"expression", source}, {"userGesture", true}});
        return;
    }
    if (url.kind == PageUrl::Kind::file)
        reach_.Open(url.path);
    const std::shared_ptr<Page> self = shared_from_this();
    isCrashed_ = false;
    hostUrl_ = url.url.substr(0, url.url.find('#'));
    const unsigned navigation = ++navigations_;
    isLoading_ = true;
    SetState(ReadyState::loading);
    if (!session_.isOpen)
        return;
    const std::weak_ptr<Page> weak = self;
    if (url.kind == PageUrl::Kind::other) {
        // The network is closed, and the browser's own pages are nobody's business.
        session_.inbox->Post({this, false, [this, weak, navigation] {
                                  const std::shared_ptr<Page> page = weak.lock();
                                  if (page && navigation == navigations_ && !hostUrl_.empty())
                                      FailUnasked(INET_E_RESOURCE_NOT_FOUND);
                              }});
        return;
    }
    session_.Ask("Page.navigate", {{"url", url.url}},
                 [this, weak, navigation, url = url.url](const ChannelMessage& answer) {
                     const std::shared_ptr<Page> page = weak.lock();
                     // What was never requested has ended here; all else is told by the frame.
                     if (!page || !listener_ || navigation != navigations_ || hostUrl_.empty())
                         return;
                     if (answer.failed || !TextMember(answer.content, "errorText").empty())
                         FailUnasked(INET_E_INVALID_URL);
                     else if (TextMember(answer.content, "loaderId").empty())
                         OnShownWithinDocument(url);
                 });
}

/// The host has navigated to another part of the document that is shown.
void BrowserPage::OnShownWithinDocument(const std::string& url) {
    const std::shared_ptr<Page> self = shared_from_this();
    hostUrl_.clear();
    location_ = Shown(url);
    isLoading_ = false;
    listener_->Navigated(location_, true);
    SetState(ReadyState::complete);
    if (listener_)
        listener_->Loaded(location_, true);
}

void BrowserPage::Fail(const std::string& url, bool isTop, HRESULT status) {
    if (isTop)
        isLoading_ = false;
    if (listener_)
        listener_->NavigationFailed(Shown(url), isTop, status);
}

/// What the host navigates to can't even be asked for: the document stays, and nothing is loaded any more.
void BrowserPage::FailUnasked(HRESULT status) {
    const std::string url = std::exchange(hostUrl_, {});
    Fail(url, true, status);
    if (!listener_ || isLoading_)
        return;
    SetState(ReadyState::complete);
    if (listener_ && !isLoading_)
        listener_->Loaded(Shown(url), true);
}

bool BrowserPage::GoBy(int steps) {
    if (!(steps < 0 ? canGoBack_ : canGoForward_) || !session_.isOpen)
        return false;
    const std::weak_ptr<Page> weak = shared_from_this();
    session_.Ask("Page.getNavigationHistory", Json::object(),
                 [this, weak, steps](const ChannelMessage& answer) {
                     const std::shared_ptr<Page> page = weak.lock();
                     const std::int64_t index = NumberMember(answer.content, "currentIndex") + steps;
                     const auto entries = answer.content.find("entries");
                     if (!page || index < firstEntry_ || entries == answer.content.end() ||
                         !entries->is_array() || index >= static_cast<std::int64_t>(entries->size()))
                         return;
                     session_.Send("Page.navigateToHistoryEntry",
                                   {{"entryId", NumberMember((*entries)[index], "id")}});
                 });
    return true;
}

void BrowserPage::AskHistory() {
    const std::weak_ptr<Page> weak = shared_from_this();
    session_.Ask("Page.getNavigationHistory", Json::object(), [this, weak](const ChannelMessage& answer) {
        const std::shared_ptr<Page> page = weak.lock();
        const auto entries = answer.content.find("entries");
        if (!page || entries == answer.content.end() || !entries->is_array())
            return;
        const std::int64_t index = NumberMember(answer.content, "currentIndex");
        const bool back = index > firstEntry_;
        const bool forward = index + 1 < static_cast<std::int64_t>(entries->size());
        const bool isNew = back != canGoBack_ || forward != canGoForward_;
        canGoBack_ = back;
        canGoForward_ = forward;
        if (isNew && listener_)
            listener_->HistoryChanged();
    });
}

void BrowserPage::Reload(bool fromDisk) {
    session_.Send("Page.reload", {{"ignoreCache", fromDisk}});
}

void BrowserPage::Stop() {
    session_.Send("Page.stopLoading");
    if (!session_.isOpen)
        return;
    // A script that doesn't come to an end goes on loading as well.
    session_.Send("Runtime.terminateExecution");
    bridge_->Interrupted();
}

Variant BrowserPage::Call(std::string_view function, std::span<const Variant> arguments) {
    const std::shared_ptr<Page> self = shared_from_this();
    return Bridge().Call(function, arguments);
}

PageReference BrowserPage::CallForObject(std::string_view function, std::span<const Variant> arguments) {
    const std::shared_ptr<Page> self = shared_from_this();
    return Bridge().CallForObject(function, arguments);
}

void BrowserPage::Post(std::string_view function, std::span<const Variant> arguments) {
    Bridge().Post(function, arguments);
}

Variant BrowserPage::Execute(std::wstring_view source) {
    Variant text;
    text.SetText(Bstr(source));
    return Call("source => (0, eval)(source)", {&text, 1});
}

PageReference BrowserPage::Document() {
    return CallForObject("() => document", {});
}

PageReference BrowserPage::Window() {
    return CallForObject("() => window", {});
}

ComPtr<IDispatch> BrowserPage::ObjectOf(const PageReference& reference) {
    return bridge_->ObjectOf(reference);
}

bool BrowserPage::IsUrgent(const ChannelMessage& event) {
    if (event.method == "Fetch.requestPaused")
        return IsBridgeRequest(event.content) || TextMember(event.content, "resourceType") == "XHR";
    return event.method == "Page.javascriptDialogOpening" || event.method == "Inspector.targetCrashed" ||
           event.method == Browser::ended;
}

void BrowserPage::OnEvent(const ChannelMessage& event) {
    if (!listener_)
        return;
    const Json& content = event.content;
    const std::string& method = event.method;
    const bool isTop = TextMember(content, "frameId") == target_;
    if (method == "Fetch.requestPaused") {
        try {
            OnRequest(content);
        } catch (...) {
            // The page waits for each.
            Refuse(content, "Failed");
            throw;
        }
    } else if (method == "Page.screencastFrame") {
        if (const std::shared_ptr<const Picture> picture = painting_.Received(content))
            listener_->Painted(picture);
    } else if (method == "Runtime.bindingCalled") {
        OnTold(TextMember(content, "payload"));
    } else if (method == "Page.frameNavigated") {
        OnFrameNavigated(ObjectMember(content, "frame"));
    } else if (method == "Page.navigatedWithinDocument") {
        if (isTop) {
            location_ = Shown(TextMember(content, "url"));
            AskHistory();
        }
    } else if (method == "Page.frameStartedLoading") {
        if (isTop && state_ != ReadyState::uninitialized) {
            isLoading_ = true;
            SetState(ReadyState::loading);
        }
    } else if (method == "Page.frameStoppedLoading") {
        // Of what the host has left meanwhile it says nothing.
        if (isTop && isLoading_ && hostUrl_.empty())
            OnStopped();
    } else if (method == "Page.lifecycleEvent") {
        OnLifecycle(content, isTop);
    } else if (method == "Page.frameDetached") {
        frames_.erase(TextMember(content, "frameId"));
    } else if (method == "Page.frameRequestedNavigation") {
        // To a path with a drive, which the browser takes for another program's.
        const std::string url = TextMember(content, "url");
        if (url.size() > 2 && url[1] == ':') {
            const PageUrl repaired = ReadHostAddress(FromUtf8(url));
            session_.Send("Page.navigate",
                          {{"url", repaired.url}, {"frameId", TextMember(content, "frameId")}});
        }
    } else if (method == "Page.windowOpen") {
        listener_->NewWindow(Shown(TextMember(content, "url")));
    } else if (method == "Page.javascriptDialogOpening") {
        OnDialog(content);
    } else if (method == "Inspector.targetCrashed") {
        Lose(PageLoss::rendererEnded);
    } else if (method == Browser::ended) {
        Lose(PageLoss::browserEnded);
    }
}

void BrowserPage::OnRequest(const Json& request) {
    const Json& asked = ObjectMember(request, "request");
    const std::string url = TextMember(asked, "url");
    if (url == ScriptBridge::endpoint) {
        const std::string body = TextMember(asked, "postData");
        if (body.starts_with(key_))
            bridge_->Serve(TextMember(request, "requestId"), std::string_view(body).substr(key_.size()));
        else
            Refuse(request, "AccessDenied");
    } else if (url.starts_with("data:") || url.starts_with("blob:") || url.starts_with("about:")) {
        session_.Send("Fetch.continueRequest", {{"requestId", TextMember(request, "requestId")}});
    } else if (TextMember(request, "resourceType") == "Document") {
        OnDocumentRequest(request, url, TextMember(request, "frameId") == target_);
    } else {
        AnswerFile(request, url);
    }
}

void BrowserPage::OnDocumentRequest(const Json& request, const std::string& url, bool isTop) {
    const bool isHosts = isTop && url == hostUrl_;
    if (isHosts)
        hostUrl_.clear();
    const std::shared_ptr<Page> self = shared_from_this();
    if (!isHosts && !listener_->Navigating(Shown(url), isTop)) {
        Refuse(request, "Aborted");
        return;
    }
    if (listener_)
        AnswerFile(request, url);
}

void BrowserPage::Refuse(const Json& request, const char* reason) {
    session_.Send("Fetch.failRequest",
                  {{"requestId", TextMember(request, "requestId")}, {"errorReason", reason}});
}

void BrowserPage::AnswerFile(const Json& request, const std::string& url) {
    const std::string use = TextMember(request, "resourceType");
    PageFile file = ReadPageFile(reach_, url, use);
    if (!file.isFound && use != "Document") {
        Refuse(request, file.isAllowed ? "Failed" : "AccessDenied");
        return;
    }
    const bool isShown = file.isFound && (use != "Document" || IsShownAsDocument(file.contentType));
    if (!isShown) {
        const std::shared_ptr<Page> self = shared_from_this();
        Fail(url, TextMember(request, "frameId") == target_,
             !file.isAllowed ? INET_E_SECURITY_PROBLEM
             : file.isFound  ? INET_E_DOWNLOAD_FAILURE
                             : INET_E_OBJECT_NOT_FOUND);
        file.bytes = FailurePage(url);
        file.contentType = "text/html";
    }
    session_.Send("Fetch.fulfillRequest", {{"requestId", TextMember(request, "requestId")},
                                           {"responseCode", isShown ? 200 : 404},
                                           {"responseHeaders", AllowedHeaders(file.contentType)},
                                           {"body", EncodeBase64(file.bytes)}});
}

void BrowserPage::OnFrameNavigated(const Json& frame) {
    const bool isTop = TextMember(frame, "parentId").empty();
    const std::wstring address = Shown(TextMember(frame, "url") + TextMember(frame, "urlFragment"));
    const std::shared_ptr<Page> self = shared_from_this();
    if (!isTop) {
        frames_[TextMember(frame, "id")] = TextMember(frame, "url");
        listener_->Navigated(address, false);
        return;
    }
    loader_ = TextMember(frame, "loaderId");
    isLoadFired_ = false;
    frames_.clear();
    hostUrl_.clear();
    bridge_->ForgetDocument();
    location_ = address;
    title_.clear();
    isLoading_ = true;
    AskHistory();
    SetState(ReadyState::loaded);
    if (listener_)
        listener_->Navigated(address, true);
}

void BrowserPage::OnLifecycle(const Json& event, bool isTop) {
    const std::string name = TextMember(event, "name");
    // Late news of the document before this one say nothing of it.
    if (isTop && TextMember(event, "loaderId") != loader_)
        return;
    if (name == "load" && isTop)
        isLoadFired_ = true;
    else if (name == "load" && state_ != ReadyState::uninitialized)
        OnFrameLoaded(TextMember(event, "frameId"));
    else if (name == "DOMContentLoaded" && isTop && state_ == ReadyState::loaded)
        SetState(ReadyState::interactive);
}

void BrowserPage::OnFrameLoaded(const std::string& frameId) {
    const auto frame = frames_.find(frameId);
    listener_->Loaded(Shown(frame == frames_.end() ? std::string() : frame->second), false);
}

/// The page's document is complete, or its loading was stopped. Not before: a navigation that began earlier
/// would take the document's place in the history.
void BrowserPage::OnStopped() {
    const std::shared_ptr<Page> self = shared_from_this();
    const bool isComplete = std::exchange(isLoadFired_, false);
    isLoading_ = false;
    // Again: the page tells of a document before the browser has put it into the history.
    AskHistory();
    SetState(ReadyState::complete);
    if (listener_ && isComplete)
        listener_->Loaded(location_, true);
}

void BrowserPage::OnTold(const std::string& text) {
    const std::shared_ptr<Page> self = shared_from_this();
    ScriptValue message;
    try {
        message = DecodeScriptValue(text);
    } catch (const std::invalid_argument&) {
        return;  // pages can't reach the binding; a text that is none comes from nowhere
    }
    const auto* const parts = std::get_if<ScriptArray>(&message.content);
    if (!parts || parts->empty() || bridge_->Told(*parts))
        return;
    const auto wide = [&](std::size_t index) {
        const auto* const part =
            index < parts->size() ? std::get_if<std::u16string>(&(*parts)[index].content) : nullptr;
        return part ? std::wstring(part->begin(), part->end()) : std::wstring();
    };
    const auto number = [&](std::size_t index) {
        const auto* const part =
            index < parts->size() ? std::get_if<double>(&(*parts)[index].content) : nullptr;
        return part && *part > -1e6 && *part < 1e6 ? static_cast<LONG>(*part) : 0L;
    };
    const std::wstring what = wide(0);
    if (what == L"title") {
        title_ = wide(1);
        listener_->TitleChanged(title_);
    } else if (what == L"status") {
        listener_->StatusChanged(wide(1));
    } else if (what == L"cursor") {
        listener_->CursorChanged(LoadCursorA(nullptr, CursorOf(wide(1))));
    } else if (what == L"tip") {
        listener_->ToolTipChanged(wide(1));
    } else if (what == L"close") {
        listener_->CloseRequested();
    } else if (what == L"open") {
        listener_->NewWindow(Shown(ToUtf8(wide(1))));
    } else if (what == L"tab") {
        const bool* const forward = parts->size() > 1 ? std::get_if<bool>(&(*parts)[1].content) : nullptr;
        listener_->TabbedOut(forward && *forward);
    } else if (what == L"copied") {
        listener_->Copied(wide(1));
    } else if (what == L"list" && parts->size() == 8) {
        OnListOpened(*parts);
    } else if (what == L"menu" && parts->size() == 4) {
        const auto* const element = std::get_if<PageObjectId>(&(*parts)[3].content);
        listener_->ContextMenu({number(1), number(2)}, element ? bridge_->Hold(*element) : PageReference());
    }
}

void BrowserPage::OnDialog(const Json& dialog) {
    const std::string type = TextMember(dialog, "type");
    PageDialog question{type == "confirm"        ? PageDialog::Kind::confirm
                        : type == "prompt"       ? PageDialog::Kind::prompt
                        : type == "beforeunload" ? PageDialog::Kind::leave
                                                 : PageDialog::Kind::alert,
                        WideFromUtf8(TextMember(dialog, "message")),
                        WideFromUtf8(TextMember(dialog, "defaultPrompt"))};
    const std::shared_ptr<Page> self = shared_from_this();
    PageDialogAnswer answer;
    try {
        answer = listener_->Asked(question);
    } catch (const std::exception&) {
        // The page waits; nobody has answered.
    }
    session_.Send("Page.handleJavaScriptDialog",
                  {{"accept", answer.accepted}, {"promptText", ToUtf8(answer.text)}});
}

void BrowserPage::Lose(PageLoss loss) {
    const std::shared_ptr<Page> self = shared_from_this();
    isCrashed_ = true;
    isLoading_ = false;
    clipboardWrites_ = 0;
    waitingKeys_.clear();
    if (loss == PageLoss::browserEnded)
        session_.isOpen = false;
    bridge_->Disconnect();
    bridge_ = std::make_shared<ScriptBridge>(session_, static_cast<ScriptBridgeOwner&>(*this));
    // What the page held may have closed it.
    if (listener_)
        listener_->Lost(loss);
}

}  // namespace nux::webbrowser
