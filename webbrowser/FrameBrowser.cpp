#include "webbrowser/FrameBrowser.h"

#include "framework/HResult.h"
#include "framework/Text.h"
#include "webbrowser/WebBrowser.h"

namespace nux::webbrowser {
namespace {

// Numbers of IWebBrowser2.
constexpr DISPID name = 0;
constexpr DISPID topLevelContainer = 204;
constexpr DISPID locationUrl = 211;

}  // namespace

STDMETHODIMP FrameBrowser::GetTypeInfoCount(UINT* count) {
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP FrameBrowser::GetTypeInfo(UINT, LCID, ITypeInfo** typeInfo) {
    if (!typeInfo)
        return E_POINTER;
    *typeInfo = nullptr;
    return DISP_E_BADINDEX;
}

STDMETHODIMP FrameBrowser::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids)
        return E_POINTER;
    return Guarded([&] { return FindMembers(IdOf<IWebBrowser2>(), names, count, ids, &browserLibrary); });
}

STDMETHODIMP FrameBrowser::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                                  EXCEPINFO*, UINT*) {
    const bool isKnown = id == name || id == topLevelContainer || id == locationUrl;
    if (!isKnown || !(flags & DISPATCH_PROPERTYGET))
        return E_NOTIMPL;
    if (!result)
        return S_OK;
    return Guarded([&] {
        VariantInit(result);
        if (id == topLevelContainer) {
            result->boolVal = VARIANT_FALSE;
            result->vt = VT_BOOL;
        } else {
            result->bstrVal = Bstr(id == name ? L"Frame" : address_).Detach();
            result->vt = VT_BSTR;
        }
        return S_OK;
    });
}

}  // namespace nux::webbrowser
