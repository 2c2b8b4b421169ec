#include "webbrowser/HtmlObject.h"
#include "webbrowser/HtmlObjects.h"

namespace nux::webbrowser {
namespace {

/// Where a window is.
class HtmlLocation : public Extends<HtmlObject, IHTMLLocation> {
public:
    using Extends::Extends;

    // IHTMLLocation
    STDMETHODIMP put_href(BSTR value) override { return Put(L"href", value); }
    STDMETHODIMP get_href(BSTR* result) override { return Get(L"href", result); }
    STDMETHODIMP put_protocol(BSTR value) override { return Put(L"protocol", value); }
    STDMETHODIMP get_protocol(BSTR* result) override { return Get(L"protocol", result); }
    STDMETHODIMP put_host(BSTR value) override { return Put(L"host", value); }
    STDMETHODIMP get_host(BSTR* result) override { return Get(L"host", result); }
    STDMETHODIMP put_hostname(BSTR value) override { return Put(L"hostname", value); }
    STDMETHODIMP get_hostname(BSTR* result) override { return Get(L"hostname", result); }
    STDMETHODIMP put_port(BSTR value) override { return Put(L"port", value); }
    STDMETHODIMP get_port(BSTR* result) override { return Get(L"port", result); }
    STDMETHODIMP put_pathname(BSTR value) override { return Put(L"pathname", value); }
    STDMETHODIMP get_pathname(BSTR* result) override { return Get(L"pathname", result); }
    STDMETHODIMP put_search(BSTR value) override { return Put(L"search", value); }
    STDMETHODIMP get_search(BSTR* result) override { return Get(L"search", result); }
    STDMETHODIMP put_hash(BSTR value) override { return Put(L"hash", value); }
    STDMETHODIMP get_hash(BSTR* result) override { return Get(L"hash", result); }
    STDMETHODIMP reload(VARIANT_BOOL) override { return Call(L"reload"); }
    STDMETHODIMP replace(BSTR address) override { return Call(L"replace", address); }
    STDMETHODIMP assign(BSTR address) override { return Call(L"assign", address); }
    STDMETHODIMP toString(BSTR* result) override { return CallFor(result, L"toString"); }
};

}  // namespace

ComPtr<IDispatch> MakeLocation(const PageReference& location) {
    return MakeHtmlObject<HtmlLocation>(location);
}

}  // namespace nux::webbrowser
