#include "webbrowser/HtmlElement.h"

#include <string>

#include "webbrowser/HtmlObjects.h"

namespace nux::webbrowser {
namespace {

class HtmlImage : public Extends<HtmlElement, IHTMLImgElement> {
public:
    using Extends::Extends;
    using HtmlElement::get_readyState;

    // IHTMLImgElement
    STDMETHODIMP put_isMap(VARIANT_BOOL value) override { return PutTruth(L"isMap", value); }
    STDMETHODIMP get_isMap(VARIANT_BOOL* result) override { return Get(L"isMap", result); }
    STDMETHODIMP put_useMap(BSTR value) override { return Put(L"useMap", value); }
    STDMETHODIMP get_useMap(BSTR* result) override { return Get(L"useMap", result); }
    STDMETHODIMP get_mimeType(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_fileSize(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_fileCreatedDate(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_fileModifiedDate(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_fileUpdatedDate(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_protocol(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_href(BSTR* result) override { return Get(L"src", result); }
    STDMETHODIMP get_nameProp(BSTR* result) override {
        return Ask(result, "image => image.src.split('/').pop()");
    }
    STDMETHODIMP put_border(VARIANT value) override { return Put(L"border", value); }
    STDMETHODIMP get_border(VARIANT* result) override { return Get(L"border", result); }
    STDMETHODIMP put_vspace(LONG value) override { return Put(L"vspace", value); }
    STDMETHODIMP get_vspace(LONG* result) override { return Get(L"vspace", result); }
    STDMETHODIMP put_hspace(LONG value) override { return Put(L"hspace", value); }
    STDMETHODIMP get_hspace(LONG* result) override { return Get(L"hspace", result); }
    STDMETHODIMP put_alt(BSTR value) override { return Put(L"alt", value); }
    STDMETHODIMP get_alt(BSTR* result) override { return Get(L"alt", result); }
    STDMETHODIMP put_src(BSTR value) override { return Put(L"src", value); }
    STDMETHODIMP get_src(BSTR* result) override { return Get(L"src", result); }
    STDMETHODIMP put_lowsrc(BSTR value) override { return Put(L"lowsrc", value); }
    STDMETHODIMP get_lowsrc(BSTR* result) override { return Get(L"lowsrc", result); }
    STDMETHODIMP put_vrml(BSTR) override { return Refuse(); }
    STDMETHODIMP get_vrml(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP put_dynsrc(BSTR) override { return Refuse(); }
    STDMETHODIMP get_dynsrc(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_readyState(BSTR* result) override {
        return Ask(result, "image => image.complete ? 'complete' : 'loading'");
    }
    STDMETHODIMP get_complete(VARIANT_BOOL* result) override { return Get(L"complete", result); }
    STDMETHODIMP put_loop(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_loop(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_align(BSTR value) override { return Put(L"align", value); }
    STDMETHODIMP get_align(BSTR* result) override { return Get(L"align", result); }
    STDMETHODIMP put_onload(VARIANT value) override { return PutHandler(L"onload", value); }
    STDMETHODIMP get_onload(VARIANT* result) override { return GetHandler(L"onload", result); }
    STDMETHODIMP put_onerror(VARIANT value) override { return PutHandler(L"onerror", value); }
    STDMETHODIMP get_onerror(VARIANT* result) override { return GetHandler(L"onerror", result); }
    STDMETHODIMP put_onabort(VARIANT value) override { return PutHandler(L"onabort", value); }
    STDMETHODIMP get_onabort(VARIANT* result) override { return GetHandler(L"onabort", result); }
    STDMETHODIMP put_name(BSTR value) override { return Put(L"name", value); }
    STDMETHODIMP get_name(BSTR* result) override { return Get(L"name", result); }
    STDMETHODIMP put_width(LONG value) override { return Put(L"width", value); }
    STDMETHODIMP get_width(LONG* result) override { return Get(L"width", result); }
    STDMETHODIMP put_height(LONG value) override { return Put(L"height", value); }
    STDMETHODIMP get_height(LONG* result) override { return Get(L"height", result); }
    STDMETHODIMP put_start(BSTR) override { return Refuse(); }
    STDMETHODIMP get_start(BSTR* result) override { return Refuse(result); }
};

class HtmlInput : public Extends<HtmlElement, IHTMLInputElement> {
public:
    using Extends::Extends;
    using HtmlElement::get_readyState;

    // IHTMLInputElement
    STDMETHODIMP put_type(BSTR value) override { return Put(L"type", value); }
    STDMETHODIMP get_type(BSTR* result) override { return Get(L"type", result); }
    STDMETHODIMP put_value(BSTR value) override { return Put(L"value", value); }
    STDMETHODIMP get_value(BSTR* result) override { return Get(L"value", result); }
    STDMETHODIMP put_name(BSTR value) override { return Put(L"name", value); }
    STDMETHODIMP get_name(BSTR* result) override { return Get(L"name", result); }
    STDMETHODIMP put_status(VARIANT_BOOL value) override { return PutTruth(L"checked", value); }
    STDMETHODIMP get_status(VARIANT_BOOL* result) override { return Get(L"checked", result); }
    STDMETHODIMP put_disabled(VARIANT_BOOL value) override { return PutTruth(L"disabled", value); }
    STDMETHODIMP get_disabled(VARIANT_BOOL* result) override { return Get(L"disabled", result); }
    STDMETHODIMP get_form(IHTMLFormElement** result) override { return Refuse(result); }
    STDMETHODIMP put_size(LONG value) override { return Put(L"size", value); }
    STDMETHODIMP get_size(LONG* result) override { return Get(L"size", result); }
    STDMETHODIMP put_maxLength(LONG value) override { return Put(L"maxLength", value); }
    STDMETHODIMP get_maxLength(LONG* result) override {
        return Ask(result, "input => input.maxLength < 0 ? 0x7fffffff : input.maxLength");
    }
    STDMETHODIMP select() override { return Call(L"select"); }
    STDMETHODIMP put_onchange(VARIANT value) override { return PutHandler(L"onchange", value); }
    STDMETHODIMP get_onchange(VARIANT* result) override { return GetHandler(L"onchange", result); }
    STDMETHODIMP put_onselect(VARIANT value) override { return PutHandler(L"onselect", value); }
    STDMETHODIMP get_onselect(VARIANT* result) override { return GetHandler(L"onselect", result); }
    STDMETHODIMP put_defaultValue(BSTR value) override { return Put(L"defaultValue", value); }
    STDMETHODIMP get_defaultValue(BSTR* result) override { return Get(L"defaultValue", result); }
    STDMETHODIMP put_readOnly(VARIANT_BOOL value) override { return PutTruth(L"readOnly", value); }
    STDMETHODIMP get_readOnly(VARIANT_BOOL* result) override { return Get(L"readOnly", result); }
    STDMETHODIMP createTextRange(IHTMLTxtRange** result) override { return Refuse(result); }
    STDMETHODIMP put_indeterminate(VARIANT_BOOL value) override { return PutTruth(L"indeterminate", value); }
    STDMETHODIMP get_indeterminate(VARIANT_BOOL* result) override { return Get(L"indeterminate", result); }
    STDMETHODIMP put_defaultChecked(VARIANT_BOOL value) override {
        return PutTruth(L"defaultChecked", value);
    }
    STDMETHODIMP get_defaultChecked(VARIANT_BOOL* result) override { return Get(L"defaultChecked", result); }
    STDMETHODIMP put_checked(VARIANT_BOOL value) override { return PutTruth(L"checked", value); }
    STDMETHODIMP get_checked(VARIANT_BOOL* result) override { return Get(L"checked", result); }
    STDMETHODIMP put_border(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_border(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_vspace(LONG) override { return Refuse(); }
    STDMETHODIMP get_vspace(LONG* result) override { return Refuse(result); }
    STDMETHODIMP put_hspace(LONG) override { return Refuse(); }
    STDMETHODIMP get_hspace(LONG* result) override { return Refuse(result); }
    STDMETHODIMP put_alt(BSTR value) override { return Put(L"alt", value); }
    STDMETHODIMP get_alt(BSTR* result) override { return Get(L"alt", result); }
    STDMETHODIMP put_src(BSTR value) override { return Put(L"src", value); }
    STDMETHODIMP get_src(BSTR* result) override { return Get(L"src", result); }
    STDMETHODIMP put_lowsrc(BSTR) override { return Refuse(); }
    STDMETHODIMP get_lowsrc(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP put_vrml(BSTR) override { return Refuse(); }
    STDMETHODIMP get_vrml(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP put_dynsrc(BSTR) override { return Refuse(); }
    STDMETHODIMP get_dynsrc(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_readyState(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_complete(VARIANT_BOOL* result) override { return Refuse(result); }
    STDMETHODIMP put_loop(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_loop(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_align(BSTR value) override { return Put(L"align", value); }
    STDMETHODIMP get_align(BSTR* result) override { return Get(L"align", result); }
    STDMETHODIMP put_onload(VARIANT value) override { return PutHandler(L"onload", value); }
    STDMETHODIMP get_onload(VARIANT* result) override { return GetHandler(L"onload", result); }
    STDMETHODIMP put_onerror(VARIANT value) override { return PutHandler(L"onerror", value); }
    STDMETHODIMP get_onerror(VARIANT* result) override { return GetHandler(L"onerror", result); }
    STDMETHODIMP put_onabort(VARIANT value) override { return PutHandler(L"onabort", value); }
    STDMETHODIMP get_onabort(VARIANT* result) override { return GetHandler(L"onabort", result); }
    STDMETHODIMP put_width(LONG value) override { return Put(L"width", value); }
    STDMETHODIMP get_width(LONG* result) override { return Get(L"width", result); }
    STDMETHODIMP put_height(LONG value) override { return Put(L"height", value); }
    STDMETHODIMP get_height(LONG* result) override { return Get(L"height", result); }
    STDMETHODIMP put_start(BSTR) override { return Refuse(); }
    STDMETHODIMP get_start(BSTR* result) override { return Refuse(result); }
};

class HtmlBody : public Extends<HtmlElement, IHTMLBodyElement> {
public:
    using Extends::Extends;

    // IHTMLBodyElement
    STDMETHODIMP put_background(BSTR value) override { return Put(L"background", value); }
    STDMETHODIMP get_background(BSTR* result) override { return Get(L"background", result); }
    STDMETHODIMP put_bgProperties(BSTR) override { return Refuse(); }
    STDMETHODIMP get_bgProperties(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP put_leftMargin(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_leftMargin(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_topMargin(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_topMargin(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_rightMargin(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_rightMargin(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_bottomMargin(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_bottomMargin(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_noWrap(VARIANT_BOOL) override { return Refuse(); }
    STDMETHODIMP get_noWrap(VARIANT_BOOL* result) override { return Refuse(result); }
    STDMETHODIMP put_bgColor(VARIANT value) override { return Put(L"bgColor", value); }
    STDMETHODIMP get_bgColor(VARIANT* result) override { return Get(L"bgColor", result); }
    STDMETHODIMP put_text(VARIANT value) override { return Put(L"text", value); }
    STDMETHODIMP get_text(VARIANT* result) override { return Get(L"text", result); }
    STDMETHODIMP put_link(VARIANT value) override { return Put(L"link", value); }
    STDMETHODIMP get_link(VARIANT* result) override { return Get(L"link", result); }
    STDMETHODIMP put_vLink(VARIANT value) override { return Put(L"vLink", value); }
    STDMETHODIMP get_vLink(VARIANT* result) override { return Get(L"vLink", result); }
    STDMETHODIMP put_aLink(VARIANT value) override { return Put(L"aLink", value); }
    STDMETHODIMP get_aLink(VARIANT* result) override { return Get(L"aLink", result); }
    STDMETHODIMP put_onload(VARIANT value) override { return PutHandler(L"onload", value); }
    STDMETHODIMP get_onload(VARIANT* result) override { return GetHandler(L"onload", result); }
    STDMETHODIMP put_onunload(VARIANT value) override { return PutHandler(L"onunload", value); }
    STDMETHODIMP get_onunload(VARIANT* result) override { return GetHandler(L"onunload", result); }
    STDMETHODIMP put_scroll(BSTR value) override { return PutScroll(value); }
    STDMETHODIMP get_scroll(BSTR* result) override { return GetScroll(result); }
    STDMETHODIMP put_onselect(VARIANT value) override { return PutHandler(L"onselect", value); }
    STDMETHODIMP get_onselect(VARIANT* result) override { return GetHandler(L"onselect", result); }
    STDMETHODIMP put_onbeforeunload(VARIANT value) override { return PutHandler(L"onbeforeunload", value); }
    STDMETHODIMP get_onbeforeunload(VARIANT* result) override {
        return GetHandler(L"onbeforeunload", result);
    }
    STDMETHODIMP createTextRange(IHTMLTxtRange** result) override { return Refuse(result); }

private:
    // Whether there are scroll bars; in the page a method has this name.
    HRESULT GetScroll(BSTR* result) {
        return Ask(
            result,
            "body => ({hidden: 'no', scroll: 'yes', auto: 'auto'})[getComputedStyle(body).overflow] ?? ''");
    }
    HRESULT PutScroll(BSTR value) {
        return Run(
            "(body, scroll) => {"
            "    body.style.overflow = ({no: 'hidden', yes: 'scroll', auto: 'auto'})[scroll.toLowerCase()] "
            "?? '';"
            "}",
            value);
    }
};

}  // namespace

// An attribute may be asked for by the name of its property, and a property as if it were an attribute.

HRESULT HtmlElement::GetAttribute(BSTR name, LONG flags, VARIANT* value) {
    return Ask(value,
               "(element, name, flags) => {"
               "    const attribute = {classname: 'class', htmlfor: 'for'}[name.toLowerCase()] ?? name;"
               "    const text = element.getAttribute(attribute);"
               "    const property = element[name];"
               "    const isPlain = /string|number|boolean/.test(typeof property);"
               "    return text !== null || flags & 2 || !isPlain ? text : property;"
               "}",
               name, flags);
}

HRESULT HtmlElement::SetAttribute(BSTR name, const VARIANT& value) {
    return Run(
        "(element, name, value) => {"
        "    const attribute = {classname: 'class', htmlfor: 'for'}[name.toLowerCase()] ?? name;"
        "    if (typeof value === 'boolean' && typeof element[name] === 'boolean')"
        "        element[name] = value;"
        "    else"
        "        element.setAttribute(attribute, value);"
        "}",
        name, value);
}

HRESULT HtmlElement::RemoveAttribute(BSTR name, VARIANT_BOOL* result) {
    return Ask(result,
               "(element, name) => {"
               "    const attribute = {classname: 'class', htmlfor: 'for'}[name.toLowerCase()] ?? name;"
               "    const has = element.hasAttribute(attribute);"
               "    element.removeAttribute(attribute);"
               "    return has;"
               "}",
               name);
}

ComPtr<IDispatch> MakeElement(const PageReference& element) {
    const std::string& name = element.ClassName();
    if (name == "HTMLImageElement")
        return MakeHtmlObject<HtmlImage>(element);
    if (name == "HTMLInputElement")
        return MakeHtmlObject<HtmlInput>(element);
    if (name == "HTMLBodyElement")
        return MakeHtmlObject<HtmlBody>(element);
    return MakeHtmlObject<HtmlElement>(element);
}

}  // namespace nux::webbrowser
