#pragma once

#include "webbrowser/HtmlObject.h"

namespace nux::webbrowser {

/// An element of a page.
class HtmlElement : public Extends<HtmlObject, IHTMLElement, IHTMLElement2> {
public:
    using Extends::Extends;

    // IHTMLElement
    STDMETHODIMP setAttribute(BSTR name, VARIANT value, LONG) override { return SetAttribute(name, value); }
    STDMETHODIMP getAttribute(BSTR name, LONG flags, VARIANT* value) override {
        return GetAttribute(name, flags, value);
    }
    STDMETHODIMP removeAttribute(BSTR name, LONG, VARIANT_BOOL* result) override {
        return RemoveAttribute(name, result);
    }
    STDMETHODIMP put_className(BSTR value) override { return Put(L"className", value); }
    STDMETHODIMP get_className(BSTR* result) override { return Get(L"className", result); }
    STDMETHODIMP put_id(BSTR value) override { return Put(L"id", value); }
    STDMETHODIMP get_id(BSTR* result) override { return Get(L"id", result); }
    STDMETHODIMP get_tagName(BSTR* result) override { return Get(L"tagName", result); }
    STDMETHODIMP get_parentElement(IHTMLElement** result) override { return Get(L"parentElement", result); }
    STDMETHODIMP get_style(IHTMLStyle** result) override { return Get(L"style", result); }
    STDMETHODIMP put_onhelp(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onhelp(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onclick(VARIANT value) override { return PutHandler(L"onclick", value); }
    STDMETHODIMP get_onclick(VARIANT* result) override { return GetHandler(L"onclick", result); }
    STDMETHODIMP put_ondblclick(VARIANT value) override { return PutHandler(L"ondblclick", value); }
    STDMETHODIMP get_ondblclick(VARIANT* result) override { return GetHandler(L"ondblclick", result); }
    STDMETHODIMP put_onkeydown(VARIANT value) override { return PutHandler(L"onkeydown", value); }
    STDMETHODIMP get_onkeydown(VARIANT* result) override { return GetHandler(L"onkeydown", result); }
    STDMETHODIMP put_onkeyup(VARIANT value) override { return PutHandler(L"onkeyup", value); }
    STDMETHODIMP get_onkeyup(VARIANT* result) override { return GetHandler(L"onkeyup", result); }
    STDMETHODIMP put_onkeypress(VARIANT value) override { return PutHandler(L"onkeypress", value); }
    STDMETHODIMP get_onkeypress(VARIANT* result) override { return GetHandler(L"onkeypress", result); }
    STDMETHODIMP put_onmouseout(VARIANT value) override { return PutHandler(L"onmouseout", value); }
    STDMETHODIMP get_onmouseout(VARIANT* result) override { return GetHandler(L"onmouseout", result); }
    STDMETHODIMP put_onmouseover(VARIANT value) override { return PutHandler(L"onmouseover", value); }
    STDMETHODIMP get_onmouseover(VARIANT* result) override { return GetHandler(L"onmouseover", result); }
    STDMETHODIMP put_onmousemove(VARIANT value) override { return PutHandler(L"onmousemove", value); }
    STDMETHODIMP get_onmousemove(VARIANT* result) override { return GetHandler(L"onmousemove", result); }
    STDMETHODIMP put_onmousedown(VARIANT value) override { return PutHandler(L"onmousedown", value); }
    STDMETHODIMP get_onmousedown(VARIANT* result) override { return GetHandler(L"onmousedown", result); }
    STDMETHODIMP put_onmouseup(VARIANT value) override { return PutHandler(L"onmouseup", value); }
    STDMETHODIMP get_onmouseup(VARIANT* result) override { return GetHandler(L"onmouseup", result); }
    STDMETHODIMP get_document(IDispatch** result) override { return Get(L"ownerDocument", result); }
    STDMETHODIMP put_title(BSTR value) override { return Put(L"title", value); }
    STDMETHODIMP get_title(BSTR* result) override { return Get(L"title", result); }
    STDMETHODIMP put_language(BSTR) override { return Refuse(); }
    STDMETHODIMP get_language(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP put_onselectstart(VARIANT value) override { return PutHandler(L"onselectstart", value); }
    STDMETHODIMP get_onselectstart(VARIANT* result) override { return GetHandler(L"onselectstart", result); }
    STDMETHODIMP scrollIntoView(VARIANT start) override { return Call(L"scrollIntoView", start); }
    STDMETHODIMP contains(IHTMLElement* child, VARIANT_BOOL* result) override {
        return CallFor(result, L"contains", child);
    }
    STDMETHODIMP get_sourceIndex(LONG* result) override {
        return Ask(result,
                   "element => [...element.ownerDocument.getElementsByTagName('*')].indexOf(element)");
    }
    STDMETHODIMP get_recordNumber(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_lang(BSTR value) override { return Put(L"lang", value); }
    STDMETHODIMP get_lang(BSTR* result) override { return Get(L"lang", result); }
    STDMETHODIMP get_offsetLeft(LONG* result) override { return Get(L"offsetLeft", result); }
    STDMETHODIMP get_offsetTop(LONG* result) override { return Get(L"offsetTop", result); }
    STDMETHODIMP get_offsetWidth(LONG* result) override { return Get(L"offsetWidth", result); }
    STDMETHODIMP get_offsetHeight(LONG* result) override { return Get(L"offsetHeight", result); }
    STDMETHODIMP get_offsetParent(IHTMLElement** result) override { return Get(L"offsetParent", result); }
    STDMETHODIMP put_innerHTML(BSTR value) override { return Put(L"innerHTML", value); }
    STDMETHODIMP get_innerHTML(BSTR* result) override { return Get(L"innerHTML", result); }
    STDMETHODIMP put_innerText(BSTR value) override { return Put(L"innerText", value); }
    STDMETHODIMP get_innerText(BSTR* result) override { return Get(L"innerText", result); }
    STDMETHODIMP put_outerHTML(BSTR value) override { return Put(L"outerHTML", value); }
    STDMETHODIMP get_outerHTML(BSTR* result) override { return Get(L"outerHTML", result); }
    STDMETHODIMP put_outerText(BSTR value) override { return Put(L"outerText", value); }
    STDMETHODIMP get_outerText(BSTR* result) override { return Get(L"outerText", result); }
    STDMETHODIMP insertAdjacentHTML(BSTR where, BSTR html) override {
        return Call(L"insertAdjacentHTML", where, html);
    }
    STDMETHODIMP insertAdjacentText(BSTR where, BSTR text) override {
        return Call(L"insertAdjacentText", where, text);
    }
    STDMETHODIMP get_parentTextEdit(IHTMLElement** result) override { return Refuse(result); }
    STDMETHODIMP get_isTextEdit(VARIANT_BOOL* result) override { return Refuse(result); }
    STDMETHODIMP click() override { return Call(L"click"); }
    STDMETHODIMP get_filters(IHTMLFiltersCollection** result) override { return Refuse(result); }
    STDMETHODIMP put_ondragstart(VARIANT value) override { return PutHandler(L"ondragstart", value); }
    STDMETHODIMP get_ondragstart(VARIANT* result) override { return GetHandler(L"ondragstart", result); }
    STDMETHODIMP toString(BSTR* result) override { return CallFor(result, L"toString"); }
    STDMETHODIMP put_onbeforeupdate(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onbeforeupdate(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onafterupdate(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onafterupdate(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onerrorupdate(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onerrorupdate(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onrowexit(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onrowexit(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onrowenter(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onrowenter(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_ondatasetchanged(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_ondatasetchanged(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_ondataavailable(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_ondataavailable(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_ondatasetcomplete(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_ondatasetcomplete(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onfilterchange(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onfilterchange(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP get_children(IDispatch** result) override { return Get(L"children", result); }
    STDMETHODIMP get_all(IDispatch** result) override {
        return Ask(result, "element => element.getElementsByTagName('*')");
    }

    // IHTMLElement2
    STDMETHODIMP get_scopeName(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP setCapture(VARIANT_BOOL) override { return Refuse(); }
    STDMETHODIMP releaseCapture() override { return Refuse(); }
    STDMETHODIMP put_onlosecapture(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onlosecapture(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP componentFromPoint(LONG, LONG, BSTR* result) override { return Refuse(result); }
    STDMETHODIMP doScroll(VARIANT) override { return Refuse(); }
    STDMETHODIMP put_onscroll(VARIANT value) override { return PutHandler(L"onscroll", value); }
    STDMETHODIMP get_onscroll(VARIANT* result) override { return GetHandler(L"onscroll", result); }
    STDMETHODIMP put_ondrag(VARIANT value) override { return PutHandler(L"ondrag", value); }
    STDMETHODIMP get_ondrag(VARIANT* result) override { return GetHandler(L"ondrag", result); }
    STDMETHODIMP put_ondragend(VARIANT value) override { return PutHandler(L"ondragend", value); }
    STDMETHODIMP get_ondragend(VARIANT* result) override { return GetHandler(L"ondragend", result); }
    STDMETHODIMP put_ondragenter(VARIANT value) override { return PutHandler(L"ondragenter", value); }
    STDMETHODIMP get_ondragenter(VARIANT* result) override { return GetHandler(L"ondragenter", result); }
    STDMETHODIMP put_ondragover(VARIANT value) override { return PutHandler(L"ondragover", value); }
    STDMETHODIMP get_ondragover(VARIANT* result) override { return GetHandler(L"ondragover", result); }
    STDMETHODIMP put_ondragleave(VARIANT value) override { return PutHandler(L"ondragleave", value); }
    STDMETHODIMP get_ondragleave(VARIANT* result) override { return GetHandler(L"ondragleave", result); }
    STDMETHODIMP put_ondrop(VARIANT value) override { return PutHandler(L"ondrop", value); }
    STDMETHODIMP get_ondrop(VARIANT* result) override { return GetHandler(L"ondrop", result); }
    STDMETHODIMP put_onbeforecut(VARIANT value) override { return PutHandler(L"onbeforecut", value); }
    STDMETHODIMP get_onbeforecut(VARIANT* result) override { return GetHandler(L"onbeforecut", result); }
    STDMETHODIMP put_oncut(VARIANT value) override { return PutHandler(L"oncut", value); }
    STDMETHODIMP get_oncut(VARIANT* result) override { return GetHandler(L"oncut", result); }
    STDMETHODIMP put_onbeforecopy(VARIANT value) override { return PutHandler(L"onbeforecopy", value); }
    STDMETHODIMP get_onbeforecopy(VARIANT* result) override { return GetHandler(L"onbeforecopy", result); }
    STDMETHODIMP put_oncopy(VARIANT value) override { return PutHandler(L"oncopy", value); }
    STDMETHODIMP get_oncopy(VARIANT* result) override { return GetHandler(L"oncopy", result); }
    STDMETHODIMP put_onbeforepaste(VARIANT value) override { return PutHandler(L"onbeforepaste", value); }
    STDMETHODIMP get_onbeforepaste(VARIANT* result) override { return GetHandler(L"onbeforepaste", result); }
    STDMETHODIMP put_onpaste(VARIANT value) override { return PutHandler(L"onpaste", value); }
    STDMETHODIMP get_onpaste(VARIANT* result) override { return GetHandler(L"onpaste", result); }
    STDMETHODIMP get_currentStyle(IHTMLCurrentStyle** result) override {
        return Ask(result, "element => getComputedStyle(element)");
    }
    STDMETHODIMP put_onpropertychange(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onpropertychange(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP getClientRects(IHTMLRectCollection** result) override { return Refuse(result); }
    STDMETHODIMP getBoundingClientRect(IHTMLRect** result) override {
        return CallFor(result, L"getBoundingClientRect");
    }
    STDMETHODIMP setExpression(BSTR, BSTR, BSTR) override { return Refuse(); }
    STDMETHODIMP getExpression(BSTR, VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP removeExpression(BSTR, VARIANT_BOOL*) override { return Refuse(); }
    STDMETHODIMP put_tabIndex(short value) override { return Put(L"tabIndex", LONG{value}); }
    STDMETHODIMP get_tabIndex(short* result) override { return Get(L"tabIndex", result); }
    STDMETHODIMP focus() override { return Call(L"focus"); }
    STDMETHODIMP put_accessKey(BSTR value) override { return Put(L"accessKey", value); }
    STDMETHODIMP get_accessKey(BSTR* result) override { return Get(L"accessKey", result); }
    STDMETHODIMP put_onblur(VARIANT value) override { return PutHandler(L"onblur", value); }
    STDMETHODIMP get_onblur(VARIANT* result) override { return GetHandler(L"onblur", result); }
    STDMETHODIMP put_onfocus(VARIANT value) override { return PutHandler(L"onfocus", value); }
    STDMETHODIMP get_onfocus(VARIANT* result) override { return GetHandler(L"onfocus", result); }
    STDMETHODIMP put_onresize(VARIANT value) override { return PutHandler(L"onresize", value); }
    STDMETHODIMP get_onresize(VARIANT* result) override { return GetHandler(L"onresize", result); }
    STDMETHODIMP blur() override { return Call(L"blur"); }
    STDMETHODIMP addFilter(IUnknown*) override { return Refuse(); }
    STDMETHODIMP removeFilter(IUnknown*) override { return Refuse(); }
    STDMETHODIMP get_clientHeight(LONG* result) override { return Get(L"clientHeight", result); }
    STDMETHODIMP get_clientWidth(LONG* result) override { return Get(L"clientWidth", result); }
    STDMETHODIMP get_clientTop(LONG* result) override { return Get(L"clientTop", result); }
    STDMETHODIMP get_clientLeft(LONG* result) override { return Get(L"clientLeft", result); }
    STDMETHODIMP attachEvent(BSTR event, IDispatch* handler, VARIANT_BOOL* result) override {
        return AttachHandler(event, handler, result);
    }
    STDMETHODIMP detachEvent(BSTR event, IDispatch* handler) override {
        return DetachHandler(event, handler);
    }
    STDMETHODIMP get_readyState(VARIANT* result) override {
        return Ask(result, "element => element.complete === false ? 'loading' : 'complete'");
    }
    STDMETHODIMP put_onreadystatechange(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onreadystatechange(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onrowsdelete(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onrowsdelete(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_onrowsinserted(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onrowsinserted(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_oncellchange(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_oncellchange(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP put_dir(BSTR value) override { return Put(L"dir", value); }
    STDMETHODIMP get_dir(BSTR* result) override { return Get(L"dir", result); }
    STDMETHODIMP createControlRange(IDispatch** result) override { return Refuse(result); }
    STDMETHODIMP get_scrollHeight(LONG* result) override { return Get(L"scrollHeight", result); }
    STDMETHODIMP get_scrollWidth(LONG* result) override { return Get(L"scrollWidth", result); }
    STDMETHODIMP put_scrollTop(LONG value) override { return Put(L"scrollTop", value); }
    STDMETHODIMP get_scrollTop(LONG* result) override { return Get(L"scrollTop", result); }
    STDMETHODIMP put_scrollLeft(LONG value) override { return Put(L"scrollLeft", value); }
    STDMETHODIMP get_scrollLeft(LONG* result) override { return Get(L"scrollLeft", result); }
    STDMETHODIMP clearAttributes() override { return Refuse(); }
    STDMETHODIMP mergeAttributes(IHTMLElement*) override { return Refuse(); }
    STDMETHODIMP put_oncontextmenu(VARIANT value) override { return PutHandler(L"oncontextmenu", value); }
    STDMETHODIMP get_oncontextmenu(VARIANT* result) override { return GetHandler(L"oncontextmenu", result); }
    STDMETHODIMP insertAdjacentElement(BSTR where, IHTMLElement* element, IHTMLElement** result) override {
        return CallFor(result, L"insertAdjacentElement", where, element);
    }
    STDMETHODIMP applyElement(IHTMLElement*, BSTR, IHTMLElement** result) override { return Refuse(result); }
    STDMETHODIMP getAdjacentText(BSTR, BSTR* result) override { return Refuse(result); }
    STDMETHODIMP replaceAdjacentText(BSTR, BSTR, BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_canHaveChildren(VARIANT_BOOL* result) override { return Refuse(result); }
    STDMETHODIMP addBehavior(BSTR, VARIANT*, LONG* result) override { return Refuse(result); }
    STDMETHODIMP removeBehavior(LONG, VARIANT_BOOL* result) override { return Refuse(result); }
    STDMETHODIMP get_runtimeStyle(IHTMLStyle** result) override { return Refuse(result); }
    STDMETHODIMP get_behaviorUrns(IDispatch** result) override { return Refuse(result); }
    STDMETHODIMP put_tagUrn(BSTR) override { return Refuse(); }
    STDMETHODIMP get_tagUrn(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP put_onbeforeeditfocus(VARIANT) override { return Refuse(); }
    STDMETHODIMP get_onbeforeeditfocus(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP get_readyStateValue(LONG* result) override { return Refuse(result); }
    STDMETHODIMP getElementsByTagName(BSTR name, IHTMLElementCollection** result) override {
        return CallFor(result, L"getElementsByTagName", name);
    }

private:
    HRESULT GetAttribute(BSTR name, LONG flags, VARIANT* value);
    HRESULT SetAttribute(BSTR name, const VARIANT& value);
    HRESULT RemoveAttribute(BSTR name, VARIANT_BOOL* result);
};

}  // namespace nux::webbrowser
