#include "webbrowser/BrowserEvents.h"

#include <exdisp.h>
#include <exdispid.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "framework/HResult.h"
#include "framework/InterfaceId.h"
#include "framework/Text.h"

namespace nux::webbrowser {
namespace {

Variant Text(const std::wstring& text) {
    Variant value;
    value.SetText(Bstr(text));
    return value;
}

Variant Number(LONG number) {
    Variant value;
    value.SetNumber(number);
    return value;
}

Variant Flag(bool flag) {
    VARIANT value{};
    value.vt = VT_BOOL;
    value.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    Variant copy;
    copy.SetCopy(value);
    return copy;
}

Variant Object(IDispatch* object) {
    Variant value;
    value.SetObject(ComPtr<IDispatch>(object));
    return value;
}

VARIANT ByReference(Variant& value) {
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    // The platform's declaration is not const, a sink's is to leave it alone.
    reference.pvarVal = const_cast<VARIANT*>(&value.Get());
    return reference;
}

VARIANT ByReference(VARIANT_BOOL& flag) {
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_BOOL;
    reference.pboolVal = &flag;
    return reference;
}

std::vector<Variant> Arguments(Variant first) {
    std::vector<Variant> list;
    list.push_back(std::move(first));
    return list;
}

std::vector<Variant> Arguments(Variant first, Variant second) {
    std::vector<Variant> list = Arguments(std::move(first));
    list.push_back(std::move(second));
    return list;
}

}  // namespace

void BrowserEvents::Ask(REFIID iid, DISPID id, std::span<const VARIANT> arguments) {
    std::vector<VARIANT> lastFirst(arguments.rbegin(), arguments.rend());
    for (const ComPtr<IUnknown>& sink : EventSinks(iid)) {
        DISPPARAMS parameters{lastFirst.data(), nullptr, static_cast<UINT>(lastFirst.size()), 0};
        // A connection is the interface that it was made for, and both are dispatch interfaces.
        static_cast<IDispatch*>(sink.Get())
            ->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr);
    }
}

void BrowserEvents::Tell(REFIID iid, DISPID id, std::vector<Variant> arguments) {
    if (frozen_ > 0) {
        const auto kept = std::make_shared<std::vector<Variant>>(std::move(arguments));
        waiting_.emplace_back([this, &iid, id, kept] { Tell(iid, id, std::move(*kept)); });
        return;
    }
    std::vector<VARIANT> plain(arguments.size());
    std::transform(arguments.begin(), arguments.end(), plain.begin(),
                   [](const Variant& argument) { return argument.Get(); });
    Ask(iid, id, plain);
}

void BrowserEvents::TellBoth(DISPID id, const std::function<std::vector<Variant>()>& arguments) {
    Tell(IdOf<DWebBrowserEvents2>(), id, arguments());
    Tell(IdOf<DWebBrowserEvents>(), id, arguments());
}

void BrowserEvents::FreezeSinks(bool freeze) {
    frozen_ = std::max(0, frozen_ + (freeze ? 1 : -1));
    if (frozen_ > 0)
        return;
    for (const std::function<void()>& event : std::exchange(waiting_, {}))
        event();
}

bool BrowserEvents::BeforeNavigate(const Navigation& navigation) {
    if (frozen_ > 0)
        return false;
    VARIANT_BOOL cancel = VARIANT_FALSE;
    Variant browser = Object(navigation.browser);
    Variant address = Text(navigation.address);
    Variant flags = Number(navigation.flags);
    Variant frame = Text(navigation.frameName);
    Variant post;
    post.SetCopy(navigation.postData.Get());
    Variant headers = Text(navigation.headers);
    const VARIANT arguments[] = {browser.Get(),      ByReference(address), ByReference(flags),
                                 ByReference(frame), ByReference(post),    ByReference(headers),
                                 ByReference(cancel)};
    Ask(IdOf<DWebBrowserEvents2>(), DISPID_BEFORENAVIGATE2, arguments);
    const VARIANT older[] = {address.Get(),     flags.Get(),   frame.Get(),
                             ByReference(post), headers.Get(), ByReference(cancel)};
    if (cancel == VARIANT_FALSE)
        Ask(IdOf<DWebBrowserEvents>(), DISPID_BEFORENAVIGATE, older);
    return cancel != VARIANT_FALSE;
}

