#include "webbrowser/HtmlObjects.h"

#include <string>

namespace nux::webbrowser {

ComPtr<IDispatch> MakeDocumentObject(const PageReference& reference,
                                     const ComPtr<IServiceProvider>& services) {
    switch (reference.Kind()) {
        case PageObjectKind::document:
            return MakeDocument(reference, services);
        case PageObjectKind::window:
            return MakeWindow(reference, services);
        case PageObjectKind::element:
            return MakeElement(reference);
        case PageObjectKind::list:
            return MakeCollection(reference);
        case PageObjectKind::style:
            return MakeStyle(reference);
        case PageObjectKind::event:
            return MakeEvent(reference);
        default:
            break;
    }
    const std::string& name = reference.ClassName();
    if (name == "Location")
        return MakeLocation(reference);
    if (name == "DOMRect")
        return MakeRectangle(reference);
    return nullptr;
}

}  // namespace nux::webbrowser
