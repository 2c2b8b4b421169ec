#include <docobj.h>
#include <servprov.h>

#include "framework/Handles.h"
#include "webbrowser/HtmlObject.h"
#include "webbrowser/HtmlObjects.h"

namespace nux::webbrowser {
namespace {

/// A document of a page.
class HtmlDocument : public Extends<HtmlObject, AlsoAs<IHTMLDocument2, IHTMLDocument>, IHTMLDocument3,
                                    IOleCommandTarget, IServiceProvider> {
public:
    using Extends::Extends;
    void SetServices(const ComPtr<IServiceProvider>& services) { services_ = services; }

    // IHTMLDocument
    STDMETHODIMP get_Script(IDispatch** result) override { return Get(L"defaultView", result); }

    // IHTMLDocument2
    STDMETHODIMP get_all(IHTMLElementCollection** result) override {
        return Ask(result, "document => document.getElementsByTagName('*')");
    }
    STDMETHODIMP get_body(IHTMLElement** result) override { return Get(L"body", result); }
    STDMETHODIMP get_activeElement(IHTMLElement** result) override { return Get(L"activeElement", result); }
    STDMETHODIMP get_images(IHTMLElementCollection** result) override { return Get(L"images", result); }
    STDMETHODIMP get_applets(IHTMLElementCollection** result) override {
        return Ask(result, "document => document.getElementsByTagName('applet')");
    }
    STDMETHODIMP get_links(IHTMLElementCollection** result) override { return Get(L"links", result); }
    STDMETHODIMP get_forms(IHTMLElementCollection** result) override { return Get(L"forms", result); }
    STDMETHODIMP get_anchors(IHTMLElementCollection** result) override { return Get(L"anchors", result); }
    STDMETHODIMP put_title(BSTR value) override { return Put(L"title", value); }
    STDMETHODIMP get_title(BSTR* result) override { return Get(L"title", result); }
    STDMETHODIMP get_scripts(IHTMLElementCollection** result) override { return Get(L"scripts", result); }
    STDMETHODIMP put_designMode(BSTR value) override { return Put(L"designMode", value); }
    STDMETHODIMP get_designMode(BSTR* result) override { return Get(L"designMode", result); }
    STDMETHODIMP get_selection(IHTMLSelectionObject** result) override { return Refuse(result); }
    STDMETHODIMP get_readyState(BSTR* result) override { return Get(L"readyState", result); }
    STDMETHODIMP get_frames(IHTMLFramesCollection2** result) override { return Get(L"defaultView", result); }
    STDMETHODIMP get_embeds(IHTMLElementCollection** result) override { return Get(L"embeds", result); }
    STDMETHODIMP get_plugins(IHTMLElementCollection** result) override { return Get(L"plugins", result); }
    STDMETHODIMP put_alinkColor(VARIANT value) override { return Put(L"alinkColor", value); }
    STDMETHODIMP get_alinkColor(VARIANT* result) override { return Get(L"alinkColor", result); }
    STDMETHODIMP put_bgColor(VARIANT value) override { return Put(L"bgColor", value); }
    STDMETHODIMP get_bgColor(VARIANT* result) override { return Get(L"bgColor", result); }
    STDMETHODIMP put_fgColor(VARIANT value) override { return Put(L"fgColor", value); }
    STDMETHODIMP get_fgColor(VARIANT* result) override { return Get(L"fgColor", result); }
    STDMETHODIMP put_linkColor(VARIANT value) override { return Put(L"linkColor", value); }
    STDMETHODIMP get_linkColor(VARIANT* result) override { return Get(L"linkColor", result); }
    STDMETHODIMP put_vlinkColor(VARIANT value) override { return Put(L"vlinkColor", value); }
    STDMETHODIMP get_vlinkColor(VARIANT* result) override { return Get(L"vlinkColor", result); }
    STDMETHODIMP get_referrer(BSTR* result) override { return Get(L"referrer", result); }
    STDMETHODIMP get_location(IHTMLLocation** result) override { return Get(L"location", result); }
    STDMETHODIMP get_lastModified(BSTR* result) override { return Get(L"lastModified", result); }
    STDMETHODIMP put_URL(BSTR value) override {
        return Run("(document, address) => { document.location.href = address; }", value);
    }
    STDMETHODIMP get_URL(BSTR* result) override { return Get(L"URL", result); }
    STDMETHODIMP put_domain(BSTR value) override { return Put(L"domain", value); }
    STDMETHODIMP get_domain(BSTR* result) override { return Get(L"domain", result); }
    STDMETHODIMP put_cookie(BSTR value) override { return Put(L"cookie", value); }
    STDMETHODIMP get_cookie(BSTR* result) override { return Get(L"cookie", result); }
    STDMETHODIMP put_expando(VARIANT_BOOL) override { return Refuse(); }
    STDMETHODIMP get_expando(VARIANT_BOOL* result) override { return Refuse(result); }
    STDMETHODIMP put_charset(BSTR) override { return Refuse(); }
    STDMETHODIMP get_charset(BSTR* result) override { return Get(L"charset", result); }
    STDMETHODIMP put_defaultCharset(BSTR) override { return Refuse(); }
    STDMETHODIMP get_defaultCharset(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_mimeType(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_fileSize(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_fileCreatedDate(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_fileModifiedDate(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_fileUpdatedDate(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_security(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_protocol(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_nameProp(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP write(SAFEARRAY* texts) override { return Write(L"write", texts); }
    STDMETHODIMP writeln(SAFEARRAY* texts) override { return Write(L"writeln", texts); }
    STDMETHODIMP open(BSTR, VARIANT, VARIANT, VARIANT, IDispatch** result) override {
        return Ask(result, "document => document.open()");
    }
    STDMETHODIMP close() override { return Call(L"close"); }
    STDMETHODIMP clear() override { return S_OK; }  // documented as doing nothing
    STDMETHODIMP queryCommandSupported(BSTR command, VARIANT_BOOL* result) override {
        return CallFor(result, L"queryCommandSupported", command);
    }
    STDMETHODIMP queryCommandEnabled(BSTR command, VARIANT_BOOL* result) override {
        return CallFor(result, L"queryCommandEnabled", command);
    }
    STDMETHODIMP queryCommandState(BSTR command, VARIANT_BOOL* result) override {
        return CallFor(result, L"queryCommandState", command);
    }
    STDMETHODIMP queryCommandIndeterm(BSTR command, VARIANT_BOOL* result) override {
        return CallFor(result, L"queryCommandIndeterm", command);
    }
    STDMETHODIMP queryCommandText(BSTR, BSTR* result) override { return Refuse(result); }
    STDMETHODIMP queryCommandValue(BSTR command, VARIANT* result) override {
        return CallFor(result, L"queryCommandValue", command);
    }
    STDMETHODIMP execCommand(BSTR command, VARIANT_BOOL showUI, VARIANT value,
                             VARIANT_BOOL* result) override {
        return CallFor(result, L"execCommand", command, LONG{showUI}, value);
    }
    STDMETHODIMP execCommandShowHelp(BSTR, VARIANT_BOOL* result) override { return Refuse(result); }
    STDMETHODIMP createElement(BSTR tag, IHTMLElement** result) override {
        return CreateElement(tag, result);
    }
    STDMETHODIMP put_onhelp(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onhelp(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onclick(VARIANT value) override { return PutHandler(L"onclick", value); }
    STDMETHODIMP get_onclick(VARIANT* result) override { return GetHandler(L"onclick", result); }
    STDMETHODIMP put_ondblclick(VARIANT value) override { return PutHandler(L"ondblclick", value); }
    STDMETHODIMP get_ondblclick(VARIANT* result) override { return GetHandler(L"ondblclick", result); }
    STDMETHODIMP put_onkeyup(VARIANT value) override { return PutHandler(L"onkeyup", value); }
    STDMETHODIMP get_onkeyup(VARIANT* result) override { return GetHandler(L"onkeyup", result); }
    STDMETHODIMP put_onkeydown(VARIANT value) override { return PutHandler(L"onkeydown", value); }
    STDMETHODIMP get_onkeydown(VARIANT* result) override { return GetHandler(L"onkeydown", result); }
    STDMETHODIMP put_onkeypress(VARIANT value) override { return PutHandler(L"onkeypress", value); }
    STDMETHODIMP get_onkeypress(VARIANT* result) override { return GetHandler(L"onkeypress", result); }
    STDMETHODIMP put_onmouseup(VARIANT value) override { return PutHandler(L"onmouseup", value); }
    STDMETHODIMP get_onmouseup(VARIANT* result) override { return GetHandler(L"onmouseup", result); }
    STDMETHODIMP put_onmousedown(VARIANT value) override { return PutHandler(L"onmousedown", value); }
    STDMETHODIMP get_onmousedown(VARIANT* result) override { return GetHandler(L"onmousedown", result); }
    STDMETHODIMP put_onmousemove(VARIANT value) override { return PutHandler(L"onmousemove", value); }
    STDMETHODIMP get_onmousemove(VARIANT* result) override { return GetHandler(L"onmousemove", result); }
    STDMETHODIMP put_onmouseout(VARIANT value) override { return PutHandler(L"onmouseout", value); }
    STDMETHODIMP get_onmouseout(VARIANT* result) override { return GetHandler(L"onmouseout", result); }
    STDMETHODIMP put_onmouseover(VARIANT value) override { return PutHandler(L"onmouseover", value); }
    STDMETHODIMP get_onmouseover(VARIANT* result) override { return GetHandler(L"onmouseover", result); }
    STDMETHODIMP put_onreadystatechange(VARIANT value) override {
        return PutHandler(L"onreadystatechange", value);
    }
    STDMETHODIMP get_onreadystatechange(VARIANT* result) override {
        return GetHandler(L"onreadystatechange", result);
    }
    STDMETHODIMP put_onafterupdate(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onafterupdate(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onrowexit(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onrowexit(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onrowenter(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onrowenter(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_ondragstart(VARIANT value) override { return PutHandler(L"ondragstart", value); }
    STDMETHODIMP get_ondragstart(VARIANT* result) override { return GetHandler(L"ondragstart", result); }
    STDMETHODIMP put_onselectstart(VARIANT value) override { return PutHandler(L"onselectstart", value); }
    STDMETHODIMP get_onselectstart(VARIANT* result) override { return GetHandler(L"onselectstart", result); }
    STDMETHODIMP elementFromPoint(LONG x, LONG y, IHTMLElement** result) override {
        return CallFor(result, L"elementFromPoint", x, y);
    }
    STDMETHODIMP get_parentWindow(IHTMLWindow2** result) override { return Get(L"defaultView", result); }
    STDMETHODIMP get_styleSheets(IHTMLStyleSheetsCollection** result) override { return Refuse(result); }
    STDMETHODIMP put_onbeforeupdate(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onbeforeupdate(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onerrorupdate(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onerrorupdate(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP toString(BSTR* result) override { return CallFor(result, L"toString"); }
    STDMETHODIMP createStyleSheet(BSTR, LONG, IHTMLStyleSheet** result) override { return Refuse(result); }

    // IHTMLDocument3
    STDMETHODIMP releaseCapture() override { return Refuse(); }
    STDMETHODIMP recalc(VARIANT_BOOL) override { return Refuse(); }
    STDMETHODIMP createTextNode(BSTR, IHTMLDOMNode** result) override { return Refuse(result); }
    STDMETHODIMP get_documentElement(IHTMLElement** result) override {
        return Get(L"documentElement", result);
    }
    STDMETHODIMP get_uniqueID(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP attachEvent(BSTR event, IDispatch* handler, VARIANT_BOOL* result) override {
        return AttachHandler(event, handler, result);
    }
    STDMETHODIMP detachEvent(BSTR event, IDispatch* handler) override {
        return DetachHandler(event, handler);
    }
    STDMETHODIMP put_onrowsdelete(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onrowsdelete(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onrowsinserted(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onrowsinserted(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_oncellchange(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_oncellchange(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_ondatasetchanged(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_ondatasetchanged(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_ondataavailable(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_ondataavailable(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_ondatasetcomplete(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_ondatasetcomplete(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onpropertychange(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onpropertychange(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_dir(BSTR value) override { return Put(L"dir", value); }
    STDMETHODIMP get_dir(BSTR* result) override { return Get(L"dir", result); }
    STDMETHODIMP put_oncontextmenu(VARIANT value) override { return PutHandler(L"oncontextmenu", value); }
    STDMETHODIMP get_oncontextmenu(VARIANT* result) override { return GetHandler(L"oncontextmenu", result); }
    STDMETHODIMP put_onstop(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onstop(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP createDocumentFragment(IHTMLDocument2** result) override { return Refuse(result); }
    STDMETHODIMP get_parentDocument(IHTMLDocument2** result) override { return Refuse(result); }
    STDMETHODIMP put_enableDownload(VARIANT_BOOL) override { return Refuse(); }
    STDMETHODIMP get_enableDownload(VARIANT_BOOL* result) override { return Refuse(result); }
    STDMETHODIMP put_baseUrl(BSTR) override { return Refuse(); }
    STDMETHODIMP get_baseUrl(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_childNodes(IDispatch** result) override { return Get(L"childNodes", result); }
    STDMETHODIMP put_inheritStyleSheets(VARIANT_BOOL) override { return Refuse(); }
    STDMETHODIMP get_inheritStyleSheets(VARIANT_BOOL* result) override { return Refuse(result); }
    STDMETHODIMP put_onbeforeeditfocus(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onbeforeeditfocus(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP getElementsByName(BSTR name, IHTMLElementCollection** result) override {
        return CallFor(result, L"getElementsByName", name);
    }
    STDMETHODIMP getElementById(BSTR name, IHTMLElement** result) override {
        return CallFor(result, L"getElementById", name);
    }
    STDMETHODIMP getElementsByTagName(BSTR name, IHTMLElementCollection** result) override {
        return CallFor(result, L"getElementsByTagName", name);
    }

    // IOleCommandTarget
    STDMETHODIMP QueryStatus(const GUID* group, ULONG count, OLECMD* commands, OLECMDTEXT* text) override;
    STDMETHODIMP Exec(const GUID* group, DWORD command, DWORD option, VARIANT* given,
                      VARIANT* result) override;

    // IServiceProvider
    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** object) override;

private:
    HRESULT Write(const wchar_t* method, SAFEARRAY* texts);
    HRESULT CreateElement(BSTR tag, IHTMLElement** result);

    ComPtr<IServiceProvider> services_;
};

HRESULT HtmlDocument::Write(const wchar_t* method, SAFEARRAY* texts) {
    if (!texts)
        return E_INVALIDARG;
    VARIANT array{};
    array.vt = VT_ARRAY | VT_VARIANT;
    array.parray = texts;
    return Run("(document, method, texts) => { document[method](...texts); }", method, array);
}

/// @param tag  a name, or the whole of a start tag
HRESULT HtmlDocument::CreateElement(BSTR tag, IHTMLElement** result) {
    return Ask(result,
               "(document, tag) => {"
               "    if (!tag.startsWith('<'))"
               "        return document.createElement(tag);"
               "    const template = document.createElement('template');"
               "    template.innerHTML = tag;"
               "    return document.adoptNode(template.content.firstElementChild);"
               "}",
               tag);
}

/// What the page calls a command of the platform's common group, null for one that documents don't have.
const wchar_t* CommandName(DWORD command) {
    switch (command) {
        case OLECMDID_CUT:
            return L"cut";
        case OLECMDID_COPY:
            return L"copy";
        case OLECMDID_PASTE:
            return L"paste";
        case OLECMDID_UNDO:
            return L"undo";
        case OLECMDID_REDO:
            return L"redo";
        case OLECMDID_SELECTALL:
            return L"selectAll";
        case OLECMDID_CLEARSELECTION:
            return L"unselect";
        default:
            return nullptr;
    }
}

STDMETHODIMP HtmlDocument::QueryStatus(const GUID* group, ULONG count, OLECMD* commands, OLECMDTEXT*) {
    if (!commands)
        return E_POINTER;
    if (group)
        return OLECMDERR_E_UNKNOWNGROUP;
    for (ULONG i = 0; i < count; ++i) {
        const wchar_t* const name = CommandName(commands[i].cmdID);
        VARIANT_BOOL isEnabled = VARIANT_FALSE;
        commands[i].cmdf = name ? OLECMDF_SUPPORTED : 0;
        if (name && SUCCEEDED(CallFor(&isEnabled, L"queryCommandEnabled", name)) && isEnabled)
            commands[i].cmdf |= OLECMDF_ENABLED;
    }
    return S_OK;
}

STDMETHODIMP HtmlDocument::Exec(const GUID* group, DWORD command, DWORD, VARIANT*, VARIANT*) {
    if (group)
        return OLECMDERR_E_UNKNOWNGROUP;
    const wchar_t* const name = CommandName(command);
    if (!name)
        return OLECMDERR_E_NOTSUPPORTED;
    VARIANT_BOOL isDone = VARIANT_FALSE;
    const HRESULT result = CallFor(&isDone, L"execCommand", name);
    return FAILED(result) ? result : isDone ? S_OK : OLECMDERR_E_DISABLED;
}

STDMETHODIMP HtmlDocument::QueryService(REFGUID service, REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (service != IdOf<IHTMLWindow2>())
        return services_ ? services_->QueryService(service, iid, object) : E_NOINTERFACE;
    ComPtr<IHTMLWindow2> window;
    const HRESULT result = get_parentWindow(window.Receive());
    return FAILED(result) || !window ? E_NOINTERFACE : window->QueryInterface(iid, object);
}

}  // namespace

ComPtr<IDispatch> MakeDocument(const PageReference& document, const ComPtr<IServiceProvider>& services) {
    const auto made = MakeObject<HtmlDocument>(document);
    made->SetServices(services);
    return made->Self();
}

}  // namespace nux::webbrowser