void BrowserEvents::NavigateComplete(IDispatch* browser, const std::wstring& address) {
    Tell(IdOf<DWebBrowserEvents2>(), DISPID_NAVIGATECOMPLETE2, Arguments(Object(browser), Text(address)));
    Tell(IdOf<DWebBrowserEvents>(), DISPID_NAVIGATECOMPLETE, Arguments(Text(address)));
}

void BrowserEvents::DocumentComplete(IDispatch* browser, const std::wstring& address) {
    Tell(IdOf<DWebBrowserEvents2>(), DISPID_DOCUMENTCOMPLETE, Arguments(Object(browser), Text(address)));
}

bool BrowserEvents::NavigateError(IDispatch* browser, const std::wstring& address, HRESULT status) {
    if (frozen_ > 0)
        return false;
    VARIANT_BOOL cancel = VARIANT_FALSE;
    Variant source = Object(browser);
    Variant url = Text(address);
    Variant frame = Text({});
    Variant code = Number(status);
    const VARIANT arguments[] = {source.Get(), ByReference(url), ByReference(frame), ByReference(code),
                                 ByReference(cancel)};
    Ask(IdOf<DWebBrowserEvents2>(), DISPID_NAVIGATEERROR, arguments);
    return cancel != VARIANT_FALSE;
}

bool BrowserEvents::NewWindow(const std::wstring& address, const std::wstring& context,
                              ComPtr<IDispatch>& browser) {
    if (frozen_ > 0)
        return false;
    VARIANT_BOOL cancel = VARIANT_FALSE;
    IDispatch* given = nullptr;
    VARIANT object{};
    object.vt = VT_BYREF | VT_DISPATCH;
    object.ppdispVal = &given;
    const Variant flags = Number(0);
    const Variant from = Text(context);
    const Variant to = Text(address);
    const VARIANT arguments[] = {object, ByReference(cancel), flags.Get(), from.Get(), to.Get()};
    Ask(IdOf<DWebBrowserEvents2>(), DISPID_NEWWINDOW3, arguments);
    if (cancel == VARIANT_FALSE && !given)
        Ask(IdOf<DWebBrowserEvents2>(), DISPID_NEWWINDOW2, std::span(arguments).first(2));
    browser.Attach(given);
    return cancel != VARIANT_FALSE;
}

bool BrowserEvents::WindowClosing() {
    if (frozen_ > 0)
        return false;
    VARIANT_BOOL cancel = VARIANT_FALSE;
    const Variant isChild = Flag(false);
    const VARIANT arguments[] = {isChild.Get(), ByReference(cancel)};
    Ask(IdOf<DWebBrowserEvents2>(), DISPID_WINDOWCLOSING, arguments);
    return cancel != VARIANT_FALSE;
}

void BrowserEvents::DownloadBegin() {
    TellBoth(DISPID_DOWNLOADBEGIN, [] { return std::vector<Variant>(); });
}

void BrowserEvents::DownloadComplete() {
    TellBoth(DISPID_DOWNLOADCOMPLETE, [] { return std::vector<Variant>(); });
}

void BrowserEvents::ProgressChange(LONG done, LONG all) {
    TellBoth(DISPID_PROGRESSCHANGE, [&] { return Arguments(Number(done), Number(all)); });
}

void BrowserEvents::CommandStateChange(LONG command, bool isEnabled) {
    TellBoth(DISPID_COMMANDSTATECHANGE, [&] { return Arguments(Number(command), Flag(isEnabled)); });
}

void BrowserEvents::TitleChange(const std::wstring& title) {
    TellBoth(DISPID_TITLECHANGE, [&] { return Arguments(Text(title)); });
}

void BrowserEvents::StatusTextChange(const std::wstring& text) {
    TellBoth(DISPID_STATUSTEXTCHANGE, [&] { return Arguments(Text(text)); });
}

void BrowserEvents::PropertyChange(const std::wstring& name) {
    TellBoth(DISPID_PROPERTYCHANGE, [&] { return Arguments(Text(name)); });
}

void BrowserEvents::Quit() {
    Tell(IdOf<DWebBrowserEvents2>(), DISPID_ONQUIT, {});
    VARIANT_BOOL cancel = VARIANT_FALSE;
    const VARIANT arguments[] = {ByReference(cancel)};
    Ask(IdOf<DWebBrowserEvents>(), DISPID_QUIT, arguments);
}

void BrowserEvents::FlagChange(DISPID id, bool isSet) {
    Tell(IdOf<DWebBrowserEvents2>(), id, Arguments(Flag(isSet)));
}

}  // namespace nux::webbrowser
