#include <servprov.h>

#include "webbrowser/HtmlEventCaller.h"
#include "webbrowser/HtmlObject.h"
#include "webbrowser/HtmlObjects.h"

namespace nux::webbrowser {
namespace {

/// A window of a page: the page's own, or a frame's. IHTMLWindow3 is the first because it takes functions
/// where IHTMLWindow2 takes their text, and has members of the same names.
class HtmlWindow : public Extends<HtmlObject, IHTMLWindow3, AlsoAs<IHTMLWindow2, IHTMLFramesCollection2>,
                                  IServiceProvider> {
public:
    using Extends::Extends;
    void SetServices(const ComPtr<IServiceProvider>& services) { services_ = services; }

    // IHTMLFramesCollection2
    STDMETHODIMP item(VARIANT* index, VARIANT* result) override { return Frame(index, result); }
    STDMETHODIMP get_length(LONG* result) override { return Get(L"length", result); }

    // IHTMLWindow2
    STDMETHODIMP get_frames(IHTMLFramesCollection2** result) override { return Get(L"self", result); }
    STDMETHODIMP put_defaultStatus(BSTR) override { return Refuse(); }
    STDMETHODIMP get_defaultStatus(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP put_status(BSTR value) override { return Put(L"status", value); }
    STDMETHODIMP get_status(BSTR* result) override { return Get(L"status", result); }
    STDMETHODIMP setTimeout(BSTR code, LONG milliseconds, VARIANT*, LONG* result) override {
        return CallFor(result, L"setTimeout", code, milliseconds);
    }
    STDMETHODIMP clearTimeout(LONG timer) override { return Call(L"clearTimeout", timer); }
    STDMETHODIMP alert(BSTR message) override { return Call(L"alert", message); }
    STDMETHODIMP confirm(BSTR message, VARIANT_BOOL* result) override {
        return CallFor(result, L"confirm", message);
    }
    STDMETHODIMP prompt(BSTR message, BSTR proposal, VARIANT* result) override {
        return CallFor(result, L"prompt", message, proposal);
    }
    STDMETHODIMP get_Image(IHTMLImageElementFactory** result) override { return Refuse(result); }
    STDMETHODIMP get_location(IHTMLLocation** result) override { return Get(L"location", result); }
    STDMETHODIMP get_history(IOmHistory** result) override { return Refuse(result); }
    STDMETHODIMP close() override { return Call(L"close"); }
    STDMETHODIMP put_opener(VARIANT value) override { return Put(L"opener", value); }
    STDMETHODIMP get_opener(VARIANT* result) override { return Get(L"opener", result); }
    STDMETHODIMP get_navigator(IOmNavigator** result) override { return Refuse(result); }
    STDMETHODIMP put_name(BSTR value) override { return Put(L"name", value); }
    STDMETHODIMP get_name(BSTR* result) override { return Get(L"name", result); }
    STDMETHODIMP get_parent(IHTMLWindow2** result) override { return Get(L"parent", result); }
    STDMETHODIMP open(BSTR url, BSTR name, BSTR features, VARIANT_BOOL, IHTMLWindow2** result) override {
        return CallFor(result, L"open", url, name, features);
    }
    STDMETHODIMP get_self(IHTMLWindow2** result) override { return Get(L"self", result); }
    STDMETHODIMP get_top(IHTMLWindow2** result) override { return Get(L"top", result); }
    STDMETHODIMP get_window(IHTMLWindow2** result) override { return Get(L"window", result); }
    STDMETHODIMP navigate(BSTR url) override {
        return Run("(window, address) => { window.location.href = address; }", url);
    }
    STDMETHODIMP put_onfocus(VARIANT value) override { return PutHandler(L"onfocus", value); }
    STDMETHODIMP get_onfocus(VARIANT* result) override { return GetHandler(L"onfocus", result); }
    STDMETHODIMP put_onblur(VARIANT value) override { return PutHandler(L"onblur", value); }
    STDMETHODIMP get_onblur(VARIANT* result) override { return GetHandler(L"onblur", result); }
    STDMETHODIMP put_onload(VARIANT value) override { return PutHandler(L"onload", value); }
    STDMETHODIMP get_onload(VARIANT* result) override { return GetHandler(L"onload", result); }
    STDMETHODIMP put_onbeforeunload(VARIANT value) override { return PutHandler(L"onbeforeunload", value); }
    STDMETHODIMP get_onbeforeunload(VARIANT* result) override {
        return GetHandler(L"onbeforeunload", result);
    }
    STDMETHODIMP put_onunload(VARIANT value) override { return PutHandler(L"onunload", value); }
    STDMETHODIMP get_onunload(VARIANT* result) override { return GetHandler(L"onunload", result); }
    STDMETHODIMP put_onhelp(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onhelp(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onerror(VARIANT value) override { return PutHandler(L"onerror", value); }
    STDMETHODIMP get_onerror(VARIANT* result) override { return GetHandler(L"onerror", result); }
    STDMETHODIMP put_onresize(VARIANT value) override { return PutHandler(L"onresize", value); }
    STDMETHODIMP get_onresize(VARIANT* result) override { return GetHandler(L"onresize", result); }
    STDMETHODIMP put_onscroll(VARIANT value) override { return PutHandler(L"onscroll", value); }
    STDMETHODIMP get_onscroll(VARIANT* result) override { return GetHandler(L"onscroll", result); }
    STDMETHODIMP get_document(IHTMLDocument2** result) override { return Get(L"document", result); }
    STDMETHODIMP get_event(IHTMLEventObj** result) override { return Get(L"event", result); }
    STDMETHODIMP get__newEnum(IUnknown** result) override { return Enumerate(result); }
    STDMETHODIMP showModalDialog(BSTR, VARIANT*, VARIANT*, VARIANT* result) override {
        return Refuse(result);
    }
    STDMETHODIMP showHelp(BSTR, VARIANT, BSTR) override { return Refuse(); }
    STDMETHODIMP get_screen(IHTMLScreen** result) override { return Refuse(result); }
    STDMETHODIMP get_Option(IHTMLOptionElementFactory** result) override { return Refuse(result); }
    STDMETHODIMP focus() override { return Call(L"focus"); }
    STDMETHODIMP get_closed(VARIANT_BOOL* result) override { return Get(L"closed", result); }
    STDMETHODIMP blur() override { return Call(L"blur"); }
    STDMETHODIMP scroll(LONG x, LONG y) override { return Call(L"scroll", x, y); }
    STDMETHODIMP get_clientInformation(IOmNavigator** result) override { return Refuse(result); }
    STDMETHODIMP setInterval(BSTR code, LONG milliseconds, VARIANT*, LONG* result) override {
        return CallFor(result, L"setInterval", code, milliseconds);
    }
    STDMETHODIMP clearInterval(LONG timer) override { return Call(L"clearInterval", timer); }
    STDMETHODIMP put_offscreenBuffering(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_offscreenBuffering(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP execScript(BSTR code, BSTR language, VARIANT* result) override {
        return ExecuteScript(code, language, result);
    }
    STDMETHODIMP toString(BSTR* result) override { return CallFor(result, L"toString"); }
    STDMETHODIMP scrollBy(LONG x, LONG y) override { return Call(L"scrollBy", x, y); }
    STDMETHODIMP scrollTo(LONG x, LONG y) override { return Call(L"scrollTo", x, y); }
    STDMETHODIMP moveTo(LONG x, LONG y) override { return Call(L"moveTo", x, y); }
    STDMETHODIMP moveBy(LONG x, LONG y) override { return Call(L"moveBy", x, y); }
    STDMETHODIMP resizeTo(LONG x, LONG y) override { return Call(L"resizeTo", x, y); }
    STDMETHODIMP resizeBy(LONG x, LONG y) override { return Call(L"resizeBy", x, y); }
    STDMETHODIMP get_external(IDispatch** result) override { return Get(L"external", result); }

    // IHTMLWindow3
    STDMETHODIMP get_screenLeft(LONG* result) override { return Get(L"screenLeft", result); }
    STDMETHODIMP get_screenTop(LONG* result) override { return Get(L"screenTop", result); }
    STDMETHODIMP attachEvent(BSTR event, IDispatch* handler, VARIANT_BOOL* result) override {
        return AttachHandler(event, handler, result);
    }
    STDMETHODIMP detachEvent(BSTR event, IDispatch* handler) override {
        return DetachHandler(event, handler);
    }
    STDMETHODIMP setTimeout(VARIANT* code, LONG milliseconds, VARIANT*, LONG* result) override {
        return SetTimer(L"setTimeout", code, milliseconds, result);
    }
    STDMETHODIMP setInterval(VARIANT* code, LONG milliseconds, VARIANT*, LONG* result) override {
        return SetTimer(L"setInterval", code, milliseconds, result);
    }
    STDMETHODIMP print() override { return Refuse(); }
    STDMETHODIMP put_onbeforeprint(VARIANT value) override { return PutHandler(L"onbeforeprint", value); }
    STDMETHODIMP get_onbeforeprint(VARIANT* result) override { return GetHandler(L"onbeforeprint", result); }
    STDMETHODIMP put_onafterprint(VARIANT value) override { return PutHandler(L"onafterprint", value); }
    STDMETHODIMP get_onafterprint(VARIANT* result) override { return GetHandler(L"onafterprint", result); }
    STDMETHODIMP get_clipboardData(IHTMLDataTransfer** result) override { return Refuse(result); }
    STDMETHODIMP showModelessDialog(BSTR, VARIANT*, VARIANT*, IHTMLWindow2** result) override {
        return Refuse(result);
    }

    // IServiceProvider
    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (service == IdOf<IHTMLWindow2>())
            return Self()->QueryInterface(iid, object);
        return services_ ? services_->QueryService(service, iid, object) : E_NOINTERFACE;
    }

private:
    ComPtr<IServiceProvider> services_;

    HRESULT Frame(const VARIANT* index, VARIANT* result) {
        if (!index)
            return E_POINTER;
        return Ask(result, "(window, index) => window.frames[index]", *index);
    }

    /// The page's own language alone.
    HRESULT ExecuteScript(BSTR code, BSTR language, VARIANT* result) {
        const std::wstring_view name(language ? language : L"");
        if (name.starts_with(L"V") || name.starts_with(L"v"))
            return Refuse(result);
        return CallFor(result, L"eval", code);
    }

    /// @param code  a text, a function of the page, or an object of C++ whose default member is called
    HRESULT SetTimer(const wchar_t* method, const VARIANT* code, LONG milliseconds, LONG* result) {
        if (!code)
            return E_POINTER;
        Variant caller;
        const HRESULT made = Guarded([&] {
            caller = MakeEventCaller(ToVariant(*code), Reference());
            return S_OK;
        });
        if (FAILED(made))
            return made;
        return Ask(result,
                   "(window, method, code, milliseconds, caller) =>"
                   "    window[method](caller ? () => { caller.call(null, null); } : code, milliseconds)",
                   method, *code, milliseconds, caller.Get());
    }
};

}  // namespace

ComPtr<IDispatch> MakeWindow(const PageReference& window, const ComPtr<IServiceProvider>& services) {
    const auto made = MakeObject<HtmlWindow>(window);
    made->SetServices(services);
    return made->Self();
}

}  // namespace nux::webbrowser
