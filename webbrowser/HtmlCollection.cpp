#include "webbrowser/HtmlObject.h"
#include "webbrowser/HtmlObjects.h"

namespace nux::webbrowser {
namespace {

/// A list of a page, or an array of elements.
class HtmlCollection : public Extends<HtmlObject, IHTMLElementCollection> {
public:
    using Extends::Extends;

    // IHTMLElementCollection
    STDMETHODIMP toString(BSTR* result) override { return CallFor(result, L"toString"); }
    STDMETHODIMP put_length(LONG) override { return Refuse(); }
    STDMETHODIMP get_length(LONG* result) override { return Get(L"length", result); }
    STDMETHODIMP get__newEnum(IUnknown** result) override { return Enumerate(result); }
    STDMETHODIMP item(VARIANT name, VARIANT index, IDispatch** result) override {
        return Item(name, index, result);
    }
    STDMETHODIMP tags(VARIANT tagName, IDispatch** result) override { return Tags(tagName, result); }

private:
    HRESULT Item(const VARIANT& name, const VARIANT& index, IDispatch** result);
    HRESULT Tags(const VARIANT& tag, IDispatch** result);
};

HRESULT HtmlCollection::Item(const VARIANT& name, const VARIANT& index, IDispatch** result) {
    // Of several with the name there is a collection, or the one with that index.
    return AskForCollection(
        result,
        "(list, name, index) => {"
        "    if (typeof name !== 'string')"
        "        return list[name ?? 0] ?? null;"
        "    const named = Array.from(list).filter(each => each.id === name || each.name === name ||"
        "        each.getAttribute?.('name') === name);"
        "    if (typeof index === 'number')"
        "        return named[index] ?? null;"
        "    return named.length > 1 ? named : named[0] ?? null;"
        "}",
        name, index);
}

HRESULT HtmlCollection::Tags(const VARIANT& tag, IDispatch** result) {
    return AskForCollection(
        result, "(list, tag) => Array.from(list).filter(each => each.tagName === tag.toUpperCase())", tag);
}

}  // namespace

ComPtr<IDispatch> MakeCollection(const PageReference& list) {
    return MakeHtmlObject<HtmlCollection>(list);
}

}  // namespace nux::webbrowser
