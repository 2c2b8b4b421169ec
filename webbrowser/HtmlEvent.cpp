#include "webbrowser/HtmlObject.h"
#include "webbrowser/HtmlObjects.h"

namespace nux::webbrowser {
namespace {

/// What happened.
class HtmlEvent : public Extends<HtmlObject, IHTMLEventObj> {
public:
    using Extends::Extends;

    // IHTMLEventObj
    STDMETHODIMP get_srcElement(IHTMLElement** result) override { return GetElement(L"srcElement", result); }
    STDMETHODIMP get_altKey(VARIANT_BOOL* result) override { return Get(L"altKey", result); }
    STDMETHODIMP get_ctrlKey(VARIANT_BOOL* result) override { return Get(L"ctrlKey", result); }
    STDMETHODIMP get_shiftKey(VARIANT_BOOL* result) override { return Get(L"shiftKey", result); }
    STDMETHODIMP put_returnValue(VARIANT value) override { return Put(L"returnValue", value); }
    STDMETHODIMP get_returnValue(VARIANT* result) override { return Get(L"returnValue", result); }
    STDMETHODIMP put_cancelBubble(VARIANT_BOOL value) override { return PutTruth(L"cancelBubble", value); }
    STDMETHODIMP get_cancelBubble(VARIANT_BOOL* result) override { return Get(L"cancelBubble", result); }
    STDMETHODIMP get_fromElement(IHTMLElement** result) override {
        return GetElement(L"fromElement", result);
    }
    STDMETHODIMP get_toElement(IHTMLElement** result) override { return GetElement(L"toElement", result); }
    STDMETHODIMP put_keyCode(LONG) override { return Refuse(); }
    STDMETHODIMP get_keyCode(LONG* result) override { return Get(L"keyCode", result); }
    STDMETHODIMP get_button(LONG* result) override { return GetButton(result); }
    STDMETHODIMP get_type(BSTR* result) override { return Get(L"type", result); }
    STDMETHODIMP get_qualifier(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_reason(LONG* result) override { return Refuse(result); }
    STDMETHODIMP get_x(LONG* result) override { return Get(L"x", result); }
    STDMETHODIMP get_y(LONG* result) override { return Get(L"y", result); }
    STDMETHODIMP get_clientX(LONG* result) override { return Get(L"clientX", result); }
    STDMETHODIMP get_clientY(LONG* result) override { return Get(L"clientY", result); }
    STDMETHODIMP get_offsetX(LONG* result) override { return Get(L"offsetX", result); }
    STDMETHODIMP get_offsetY(LONG* result) override { return Get(L"offsetY", result); }
    STDMETHODIMP get_screenX(LONG* result) override { return Get(L"screenX", result); }
    STDMETHODIMP get_screenY(LONG* result) override { return Get(L"screenY", result); }
    STDMETHODIMP get_srcFilter(IDispatch** result) override { return Refuse(result); }

private:
    /// The button that went down or up, or those that are down while the pointer moves: 1 left, 2 right, 4
    /// middle.
    HRESULT GetButton(LONG* result) {
        return Ask(result,
                   "({type, button, buttons}) => /^mouse(down|up)$/.test(type) ? [1, 4, 2][button] ?? 0 :"
                   "    type === 'mousemove' ? buttons : 0");
    }
    /// An element, null for the window or the document.
    HRESULT GetElement(const wchar_t* name, IHTMLElement** result) {
        return Ask(result, "(event, name) => event[name]?.nodeType === 1 ? event[name] : null", name);
    }
};

}  // namespace

ComPtr<IDispatch> MakeEvent(const PageReference& event) {
    return MakeHtmlObject<HtmlEvent>(event);
}

}  // namespace nux::webbrowser
