#include "webbrowser/HtmlObject.h"
#include "webbrowser/HtmlObjects.h"

namespace nux::webbrowser {
namespace {

/// Where an element was, in pixels of the view. It doesn't follow the element.
class HtmlRectangle : public Extends<HtmlObject, IHTMLRect> {
public:
    using Extends::Extends;

    // IHTMLRect
    STDMETHODIMP put_left(LONG) override { return Refuse(); }
    STDMETHODIMP get_left(LONG* result) override { return Get(L"left", result); }
    STDMETHODIMP put_top(LONG) override { return Refuse(); }
    STDMETHODIMP get_top(LONG* result) override { return Get(L"top", result); }
    STDMETHODIMP put_right(LONG) override { return Refuse(); }
    STDMETHODIMP get_right(LONG* result) override { return Get(L"right", result); }
    STDMETHODIMP put_bottom(LONG) override { return Refuse(); }
    STDMETHODIMP get_bottom(LONG* result) override { return Get(L"bottom", result); }
};

}  // namespace

ComPtr<IDispatch> MakeRectangle(const PageReference& rectangle) {
    return MakeHtmlObject<HtmlRectangle>(rectangle);
}

}  // namespace nux::webbrowser
