// The current component: a part of a catalogue, and the one of the model that is being edited.

#include <optional>
#include <utility>

#include "control/OutArguments.h"
#include "control/nuxStdParts.h"
#include "environment/InstallationFiles.h"
#include "environment/Localisation.h"
#include "environment/Paths.h"
#include "environment/XMLAccess.h"

namespace nux {
namespace {

/// A named value of the host's edited component, or nothing if it can't tell.
std::optional<std::string> ValueOf(InuxEditedComponent* edited, const wchar_t* name) {
    Bstr value;
    if (FAILED(edited->GetValue(Bstr(name).Get(), value.Receive())))
        return std::nullopt;
    return Narrow(value.Get());
}

HRESULT NavigateBrowser(IWebBrowser2* browser, const Bstr& url) {
    Variant none[4];
    return browser->Navigate(url.Get(), none[0].Receive(), none[1].Receive(), none[2].Receive(),
                             none[3].Receive());
}

}  // namespace

void nuxStdParts::FailEditedComponent(const char* messageId) {
    ShowError(messageId);
    LoadDefaultPage();
    throw HResultError(E_FAIL, Widen(messageId));
}

STDMETHODIMP nuxStdParts::SetEditedComponent(VARIANT EditedComponent, long fReload) {
    return Operation([&] {
        // The old component isn't told that it is closed: the host does that when it sets another.
        if (EditedComponent.vt != VT_DISPATCH || !EditedComponent.pdispVal) {
            m_ComponentNode.Reset();
            m_EditedComponent.Reset();
            LoadDefaultPage();
            return;
        }
        const ComPtr<IDispatch> given(EditedComponent.pdispVal);
        m_EditedComponent.Reset();
        const ComPtr<InuxEditedComponent> edited = given.As<InuxEditedComponent>();
        if (!edited)
            throw HResultError(E_INVALIDARG,
                               L"The object is no edited component: it does not offer InuxEditedComponent.");
        if (fReload)
            OpenEditedComponent(edited);
        else
            m_EditedComponent = edited;
    });
}

void nuxStdParts::OpenEditedComponent(const ComPtr<InuxEditedComponent>& edited) {
    m_ComponentNode.Reset();
    const auto catalogue = ValueOf(edited.Get(), L"Catalog");
    const auto id = ValueOf(edited.Get(), L"ID");
    const ComPtr<IXMLDOMNode> node = catalogue && id ? FindComponentNode(*catalogue, *id) : nullptr;
    if (!node)
        FailEditedComponent("Cannot find a html page of the component!");
    const std::string geometry = GetChildNodeText(node.Get(), "Geometry");
    if (catalogue->empty() || geometry.empty())
        FailEditedComponent("Cannot get a geometry file of the component!");
    const std::string url = ComponentPageURL(m_CatalogPath, *catalogue, geometry);
    const Bstr address(url,
                       CP_THREAD_ACP);  // what can fail for want of memory does so before anything is kept

    m_EditedComponent = edited;
    m_ComponentNode = node;
    m_ComponentState = 0;
    const ComPtr<IWebBrowser2> browser = m_Browser;
    if (!browser)
        return;
    const bool exists = URLTargetExists(url);
    if (exists && SUCCEEDED(NavigateBrowser(browser.Get(), address)))
        return;
    m_EditedComponent.Reset();
    m_ComponentNode.Reset();
    if (!exists)
        FailEditedComponent("Cannot find the html page!");
    ShowError("Out of memory!");  // without the default page, which would fail alike
    throw HResultError(E_FAIL, L"The browser could not open the page of the component.");
}

void nuxStdParts::LoadComponent(std::string catalogId, std::string componentId) {
    m_ComponentNode.Reset();
    CloseEditedComponent();
    const ComPtr<IXMLDOMNode> node = FindComponentNode(catalogId, componentId);
    if (GetChildNodeText(node.Get(), "Geometry").empty()) {
        ShowError("Cannot get a geometry file of the component!");
        LoadDefaultPage();
        return;
    }
    m_ComponentNode = node;
    m_CatalogID = std::move(catalogId);
    m_ComponentID = std::move(componentId);
}

STDMETHODIMP nuxStdParts::GetComponent(BSTR CatalogID, BSTR ComponentID) {
    // S_OK whatever comes of it: scripts look at CatalogID and ComponentID.
    return Operation([&] { LoadComponent(Narrow(CatalogID), Narrow(ComponentID)); });
}

STDMETHODIMP nuxStdParts::get_EditedComponent(IDispatch** pVal) {
    return Operation([&] { return HandOut(m_EditedComponent, pVal); });
}

STDMETHODIMP nuxStdParts::get_CatalogID(BSTR* pVal) {
    return GetText(m_CatalogID, pVal);
}

STDMETHODIMP nuxStdParts::get_ComponentID(BSTR* pVal) {
    return GetText(m_ComponentID, pVal);
}

}  // namespace nux
