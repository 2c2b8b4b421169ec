#include "control/nuxStdParts.h"
#include "environment/Environment.h"
#include "environment/InstallationFiles.h"
#include "environment/InstallationPaths.h"
#include "environment/Localisation.h"
#include "environment/XMLAccess.h"

namespace nux {
namespace {

/// One of the object's paths, and where to look for a mistake when nothing is found below it.
struct NamedPath {
    const wchar_t* name;
    const std::string& path;
};

/// What may be wrong with a path; empty if nothing is seen.
std::wstring Hint(const NamedPath& named) {
    const std::wstring path = Widen(named.path);
    const std::wstring name = named.name;
    if (path.empty())
        return L" " + name + L" is empty: SetTRNVPaths has to be called before.";
    if (path.back() != L'\\' && path.back() != L'/')
        return L" " + name + L" lacks its closing backslash: " + path + L".";
    return {};
}

/// The document of a URL. Raises E_FAIL if there is none.
/// @param below  the path that the URL was made from; null for a URL of the caller's own
ComPtr<IXMLDOMDocument> LoadOrFail(const std::string& url, const NamedPath* below) {
    ComPtr<IXMLDOMDocument> document;
    std::wstring reason;
    if (!LoadXMLDocument(url, document.Receive(), &reason))
        throw HResultError(E_FAIL, Widen(url) + L" can't be loaded: " + reason + L"." +
                                       (below ? Hint(*below) : std::wstring()));
    return document;
}

/// The root element of the document of a URL, null if it has none. Raises E_FAIL if there is no document.
ComPtr<IDispatch> RootOrFail(const std::string& url, const NamedPath& below) {
    const ComPtr<IXMLDOMDocument> document = LoadOrFail(url, &below);
    ComPtr<IXMLDOMElement> root;
    if (document->get_documentElement(root.Receive()) != S_OK)
        return nullptr;
    ComPtr<IXMLDOMNode> node = root.As<IXMLDOMNode>();
    if (!node)
        throw HResultError(E_FAIL, Widen(url) + L" has a root that is no node.");
    return node;
}

}  // namespace

STDMETHODIMP nuxStdParts::SetTRNVPaths(BSTR CatalogPath, BSTR DataPath, BSTR GUIPath, BSTR CustomDimsPath) {
    return Operation([&] {
        m_CatalogPath = Narrow(CatalogPath);
        m_DataPath = Narrow(DataPath);
        m_GUIPath = Narrow(GUIPath);
        m_CustomDimsPath = Narrow(CustomDimsPath);
        Installation() = {m_CatalogPath, m_DataPath, m_GUIPath, m_CustomDimsPath};
        SetHost3D(this, m_3D.Get());
        if (!InitEnvironment())
            throw HResultError(
                E_FAIL,
                L"The user's decimal separator can't be read. The paths are set and all else is done.");
    });
}

STDMETHODIMP nuxStdParts::GetComponentsDocument(BSTR CatalogID, IDispatch** Document) {
    return Operation([&] {
        Require(Document, L"Document");
        *Document = nullptr;
        const NamedPath root{L"CatalogPath", m_CatalogPath};
        *Document = LoadOrFail(CatalogURL(m_CatalogPath, Narrow(CatalogID)), &root).Detach();
    });
}

STDMETHODIMP nuxStdParts::GetXMLDocument(BSTR XMLFilePath, IDispatch** XMLDoc) {
    return Operation([&] {
        Require(XMLDoc, L"XMLDoc");
        *XMLDoc = nullptr;
        *XMLDoc = LoadOrFail(Narrow(XMLFilePath), nullptr).Detach();
    });
}

STDMETHODIMP nuxStdParts::GetStdDimensionNode(BSTR CatalogID, BSTR ComponentID, IDispatch** Node) {
    return Operation([&] {
        Require(Node, L"Node");
        *Node = nullptr;
        *Node = RootOrFail(StdDimensionsURL(m_CatalogPath, Narrow(CatalogID), Narrow(ComponentID)),
                           {L"CatalogPath", m_CatalogPath})
                    .Detach();
    });
}

STDMETHODIMP nuxStdParts::GetUsrDimensionNode(BSTR CatalogID, BSTR ComponentID, IDispatch** Node) {
    return Operation([&] {
        Require(Node, L"Node");
        *Node = nullptr;
        const std::string url = UsrDimensionsURL(m_CustomDimsPath, Narrow(CatalogID), Narrow(ComponentID));
        ForgetXMLDocument(url);  // a page may have rewritten the file since
        *Node = RootOrFail(url, {L"CustomDimsPath", m_CustomDimsPath}).Detach();
    });
}

STDMETHODIMP nuxStdParts::GetInterfaceLanguage(BSTR* Language) {
    return Operation([&] {
        Require(Language, L"Language", E_FAIL);
        ReplaceString(Language, InterfaceLanguage());
    });
}

STDMETHODIMP nuxStdParts::GetLocalizedString(BSTR CatalogID, BSTR MsgID, BSTR* MsgStr) {
    return Operation([&] {
        Require(MsgStr, L"MsgStr", E_FAIL);
        ReplaceString(MsgStr, GetLocalizedMessage(Narrow(CatalogID), Narrow(MsgID)));
    });
}

}  // namespace nux
