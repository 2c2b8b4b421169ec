#include "environment/XMLAccess.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "environment/InstallationPaths.h"
#include "framework/Automation.h"
#include "framework/ProcessWide.h"

namespace nux {
namespace {

/// The platform's limit (INTERNET_MAX_URL_LENGTH). Nothing can be loaded from a longer URL, and not every DOM
/// survives the attempt.
constexpr UINT longestUrl = 2083;

struct CachedDocument {
    std::string url;
    ComPtr<IXMLDOMDocument> document;
};

std::vector<CachedDocument>& Cache() noexcept {
    static ProcessWide<std::vector<CachedDocument>> cache;
    return cache.Get();
}

std::vector<CachedDocument>::iterator FindCached(const std::string& url) noexcept {
    return std::find_if(Cache().begin(), Cache().end(),
                        [&](const CachedDocument& cached) { return cached.url == url; });
}

/// Whether the node has a string value, which then stands in `value`.
bool ReadString(IXMLDOMNode* node, Variant& value) noexcept {
    return SUCCEEDED(node->get_nodeTypedValue(value.Receive())) && value.IsString();
}

}  // namespace

bool LoadXMLDocument(const std::string& url, IXMLDOMDocument** document) {
    if (!document)
        return false;
    *document = nullptr;
    if (const auto cached = FindCached(url); cached != Cache().end()) {
        cached->document.CopyTo(document);
        return true;
    }
    Variant source;
    source.bstrVal = Bstr(url, CP_THREAD_ACP).Detach();
    source.vt = VT_BSTR;
    if (SysStringLen(source.bstrVal) > longestUrl)
        return false;
    ComPtr<IXMLDOMDocument> loaded;
    if (FAILED(CoCreateInstance(CLSID_DOMDocument30, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                                loaded.ReceiveVoid())))
        return false;
    loaded->put_async(VARIANT_FALSE);
    VARIANT_BOOL succeeded = VARIANT_FALSE;  // not looked at: the returned code decides
    if (loaded->load(source, &succeeded) != S_OK)
        return false;
    KeepXMLDocument(url, loaded.Get());
    *document = loaded.Detach();
    return true;
}

void KeepXMLDocument(const std::string& url, IXMLDOMDocument* document) {
    Cache().push_back({url, ComPtr<IXMLDOMDocument>(document)});
}

void ForgetXMLDocument(const std::string& url) {
    const auto cached = FindCached(url);
    if (cached == Cache().end())
        return;
    (void)cached->document.Detach();
    Cache().erase(cached);
}

void ClearXMLDocumentCache() noexcept {
    std::vector<CachedDocument>().swap(Cache());
}

ComPtr<IXMLDOMNode> GetRootNode(IXMLDOMDocument* document) noexcept {
    ComPtr<IXMLDOMElement> root;
    if (document->get_documentElement(root.Receive()) != S_OK)
        return nullptr;
    return root.As<IXMLDOMNode>(IID_IXMLDOMNode);
}

std::string GetNodeText(IXMLDOMNode* node) {
    if (!node)
        return {};
    Variant value;
    if (!ReadString(node, value))
        return {};
    std::string text = Narrow(value.bstrVal);
    text.resize(std::min<std::size_t>(text.size(), SysStringLen(value.bstrVal)));
    text.resize(std::min(text.size(), text.find('\0')));
    return text;
}

std::string GetChildNodeText(IXMLDOMNode* node, const char* expression) {
    if (!node)
        return {};
    ComPtr<IXMLDOMNode> child;
    if (node->selectSingleNode(Bstr(expression, CP_THREAD_ACP).Get(), child.Receive()) != S_OK)
        return {};
    return GetNodeText(child.Get());
}

std::string GetNodeAttribute(IXMLDOMNode* node, const char* name) {
    if (!node)
        return {};
    ComPtr<IXMLDOMNamedNodeMap> attributes;
    if (FAILED(node->get_attributes(attributes.Receive())) || !attributes)
        return {};
    ComPtr<IXMLDOMNode> attribute;
    if (FAILED(attributes->getNamedItem(Bstr(name, CP_THREAD_ACP).Get(), attribute.Receive())) || !attribute)
        return {};
    Variant value;
    return ReadString(attribute.Get(), value) ? Narrow(value.bstrVal) : std::string();
}

ComPtr<IXMLDOMNode> FindComponentNode(const std::string& catalogId, const std::string& componentId) {
    ComPtr<IXMLDOMDocument> document;
    if (!LoadXMLDocument("file://" + GetCatalogFolder(catalogId) + "Catalog.xml", document.Receive()))
        return nullptr;
    const ComPtr<IXMLDOMNode> root = GetRootNode(document.Get());
    if (!root)
        return nullptr;
    // The ID goes into the expression as it stands. One that would end the literal early makes an expression
    // that is not well formed, which selects nothing and which not every DOM survives.
    constexpr std::string_view endOfLiteral("'\0", 2);
    if (componentId.find_first_of(endOfLiteral) != std::string::npos)
        return nullptr;
    ComPtr<IXMLDOMNode> part;
    const Bstr expression("//Part[ID='" + componentId + "']", CP_THREAD_ACP);
    if (root->selectSingleNode(expression.Get(), part.Receive()) != S_OK)
        return nullptr;
    return part;
}

}  // namespace nux
