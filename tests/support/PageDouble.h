#pragma once

#include <windows.h>

#include <mshtml.h>

#include <string>
#include <utility>

#include "tests/support/HostDouble.h"

namespace nux {

/// Stands for the document of a page that contains a control: it knows its URL.
class PageDouble : public CalledByNumber<IHTMLDocument2>, public IOleContainer {
public:
    explicit PageDouble(std::wstring url) : url_(std::move(url)) {}
    virtual ~PageDouble() = default;

    STDMETHODIMP get_URL(BSTR* url) override {
        *url = Bstr(url_).Detach();
        return S_OK;
    }

    STDMETHODIMP ParseDisplayName(IBindCtx*, LPOLESTR, ULONG*, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP EnumObjects(DWORD, IEnumUnknown**) override { return E_NOTIMPL; }
    STDMETHODIMP LockContainer(WINBOOL) override { return E_NOTIMPL; }

    STDMETHODIMP get_Script(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP get_all(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_body(IHTMLElement**) override { return E_NOTIMPL; }
    STDMETHODIMP get_activeElement(IHTMLElement**) override { return E_NOTIMPL; }
    STDMETHODIMP get_images(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_applets(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_links(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_forms(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_anchors(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP put_title(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_title(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_scripts(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP put_designMode(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_designMode(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_selection(IHTMLSelectionObject**) override { return E_NOTIMPL; }
    STDMETHODIMP get_readyState(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_frames(IHTMLFramesCollection2**) override { return E_NOTIMPL; }
    STDMETHODIMP get_embeds(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP get_plugins(IHTMLElementCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP put_alinkColor(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_alinkColor(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_bgColor(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_bgColor(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_fgColor(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_fgColor(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_linkColor(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_linkColor(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_vlinkColor(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_vlinkColor(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_referrer(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_location(IHTMLLocation**) override { return E_NOTIMPL; }
    STDMETHODIMP get_lastModified(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_URL(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP put_domain(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_domain(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_cookie(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_cookie(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_expando(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_expando(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_charset(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_charset(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_defaultCharset(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_defaultCharset(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_mimeType(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_fileSize(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_fileCreatedDate(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_fileModifiedDate(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_fileUpdatedDate(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_security(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_protocol(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_nameProp(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP write(SAFEARRAY*) override { return E_NOTIMPL; }
    STDMETHODIMP writeln(SAFEARRAY*) override { return E_NOTIMPL; }
    STDMETHODIMP open(BSTR, VARIANT, VARIANT, VARIANT, IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP close() override { return E_NOTIMPL; }
    STDMETHODIMP clear() override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandSupported(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandEnabled(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandState(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandIndeterm(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandText(BSTR, BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP queryCommandValue(BSTR, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP execCommand(BSTR, VARIANT_BOOL, VARIANT, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP execCommandShowHelp(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP createElement(BSTR, IHTMLElement**) override { return E_NOTIMPL; }
    STDMETHODIMP put_onhelp(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onhelp(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onclick(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onclick(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ondblclick(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_ondblclick(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onkeyup(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onkeyup(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onkeydown(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onkeydown(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onkeypress(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onkeypress(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmouseup(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmouseup(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmousedown(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmousedown(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmousemove(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmousemove(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmouseout(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmouseout(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onmouseover(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onmouseover(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onreadystatechange(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onreadystatechange(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onafterupdate(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onafterupdate(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onrowexit(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onrowexit(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onrowenter(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onrowenter(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ondragstart(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_ondragstart(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onselectstart(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onselectstart(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP elementFromPoint(LONG, LONG, IHTMLElement**) override { return E_NOTIMPL; }
    STDMETHODIMP get_parentWindow(IHTMLWindow2**) override { return E_NOTIMPL; }
    STDMETHODIMP get_styleSheets(IHTMLStyleSheetsCollection**) override { return E_NOTIMPL; }
    STDMETHODIMP put_onbeforeupdate(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onbeforeupdate(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_onerrorupdate(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_onerrorupdate(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP toString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP createStyleSheet(BSTR, LONG, IHTMLStyleSheet**) override { return E_NOTIMPL; }

protected:
    void* FindInterface(REFIID iid) noexcept {
        if (iid == IID_IUnknown || iid == IID_IOleContainer)
            return static_cast<IOleContainer*>(this);
        return iid == IID_IHTMLDocument2 ? static_cast<IHTMLDocument2*>(this) : nullptr;
    }

private:
    std::wstring url_;
};

}  // namespace nux
