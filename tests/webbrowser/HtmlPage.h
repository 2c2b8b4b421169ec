#pragma once

#include <windows.h>

#include <mshtml.h>

#include <initializer_list>
#include <string>

#include "framework/ComPtr.h"
#include "framework/Variant.h"
#include "tests/webbrowser/OpenedPage.h"
#include "webbrowser/HtmlObject.h"
#include "webbrowser/HtmlObjects.h"

namespace nux::webbrowser {

/// A page whose objects have the platform's interfaces.
class HtmlPage : public OpenedPage {
public:
    using OpenedPage::OpenedPage;

    ComPtr<IDispatch> MakeObject(const PageReference& reference) override {
        return MakeDocumentObject(reference);
    }

    ComPtr<IHTMLDocument2> Document() const { return page->ObjectOf(page->Document()).As<IHTMLDocument2>(); }
    ComPtr<IHTMLWindow2> Window() const { return page->ObjectOf(page->Window()).As<IHTMLWindow2>(); }
    /// The value of an expression of the page, as an object with that interface.
    template <class Interface>
    ComPtr<Interface> Object(const std::string& expression) const {
        return page->ObjectOf(page->CallForObject("() => " + expression)).As<Interface>();
    }
};

/// The text that a member gives, "failed" with its code in hexadecimal digits if it fails.
template <class Interface>
std::wstring TextOf(const ComPtr<Interface>& object, HRESULT (STDMETHODCALLTYPE Interface::*get)(BSTR*)) {
    Bstr text;
    const HRESULT result = (object.Get()->*get)(text.Receive());
    wchar_t failure[32];
    swprintf(failure, 32, L"failed %08lx", static_cast<unsigned long>(result));
    return FAILED(result) ? std::wstring(failure) : std::wstring(text.View());
}

/// The number that a member gives, -1 if it fails.
template <class Interface>
LONG NumberOf(const ComPtr<Interface>& object, HRESULT (STDMETHODCALLTYPE Interface::*get)(LONG*)) {
    LONG number = 0;
    return SUCCEEDED((object.Get()->*get)(&number)) ? number : -1;
}

/// What a client without the interfaces does: the member is found by its name and called.
/// @param flags      DISPATCH_ flags
/// @param arguments  in the order in which a script writes them
HRESULT ByName(IDispatch* object, const wchar_t* name, WORD flags, std::initializer_list<Variant> arguments,
               Variant* result = nullptr);

/// The value of a property by its name, as text; "failed" if there is none.
std::wstring TextByName(IDispatch* object, const wchar_t* name);

Variant TextValue(std::wstring_view text);

}  // namespace nux::webbrowser
