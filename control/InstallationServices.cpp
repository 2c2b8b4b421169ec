#include "control/nuxStdParts.h"
#include "environment/Environment.h"
#include "environment/InstallationFiles.h"
#include "environment/InstallationPaths.h"
#include "environment/Localisation.h"
#include "environment/XMLAccess.h"

namespace nux {
namespace {

/// Hands out the document of a URL. E_FAIL if there is none.
HRESULT HandOutDocument(const std::string& url, IDispatch** out) {
    ComPtr<IXMLDOMDocument> document;
    if (!LoadXMLDocument(url, document.Receive()))
        return E_FAIL;
    *out = document.Detach();
    return S_OK;
}

/// Hands out the root element of the document of a URL. E_FAIL if there is no document, S_OK and null if it
/// has no root.
HRESULT HandOutRoot(const std::string& url, IDispatch** out) {
    ComPtr<IXMLDOMDocument> document;
    if (!LoadXMLDocument(url, document.Receive()))
        return E_FAIL;
    ComPtr<IXMLDOMElement> root;
    if (document->get_documentElement(root.Receive()) != S_OK)
        return S_OK;
    const ComPtr<IXMLDOMNode> node = root.As<IXMLDOMNode>();
    if (!node)
        return E_FAIL;
    node.CopyTo(out);
    return S_OK;
}

}  // namespace

STDMETHODIMP nuxStdParts::SetTRNVPaths(BSTR CatalogPath, BSTR DataPath, BSTR GUIPath, BSTR CustomDimsPath) {
    return Guarded([&] {
        m_CatalogPath = Narrow(CatalogPath);
        m_DataPath = Narrow(DataPath);
        m_GUIPath = Narrow(GUIPath);
        m_CustomDimsPath = Narrow(CustomDimsPath);
        Installation() = {m_CatalogPath, m_DataPath, m_GUIPath, m_CustomDimsPath};
        SetHost3D(this, m_3D.Get());
        return InitEnvironment() ? S_OK : E_FAIL;
    });
}

STDMETHODIMP nuxStdParts::GetComponentsDocument(BSTR CatalogID, IDispatch** Document) {
    if (!Document)
        return E_INVALIDARG;
    *Document = nullptr;
    return Guarded([&] { return HandOutDocument(CatalogURL(m_CatalogPath, Narrow(CatalogID)), Document); });
}

STDMETHODIMP nuxStdParts::GetXMLDocument(BSTR XMLFilePath, IDispatch** XMLDoc) {
    if (!XMLDoc)
        return E_INVALIDARG;
    *XMLDoc = nullptr;
    return Guarded([&] { return HandOutDocument(Narrow(XMLFilePath), XMLDoc); });
}

STDMETHODIMP nuxStdParts::GetStdDimensionNode(BSTR CatalogID, BSTR ComponentID, IDispatch** Node) {
    if (!Node)
        return E_INVALIDARG;
    *Node = nullptr;
    return Guarded([&] {
        return HandOutRoot(StdDimensionsURL(m_CatalogPath, Narrow(CatalogID), Narrow(ComponentID)), Node);
    });
}

STDMETHODIMP nuxStdParts::GetUsrDimensionNode(BSTR CatalogID, BSTR ComponentID, IDispatch** Node) {
    if (!Node)
        return E_INVALIDARG;
    *Node = nullptr;
    return Guarded([&] {
        const std::string url = UsrDimensionsURL(m_CustomDimsPath, Narrow(CatalogID), Narrow(ComponentID));
        ForgetXMLDocument(url);  // a page may have rewritten the file since
        return HandOutRoot(url, Node);
    });
}

STDMETHODIMP nuxStdParts::GetInterfaceLanguage(BSTR* Language) {
    if (!Language)
        return E_FAIL;
    return Guarded([&] {
        ReplaceString(Language, InterfaceLanguage());
        return S_OK;
    });
}

STDMETHODIMP nuxStdParts::GetLocalizedString(BSTR CatalogID, BSTR MsgID, BSTR* MsgStr) {
    if (!MsgStr)
        return E_FAIL;
    return Guarded([&] {
        ReplaceString(MsgStr, GetLocalizedMessage(Narrow(CatalogID), Narrow(MsgID)));
        return S_OK;
    });
}

}  // namespace nux
