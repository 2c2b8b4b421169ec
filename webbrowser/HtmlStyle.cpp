#include "webbrowser/HtmlObject.h"
#include "webbrowser/HtmlObjects.h"

namespace nux::webbrowser {
namespace {

/// The style of an element: its own one, or the computed one, which can't be written.
class HtmlStyle : public Extends<HtmlObject, IHTMLStyle, IHTMLCurrentStyle> {
public:
    using Extends::Extends;

    // IHTMLStyle
    STDMETHODIMP put_fontFamily(BSTR value) override { return Put(L"fontFamily", value); }
    STDMETHODIMP get_fontFamily(BSTR* result) override { return Get(L"fontFamily", result); }
    STDMETHODIMP put_fontStyle(BSTR value) override { return Put(L"fontStyle", value); }
    STDMETHODIMP get_fontStyle(BSTR* result) override { return Get(L"fontStyle", result); }
    STDMETHODIMP put_fontVariant(BSTR value) override { return Put(L"fontVariant", value); }
    STDMETHODIMP get_fontVariant(BSTR* result) override { return Get(L"fontVariant", result); }
    STDMETHODIMP put_fontWeight(BSTR value) override { return Put(L"fontWeight", value); }
    STDMETHODIMP get_fontWeight(BSTR* result) override { return Get(L"fontWeight", result); }
    STDMETHODIMP put_fontSize(VARIANT value) override { return PutMeasure(L"fontSize", value); }
    STDMETHODIMP get_fontSize(VARIANT* result) override { return Get(L"fontSize", result); }
    STDMETHODIMP put_font(BSTR value) override { return Put(L"font", value); }
    STDMETHODIMP get_font(BSTR* result) override { return Get(L"font", result); }
    STDMETHODIMP put_color(VARIANT value) override { return PutColour(L"color", value); }
    STDMETHODIMP get_color(VARIANT* result) override { return Get(L"color", result); }
    STDMETHODIMP put_background(BSTR value) override { return Put(L"background", value); }
    STDMETHODIMP get_background(BSTR* result) override { return Get(L"background", result); }
    STDMETHODIMP put_backgroundColor(VARIANT value) override { return PutColour(L"backgroundColor", value); }
    STDMETHODIMP get_backgroundColor(VARIANT* result) override { return Get(L"backgroundColor", result); }
    STDMETHODIMP put_backgroundImage(BSTR value) override { return Put(L"backgroundImage", value); }
    STDMETHODIMP get_backgroundImage(BSTR* result) override { return Get(L"backgroundImage", result); }
    STDMETHODIMP put_backgroundRepeat(BSTR value) override { return Put(L"backgroundRepeat", value); }
    STDMETHODIMP get_backgroundRepeat(BSTR* result) override { return Get(L"backgroundRepeat", result); }
    STDMETHODIMP put_backgroundAttachment(BSTR value) override { return Put(L"backgroundAttachment", value); }
    STDMETHODIMP get_backgroundAttachment(BSTR* result) override {
        return Get(L"backgroundAttachment", result);
    }
    STDMETHODIMP put_backgroundPosition(BSTR value) override { return Put(L"backgroundPosition", value); }
    STDMETHODIMP get_backgroundPosition(BSTR* result) override { return Get(L"backgroundPosition", result); }
    STDMETHODIMP put_backgroundPositionX(VARIANT value) override {
        return PutMeasure(L"backgroundPositionX", value);
    }
    STDMETHODIMP get_backgroundPositionX(VARIANT* result) override {
        return Get(L"backgroundPositionX", result);
    }
    STDMETHODIMP put_backgroundPositionY(VARIANT value) override {
        return PutMeasure(L"backgroundPositionY", value);
    }
    STDMETHODIMP get_backgroundPositionY(VARIANT* result) override {
        return Get(L"backgroundPositionY", result);
    }
    STDMETHODIMP put_wordSpacing(VARIANT value) override { return PutMeasure(L"wordSpacing", value); }
    STDMETHODIMP get_wordSpacing(VARIANT* result) override { return Get(L"wordSpacing", result); }
    STDMETHODIMP put_letterSpacing(VARIANT value) override { return PutMeasure(L"letterSpacing", value); }
    STDMETHODIMP get_letterSpacing(VARIANT* result) override { return Get(L"letterSpacing", result); }
    STDMETHODIMP put_textDecoration(BSTR value) override { return Put(L"textDecoration", value); }
    STDMETHODIMP get_textDecoration(BSTR* result) override { return Get(L"textDecoration", result); }
    STDMETHODIMP put_textDecorationNone(VARIANT_BOOL value) override { return PutDecoration(L"none", value); }
    STDMETHODIMP get_textDecorationNone(VARIANT_BOOL* result) override {
        return GetDecoration(L"none", result);
    }
    STDMETHODIMP put_textDecorationUnderline(VARIANT_BOOL value) override {
        return PutDecoration(L"underline", value);
    }
    STDMETHODIMP get_textDecorationUnderline(VARIANT_BOOL* result) override {
        return GetDecoration(L"underline", result);
    }
    STDMETHODIMP put_textDecorationOverline(VARIANT_BOOL value) override {
        return PutDecoration(L"overline", value);
    }
    STDMETHODIMP get_textDecorationOverline(VARIANT_BOOL* result) override {
        return GetDecoration(L"overline", result);
    }
    STDMETHODIMP put_textDecorationLineThrough(VARIANT_BOOL value) override {
        return PutDecoration(L"line-through", value);
    }
    STDMETHODIMP get_textDecorationLineThrough(VARIANT_BOOL* result) override {
        return GetDecoration(L"line-through", result);
    }
    STDMETHODIMP put_textDecorationBlink(VARIANT_BOOL value) override {
        return PutDecoration(L"blink", value);
    }
    STDMETHODIMP get_textDecorationBlink(VARIANT_BOOL* result) override {
        return GetDecoration(L"blink", result);
    }
    STDMETHODIMP put_verticalAlign(VARIANT value) override { return Put(L"verticalAlign", value); }
    STDMETHODIMP get_verticalAlign(VARIANT* result) override { return Get(L"verticalAlign", result); }
    STDMETHODIMP put_textTransform(BSTR value) override { return Put(L"textTransform", value); }
    STDMETHODIMP get_textTransform(BSTR* result) override { return Get(L"textTransform", result); }
    STDMETHODIMP put_textAlign(BSTR value) override { return Put(L"textAlign", value); }
    STDMETHODIMP get_textAlign(BSTR* result) override { return Get(L"textAlign", result); }
    STDMETHODIMP put_textIndent(VARIANT value) override { return PutMeasure(L"textIndent", value); }
    STDMETHODIMP get_textIndent(VARIANT* result) override { return Get(L"textIndent", result); }
    STDMETHODIMP put_lineHeight(VARIANT value) override { return Put(L"lineHeight", value); }
    STDMETHODIMP get_lineHeight(VARIANT* result) override { return Get(L"lineHeight", result); }
    STDMETHODIMP put_marginTop(VARIANT value) override { return PutMeasure(L"marginTop", value); }
    STDMETHODIMP get_marginTop(VARIANT* result) override { return Get(L"marginTop", result); }
    STDMETHODIMP put_marginRight(VARIANT value) override { return PutMeasure(L"marginRight", value); }
    STDMETHODIMP get_marginRight(VARIANT* result) override { return Get(L"marginRight", result); }
    STDMETHODIMP put_marginBottom(VARIANT value) override { return PutMeasure(L"marginBottom", value); }
    STDMETHODIMP get_marginBottom(VARIANT* result) override { return Get(L"marginBottom", result); }
    STDMETHODIMP put_marginLeft(VARIANT value) override { return PutMeasure(L"marginLeft", value); }
    STDMETHODIMP get_marginLeft(VARIANT* result) override { return Get(L"marginLeft", result); }
    STDMETHODIMP put_margin(BSTR value) override { return Put(L"margin", value); }
    STDMETHODIMP get_margin(BSTR* result) override { return Get(L"margin", result); }
    STDMETHODIMP put_paddingTop(VARIANT value) override { return PutMeasure(L"paddingTop", value); }
    STDMETHODIMP get_paddingTop(VARIANT* result) override { return Get(L"paddingTop", result); }
    STDMETHODIMP put_paddingRight(VARIANT value) override { return PutMeasure(L"paddingRight", value); }
    STDMETHODIMP get_paddingRight(VARIANT* result) override { return Get(L"paddingRight", result); }
    STDMETHODIMP put_paddingBottom(VARIANT value) override { return PutMeasure(L"paddingBottom", value); }
    STDMETHODIMP get_paddingBottom(VARIANT* result) override { return Get(L"paddingBottom", result); }
    STDMETHODIMP put_paddingLeft(VARIANT value) override { return PutMeasure(L"paddingLeft", value); }
    STDMETHODIMP get_paddingLeft(VARIANT* result) override { return Get(L"paddingLeft", result); }
    STDMETHODIMP put_padding(BSTR value) override { return Put(L"padding", value); }
    STDMETHODIMP get_padding(BSTR* result) override { return Get(L"padding", result); }
    STDMETHODIMP put_border(BSTR value) override { return Put(L"border", value); }
    STDMETHODIMP get_border(BSTR* result) override { return Get(L"border", result); }
    STDMETHODIMP put_borderTop(BSTR value) override { return Put(L"borderTop", value); }
    STDMETHODIMP get_borderTop(BSTR* result) override { return Get(L"borderTop", result); }
    STDMETHODIMP put_borderRight(BSTR value) override { return Put(L"borderRight", value); }
    STDMETHODIMP get_borderRight(BSTR* result) override { return Get(L"borderRight", result); }
    STDMETHODIMP put_borderBottom(BSTR value) override { return Put(L"borderBottom", value); }
    STDMETHODIMP get_borderBottom(BSTR* result) override { return Get(L"borderBottom", result); }
    STDMETHODIMP put_borderLeft(BSTR value) override { return Put(L"borderLeft", value); }
    STDMETHODIMP get_borderLeft(BSTR* result) override { return Get(L"borderLeft", result); }
    STDMETHODIMP put_borderColor(BSTR value) override { return Put(L"borderColor", value); }
    STDMETHODIMP get_borderColor(BSTR* result) override { return Get(L"borderColor", result); }
    STDMETHODIMP put_borderTopColor(VARIANT value) override { return PutColour(L"borderTopColor", value); }
    STDMETHODIMP get_borderTopColor(VARIANT* result) override { return Get(L"borderTopColor", result); }
    STDMETHODIMP put_borderRightColor(VARIANT value) override {
        return PutColour(L"borderRightColor", value);
    }
    STDMETHODIMP get_borderRightColor(VARIANT* result) override { return Get(L"borderRightColor", result); }
    STDMETHODIMP put_borderBottomColor(VARIANT value) override {
        return PutColour(L"borderBottomColor", value);
    }
    STDMETHODIMP get_borderBottomColor(VARIANT* result) override { return Get(L"borderBottomColor", result); }
    STDMETHODIMP put_borderLeftColor(VARIANT value) override { return PutColour(L"borderLeftColor", value); }
    STDMETHODIMP get_borderLeftColor(VARIANT* result) override { return Get(L"borderLeftColor", result); }
    STDMETHODIMP put_borderWidth(BSTR value) override { return Put(L"borderWidth", value); }
    STDMETHODIMP get_borderWidth(BSTR* result) override { return Get(L"borderWidth", result); }
    STDMETHODIMP put_borderTopWidth(VARIANT value) override { return PutMeasure(L"borderTopWidth", value); }
    STDMETHODIMP get_borderTopWidth(VARIANT* result) override { return Get(L"borderTopWidth", result); }
    STDMETHODIMP put_borderRightWidth(VARIANT value) override {
        return PutMeasure(L"borderRightWidth", value);
    }
    STDMETHODIMP get_borderRightWidth(VARIANT* result) override { return Get(L"borderRightWidth", result); }
    STDMETHODIMP put_borderBottomWidth(VARIANT value) override {
        return PutMeasure(L"borderBottomWidth", value);
    }
    STDMETHODIMP get_borderBottomWidth(VARIANT* result) override { return Get(L"borderBottomWidth", result); }
    STDMETHODIMP put_borderLeftWidth(VARIANT value) override { return PutMeasure(L"borderLeftWidth", value); }
    STDMETHODIMP get_borderLeftWidth(VARIANT* result) override { return Get(L"borderLeftWidth", result); }
    STDMETHODIMP put_borderStyle(BSTR value) override { return Put(L"borderStyle", value); }
    STDMETHODIMP get_borderStyle(BSTR* result) override { return Get(L"borderStyle", result); }
    STDMETHODIMP put_borderTopStyle(BSTR value) override { return Put(L"borderTopStyle", value); }
    STDMETHODIMP get_borderTopStyle(BSTR* result) override { return Get(L"borderTopStyle", result); }
    STDMETHODIMP put_borderRightStyle(BSTR value) override { return Put(L"borderRightStyle", value); }
    STDMETHODIMP get_borderRightStyle(BSTR* result) override { return Get(L"borderRightStyle", result); }
    STDMETHODIMP put_borderBottomStyle(BSTR value) override { return Put(L"borderBottomStyle", value); }
    STDMETHODIMP get_borderBottomStyle(BSTR* result) override { return Get(L"borderBottomStyle", result); }
    STDMETHODIMP put_borderLeftStyle(BSTR value) override { return Put(L"borderLeftStyle", value); }
    STDMETHODIMP get_borderLeftStyle(BSTR* result) override { return Get(L"borderLeftStyle", result); }
    STDMETHODIMP put_width(VARIANT value) override { return PutMeasure(L"width", value); }
    STDMETHODIMP get_width(VARIANT* result) override { return Get(L"width", result); }
    STDMETHODIMP put_height(VARIANT value) override { return PutMeasure(L"height", value); }
    STDMETHODIMP get_height(VARIANT* result) override { return Get(L"height", result); }
    STDMETHODIMP put_styleFloat(BSTR value) override { return Put(L"cssFloat", value); }
    STDMETHODIMP get_styleFloat(BSTR* result) override { return Get(L"cssFloat", result); }
    STDMETHODIMP put_clear(BSTR value) override { return Put(L"clear", value); }
    STDMETHODIMP get_clear(BSTR* result) override { return Get(L"clear", result); }
    STDMETHODIMP put_display(BSTR value) override { return Put(L"display", value); }
    STDMETHODIMP get_display(BSTR* result) override { return Get(L"display", result); }
    STDMETHODIMP put_visibility(BSTR value) override { return Put(L"visibility", value); }
    STDMETHODIMP get_visibility(BSTR* result) override { return Get(L"visibility", result); }
    STDMETHODIMP put_listStyleType(BSTR value) override { return Put(L"listStyleType", value); }
    STDMETHODIMP get_listStyleType(BSTR* result) override { return Get(L"listStyleType", result); }
    STDMETHODIMP put_listStylePosition(BSTR value) override { return Put(L"listStylePosition", value); }
    STDMETHODIMP get_listStylePosition(BSTR* result) override { return Get(L"listStylePosition", result); }
    STDMETHODIMP put_listStyleImage(BSTR value) override { return Put(L"listStyleImage", value); }
    STDMETHODIMP get_listStyleImage(BSTR* result) override { return Get(L"listStyleImage", result); }
    STDMETHODIMP put_listStyle(BSTR value) override { return Put(L"listStyle", value); }
    STDMETHODIMP get_listStyle(BSTR* result) override { return Get(L"listStyle", result); }
    STDMETHODIMP put_whiteSpace(BSTR value) override { return Put(L"whiteSpace", value); }
    STDMETHODIMP get_whiteSpace(BSTR* result) override { return Get(L"whiteSpace", result); }
    STDMETHODIMP put_top(VARIANT value) override { return PutMeasure(L"top", value); }
    STDMETHODIMP get_top(VARIANT* result) override { return Get(L"top", result); }
    STDMETHODIMP put_left(VARIANT value) override { return PutMeasure(L"left", value); }
    STDMETHODIMP get_left(VARIANT* result) override { return Get(L"left", result); }
    STDMETHODIMP get_position(BSTR* result) override { return Get(L"position", result); }
    STDMETHODIMP put_zIndex(VARIANT value) override { return Put(L"zIndex", value); }
    STDMETHODIMP get_zIndex(VARIANT* result) override { return GetLayer(result); }
    STDMETHODIMP put_overflow(BSTR value) override { return Put(L"overflow", value); }
    STDMETHODIMP get_overflow(BSTR* result) override { return Get(L"overflow", result); }
    STDMETHODIMP put_pageBreakBefore(BSTR value) override { return Put(L"pageBreakBefore", value); }
    STDMETHODIMP get_pageBreakBefore(BSTR* result) override { return Get(L"pageBreakBefore", result); }
    STDMETHODIMP put_pageBreakAfter(BSTR value) override { return Put(L"pageBreakAfter", value); }
    STDMETHODIMP get_pageBreakAfter(BSTR* result) override { return Get(L"pageBreakAfter", result); }
    STDMETHODIMP put_cssText(BSTR value) override { return Put(L"cssText", value); }
    STDMETHODIMP get_cssText(BSTR* result) override { return Get(L"cssText", result); }
    STDMETHODIMP put_pixelTop(LONG value) override { return PutPixels(L"top", value); }
    STDMETHODIMP get_pixelTop(LONG* result) override { return GetPixels(L"top", result); }
    STDMETHODIMP put_pixelLeft(LONG value) override { return PutPixels(L"left", value); }
    STDMETHODIMP get_pixelLeft(LONG* result) override { return GetPixels(L"left", result); }
    STDMETHODIMP put_pixelWidth(LONG value) override { return PutPixels(L"width", value); }
    STDMETHODIMP get_pixelWidth(LONG* result) override { return GetPixels(L"width", result); }
    STDMETHODIMP put_pixelHeight(LONG value) override { return PutPixels(L"height", value); }
    STDMETHODIMP get_pixelHeight(LONG* result) override { return GetPixels(L"height", result); }
    STDMETHODIMP put_posTop(float value) override { return PutPixels(L"top", value); }
    STDMETHODIMP get_posTop(float* result) override { return GetPixels(L"top", result); }
    STDMETHODIMP put_posLeft(float value) override { return PutPixels(L"left", value); }
    STDMETHODIMP get_posLeft(float* result) override { return GetPixels(L"left", result); }
    STDMETHODIMP put_posWidth(float value) override { return PutPixels(L"width", value); }
    STDMETHODIMP get_posWidth(float* result) override { return GetPixels(L"width", result); }
    STDMETHODIMP put_posHeight(float value) override { return PutPixels(L"height", value); }
    STDMETHODIMP get_posHeight(float* result) override { return GetPixels(L"height", result); }
    STDMETHODIMP put_cursor(BSTR value) override { return Put(L"cursor", value); }
    STDMETHODIMP get_cursor(BSTR* result) override { return Get(L"cursor", result); }
    STDMETHODIMP put_clip(BSTR value) override { return Put(L"clip", value); }
    STDMETHODIMP get_clip(BSTR* result) override { return Get(L"clip", result); }
    STDMETHODIMP put_filter(BSTR) override { return Refuse(); }
    STDMETHODIMP get_filter(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP setAttribute(BSTR name, VARIANT value, LONG) override { return PutMeasure(name, value); }
    STDMETHODIMP getAttribute(BSTR name, LONG, VARIANT* value) override {
        return Ask(value, "(style, name) => style[name]", name);
    }
    STDMETHODIMP removeAttribute(BSTR name, LONG, VARIANT_BOOL* result) override {
        return RemoveAttribute(name, result);
    }
    STDMETHODIMP toString(BSTR* result) override { return CallFor(result, L"toString"); }

    // IHTMLCurrentStyle: what IHTMLStyle hasn't in the same form
    STDMETHODIMP get_fontWeight(VARIANT* result) override { return Get(L"fontWeight", result); }
    STDMETHODIMP get_clipTop(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP get_clipRight(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP get_clipBottom(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP get_clipLeft(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP get_tableLayout(BSTR* result) override { return Get(L"tableLayout", result); }
    STDMETHODIMP get_borderCollapse(BSTR* result) override { return Get(L"borderCollapse", result); }
    STDMETHODIMP get_direction(BSTR* result) override { return Get(L"direction", result); }
    STDMETHODIMP get_behavior(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_unicodeBidi(BSTR* result) override { return Get(L"unicodeBidi", result); }
    STDMETHODIMP get_right(VARIANT* result) override { return Get(L"right", result); }
    STDMETHODIMP get_bottom(VARIANT* result) override { return Get(L"bottom", result); }
    STDMETHODIMP get_imeMode(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_rubyAlign(BSTR* result) override { return Get(L"rubyAlign", result); }
    STDMETHODIMP get_rubyPosition(BSTR* result) override { return Get(L"rubyPosition", result); }
    STDMETHODIMP get_rubyOverhang(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_textAutospace(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_lineBreak(BSTR* result) override { return Get(L"lineBreak", result); }
    STDMETHODIMP get_wordBreak(BSTR* result) override { return Get(L"wordBreak", result); }
    STDMETHODIMP get_textJustify(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_textJustifyTrim(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_textKashida(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP get_blockDirection(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_layoutGridChar(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP get_layoutGridLine(VARIANT* result) override { return Refuse(result); }
    STDMETHODIMP get_layoutGridMode(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_layoutGridType(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_accelerator(BSTR* result) override { return Refuse(result); }
    STDMETHODIMP get_overflowX(BSTR* result) override { return Get(L"overflowX", result); }
    STDMETHODIMP get_overflowY(BSTR* result) override { return Get(L"overflowY", result); }

private:
    /// A length: a number means pixels.
    template <class Name>
    HRESULT PutMeasure(Name name, const VARIANT& value) {
        return Run(
            "(style, name, value) => { style[name] = typeof value === 'number' ? value + 'px' : value; }",
            name, value);
    }
    /// A colour: a number is 0xRRGGBB.
    HRESULT PutColour(const wchar_t* name, const VARIANT& value) {
        return Run(
            "(style, name, value) => {"
            "    style[name] = typeof value === 'number' ? '#' + value.toString(16).padStart(6, '0') : value;"
            "}",
            name, value);
    }
    template <class Number>
    HRESULT PutPixels(const wchar_t* name, Number value) {
        return Run("(style, name, value) => { style[name] = value + 'px'; }", name, value);
    }
    template <class Number>
    HRESULT GetPixels(const wchar_t* name, Number* result) {
        return Ask(result, "(style, name) => parseFloat(style[name]) || 0", name);
    }
    /// One of the words of textDecoration.
    HRESULT PutDecoration(const wchar_t* word, VARIANT_BOOL value) {
        const LONG isSet = value;
        return Run(
            "(style, word, isSet) => {"
            "    const others = style.textDecorationLine.split(' ').filter(each => each !== word && each !== "
            "'none');"
            "    style.textDecoration = !isSet ? others.join(' ') : word === 'none' ? word : [...others, "
            "word].join(' ');"
            "}",
            word, isSet);
    }
    HRESULT GetDecoration(const wchar_t* word, VARIANT_BOOL* result) {
        return Ask(result, "(style, word) => style.textDecorationLine.split(' ').includes(word)", word);
    }
    /// zIndex, as a number where it is one.
    HRESULT GetLayer(VARIANT* result) {
        return Ask(result, "({zIndex}) => isNaN(zIndex) ? zIndex : Number(zIndex)");
    }
    HRESULT RemoveAttribute(BSTR name, VARIANT_BOOL* result) {
        return Ask(result,
                   "(style, name) => {"
                   "    const has = style[name] !== undefined && style[name] !== '';"
                   "    style[name] = '';"
                   "    return has;"
                   "}",
                   name);
    }
};

}  // namespace

ComPtr<IDispatch> MakeStyle(const PageReference& style) {
    return MakeHtmlObject<HtmlStyle>(style);
}

}  // namespace nux::webbrowser
