#include "control/ControlInformation.h"

#include <mshtml.h>

#include "environment/InstallationPaths.h"
#include "framework/Text.h"
#include "framework/TypeLibrary.h"

namespace nux {
namespace {

/// The URL of the document that a site belongs to.
/// @return false if the site belongs to no document
bool FindDocument(IOleClientSite* site, std::wstring& url) {
    ComPtr<IOleContainer> container;
    if (!site || site->GetContainer(container.Receive()) != S_OK)
        return false;
    const ComPtr<IHTMLDocument2> document = container.As<IHTMLDocument2>();
    if (!document)
        return false;
    Bstr text;
    document->get_URL(text.Receive());
    url = text.View();
    return true;
}

}  // namespace

STDMETHODIMP ControlInformation::GetPages(CAUUID* pages) {
    if (!pages)
        return E_POINTER;
    *pages = {};
    return S_OK;
}

STDMETHODIMP ControlInformation::GetClassInfo(ITypeInfo** typeInfo) {
    if (!typeInfo)
        return E_POINTER;
    *typeInfo = nullptr;
    return Guarded([&] {
        *typeInfo = TypeInfoOf(GetIdentity().classId).Detach();
        return S_OK;
    });
}

STDMETHODIMP ControlInformation::GetGUID(DWORD kind, GUID* guid) {
    if (!guid)
        return E_POINTER;
    *guid = {};
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID)
        return E_INVALIDARG;
    *guid = GetIdentity().eventInterface;
    return S_OK;
}

DWORD ControlInformation::SupportedSafety() const {
    // A page from elsewhere can't make the object do what a page of the installation may: write any file.
    std::wstring url;
    const ComPtr<IOleClientSite> site = site_;
    if (FindDocument(site.Get(), url) && !IsOfInstallation(url))
        return 0;
    return INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;
}

STDMETHODIMP ControlInformation::GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) {
    if (!supported || !enabled)
        return E_POINTER;
    *supported = *enabled = 0;
    return Guarded([&] {
        const ComPtr<IObjectSafety> self(this);
        ComPtr<IUnknown> offered;
        const HRESULT result = self->QueryInterface(iid, offered.ReceiveVoid());
        if (SUCCEEDED(result)) {
            *supported = SupportedSafety();
            *enabled = safety_ & *supported;
        }
        return result;
    });
}

STDMETHODIMP ControlInformation::SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) {
    return Guarded([&]() -> HRESULT {
        const ComPtr<IObjectSafety> self(this);
        ComPtr<IUnknown> offered;
        const HRESULT result = self->QueryInterface(iid, offered.ReceiveVoid());
        if (FAILED(result))
            return result;
        if (mask & ~SupportedSafety())
            return E_FAIL;
        safety_ = (safety_ & ~mask) | (enabled & mask);
        return S_OK;
    });
}

}  // namespace nux
