#pragma once

#include <windows.h>

#include <oaidl.h>

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "framework/ComPtr.h"
#include "framework/Variant.h"

namespace nux::webbrowser {

/// What a browser control tells its container: events of DWebBrowserEvents2, and of DWebBrowserEvents where
/// it has the same. A sink may do anything meanwhile, also let go of the control: its caller holds it.
class BrowserEvents {
public:
    /// The next document that a browser, the control or a frame in it, is to show.
    struct Navigation {
        IDispatch* browser;
        const std::wstring& address;
        LONG flags = 0;
        std::wstring frameName = {};
        Variant postData = {};
        std::wstring headers = {};
    };

    /// @return whether a sink has cancelled it
    bool BeforeNavigate(const Navigation& navigation);
    void NavigateComplete(IDispatch* browser, const std::wstring& address);
    void DocumentComplete(IDispatch* browser, const std::wstring& address);
    /// @return whether a sink wants no page that tells of the error
    bool NavigateError(IDispatch* browser, const std::wstring& address, HRESULT status);
    /// @param context  address of the page that asks
    /// @param browser  receives the browser that is to show it, null if no sink has given one
    /// @return whether a sink has cancelled it
    bool NewWindow(const std::wstring& address, const std::wstring& context, ComPtr<IDispatch>& browser);
    /// @return whether a sink wants the window to stay
    bool WindowClosing();

    void DownloadBegin();
    void DownloadComplete();
    /// @param done  of `all`; -1 at the end
    void ProgressChange(LONG done, LONG all);
    void CommandStateChange(LONG command, bool isEnabled);
    void TitleChange(const std::wstring& title);
    void StatusTextChange(const std::wstring& text);
    void PropertyChange(const std::wstring& name);
    void Quit();
    /// OnVisible, OnToolBar and the like. @param id  of DWebBrowserEvents2
    void FlagChange(DISPID id, bool isSet);

    /// While they are frozen nothing is told. What only tells waits for the end of it; what asks for a
    /// decision counts as not objected to.
    void FreezeSinks(bool freeze);

protected:
    BrowserEvents() = default;
    virtual ~BrowserEvents() = default;
    virtual std::vector<ComPtr<IUnknown>> EventSinks(REFIID iid) const = 0;

private:
    /// @param arguments  in the order of the description; `last` first is the platform's affair
    void Ask(REFIID iid, DISPID id, std::span<const VARIANT> arguments);
    void Tell(REFIID iid, DISPID id, std::vector<Variant> arguments);
    void TellBoth(DISPID id, const std::function<std::vector<Variant>()>& arguments);

    int frozen_ = 0;
    std::vector<std::function<void()>> waiting_;
};

}  // namespace nux::webbrowser
