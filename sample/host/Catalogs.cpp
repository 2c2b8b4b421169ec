#include "host/Catalogs.h"

#include <msxml2.h>

#include <algorithm>

#include "framework/ComPtr.h"
#include "framework/Handles.h"
#include "framework/Text.h"
#include "framework/Variant.h"

namespace nux::host {
namespace {

std::string NodeText(IXMLDOMNode* node, const wchar_t* child) {
    ComPtr<IXMLDOMNode> found;
    Bstr text;
    if (node->selectSingleNode(Bstr(child).Get(), found.Receive()) == S_OK)
        found->get_text(text.Receive());
    return Narrow(text.Get(), CP_ACP);
}

ComPtr<IXMLDOMNodeList> Select(IXMLDOMNode* node, const wchar_t* path) {
    ComPtr<IXMLDOMNodeList> list;
    if (node)
        node->selectNodes(Bstr(path).Get(), list.Receive());
    return list;
}

/// Calls `see` with each node until it answers true.
template <class See>
void ForEach(IXMLDOMNodeList* list, See&& see) {
    ComPtr<IXMLDOMNode> node;
    while (list && list->nextNode(node.Receive()) == S_OK) {
        if (see(node))
            return;
    }
}

ComPtr<IXMLDOMNodeList> AllParts(InuxStdParts* stdParts, const std::string& catalog) {
    ComPtr<IDispatch> document;
    stdParts->GetComponentsDocument(Bstr(catalog, CP_ACP).Get(), document.Receive());
    return Select(document.As<IXMLDOMNode>().Get(), L"//Part");
}

}  // namespace

std::vector<std::string> CatalogsIn(const std::wstring& folder) {
    std::vector<std::string> names;
    WIN32_FIND_DATAW found{};
    const UniqueSearch search(FindFirstFileW((folder + L"catalogs\\*").c_str(), &found));
    if (!search)
        return names;
    do {
        const std::wstring name = found.cFileName;
        if (GetFileAttributesW((folder + L"catalogs\\" + name + L"\\Catalog.xml").c_str()) !=
            INVALID_FILE_ATTRIBUTES)
            names.push_back(Narrow(name.data(), name.size(), CP_ACP));
    } while (FindNextFileW(search.Get(), &found));
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> PartsOf(InuxStdParts* stdParts, const std::string& catalog) {
    std::vector<std::string> names;
    ForEach(AllParts(stdParts, catalog).Get(), [&](const ComPtr<IXMLDOMNode>& part) {
        if (const std::string id = NodeText(part.Get(), L"ID"); !id.empty())
            names.push_back(id);
        return false;
    });
    return names;
}

HRESULT ChooseSize(InuxStdParts* stdParts, const std::string& catalog, const std::string& part) {
    ComPtr<IXMLDOMNode> found;
    ForEach(AllParts(stdParts, catalog).Get(), [&](const ComPtr<IXMLDOMNode>& node) {
        if (NodeText(node.Get(), L"ID") != part)
            return false;
        found = node;
        return true;
    });
    if (!found)
        return E_INVALIDARG;
    const Bstr catalogID(catalog, CP_ACP);
    const Bstr partID(part, CP_ACP);
    ComPtr<IXMLDOMNode> defaults;
    found->selectSingleNode(Bstr(L"DefaultValues").Get(), defaults.Receive());
    ComPtr<IDispatch> standard;
    ComPtr<IDispatch> user;
    stdParts->GetStdDimensionNode(catalogID.Get(), partID.Get(), standard.Receive());
    stdParts->GetUsrDimensionNode(catalogID.Get(), partID.Get(), user.Receive());
    Variant values[3];
    values[0].SetObject(defaults);
    values[1].SetObject(Select(standard.As<IXMLDOMNode>().Get(), L"Row"));
    values[2].SetObject(Select(user.As<IXMLDOMNode>().Get(), L"Row"));
    const ComPtr<IXMLDOMNodeList> names = Select(found.Get(), L"Dimensions/*");
    ComPtr<IDispatch> chosen;
    const HRESULT result =
        stdParts->ChooseDimensions(catalogID.Get(), partID.Get(), names.Get(), values[0].Get(),
                                   values[1].Get(), values[2].Get(), chosen.Receive());
    return result == S_OK && !chosen ? S_FALSE : result;
}

}  // namespace nux::host
