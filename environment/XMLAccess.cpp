#include "environment/XMLAccess.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "environment/InstallationFiles.h"
#include "environment/InstallationPaths.h"
#include "environment/Paths.h"
#include "framework/ProcessWide.h"

namespace nux {
namespace {

/// The platform's limit (INTERNET_MAX_URL_LENGTH, less the terminator). Wine 8.0 turns a file's URL back into
/// a path in a buffer of that size and doesn't look at its end: plain names of 2,128 characters still failed
/// in good order, from 2,132 on the process was gone (LongUrlsTest). What counts there is the URL as the DOM
/// spells it: shortened, so that one of 100,000 characters loads if most of it leads nowhere ("\.\.\"), and
/// in the name of a host with three characters for one that has to be escaped. The former can't be told here
/// and is no loss, the latter is counted.
constexpr std::size_t longestUrl = 2083;

std::size_t EscapedLength(std::wstring_view url) noexcept {
    const auto escaped = std::count_if(url.begin(), url.end(), [](wchar_t character) {
        return std::wstring_view(L" \"<>^`{|}").find(character) != std::wstring_view::npos;
    });
    return url.size() + 2 * static_cast<std::size_t>(escaped);
}

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

/// An empty document that loads synchronously, or null.
ComPtr<IXMLDOMDocument> NewDocument() noexcept {
    ComPtr<IXMLDOMDocument> document;
    if (SUCCEEDED(CreateObject(CLSID_DOMDocument30, document)))
        document->put_async(VARIANT_FALSE);
    return document;
}

/// Why the document could not be loaded.
std::wstring ReasonOf(IXMLDOMDocument* document, const std::string& url) {
    if (!URLTargetExists(url))
        return L"there is no such file, or it can't be opened";
    ComPtr<IXMLDOMParseError> error;
    return document->get_parseError(error.Receive()) == S_OK ? DescribeParseError(error.Get())
                                                             : std::wstring();
}

/// Reads a file into the document.
/// @param reason  receives why that failed; may be null
/// @return whether that succeeded
bool Load(IXMLDOMDocument* document, const std::string& url, std::wstring* reason = nullptr) {
    const Variant source(url);
    if (EscapedLength({source.Text(), SysStringLen(source.Text())}) > longestUrl) {
        if (reason)
            *reason = L"it is longer than " + std::to_wstring(longestUrl) + L" characters";
        return false;
    }
    VARIANT_BOOL succeeded = VARIANT_FALSE;  // not looked at: the returned code decides
    if (document->load(source.Get(), &succeeded) == S_OK)
        return true;
    if (reason)
        *reason = ReasonOf(document, url);
    return false;
}

}  // namespace

bool LoadXMLDocument(const std::string& url, IXMLDOMDocument** document, std::wstring* reason) {
    if (!document)
        return false;
    *document = nullptr;
    if (const auto cached = FindCached(url); cached != Cache().end()) {
        cached->document.CopyTo(document);
        return true;
    }
    ComPtr<IXMLDOMDocument> loaded = NewDocument();
    if (!loaded && reason)
        *reason = L"the DOM can't be made";
    if (!loaded || !Load(loaded.Get(), url, reason))
        return false;
    KeepXMLDocument(url, loaded.Get());
    *document = loaded.Detach();
    return true;
}

std::wstring DescribeParseError(IXMLDOMParseError* error) {
    Bstr reason;
    error->get_reason(reason.Receive());
    std::wstring words(reason.View());
    words.erase(words.find_last_not_of(L"\r\n ") + 1);
    if (words.empty())
        words = L"it is not well formed";
    LONG line = 0;
    LONG character = 0;
    if (error->get_line(&line) != S_OK || error->get_linepos(&character) != S_OK || line == 0)
        return words;  // Wine 8.0 tells no place
    return L"line " + std::to_wstring(line) + L", character " + std::to_wstring(character) + L": " + words;
}

void KeepXMLDocument(const std::string& url, IXMLDOMDocument* document) {
    Cache().push_back({url, document});
}

ComPtr<IXMLDOMDocument> MakeXMLDocument(const std::string& path, const wchar_t* root) {
    ComPtr<IXMLDOMDocument> document = NewDocument();
    ComPtr<IXMLDOMElement> element;
    if (!document || FAILED(document->createElement(Bstr(root).Get(), element.Receive())) ||
        FAILED(document->appendChild(element.Get(), nullptr)))
        return nullptr;
    // To the path and not to the URL: Wine 8.0 doesn't save to one
    // (DimensionDocument.IsMadeWithARootAndNothingElse).
    const Variant target(path);
    document->save(target.Get());
    const std::string url = FileURL(path);
    if (!Load(document.Get(), url))
        return nullptr;
    KeepXMLDocument(url, document.Get());
    return document;
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
    return root.As<IXMLDOMNode>();
}

bool ReadString(IXMLDOMNode* node, Variant& value) noexcept {
    return SUCCEEDED(node->get_nodeTypedValue(value.Receive())) && value.IsString();
}

std::string GetNodeText(IXMLDOMNode* node) {
    if (!node)
        return {};
    Variant value;
    if (!ReadString(node, value))
        return {};
    std::string text = Narrow(value.Text());
    text.resize(std::min<std::size_t>(text.size(), SysStringLen(value.Text())));
    text.resize(std::min(text.size(), text.find('\0')));
    return text;
}

std::string GetWholeNodeText(IXMLDOMNode* node, UINT codePage) {
    Variant value;
    return node && ReadString(node, value) ? Narrow(value.Text(), codePage) : std::string();
}

ComPtr<IXMLDOMNode> SelectNode(IXMLDOMNode* node, const char* expression) {
    ComPtr<IXMLDOMNode> selected;
    if (!node || node->selectSingleNode(Bstr(expression, CP_THREAD_ACP).Get(), selected.Receive()) != S_OK)
        return nullptr;
    return selected;
}

std::string GetChildNodeText(IXMLDOMNode* node, const char* expression) {
    return GetNodeText(SelectNode(node, expression).Get());
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
    return GetWholeNodeText(attribute.Get());
}

ComPtr<IXMLDOMNode> FindComponentNode(const std::string& catalogId, const std::string& componentId) {
    ComPtr<IXMLDOMDocument> document;
    if (!LoadXMLDocument(CatalogURL(GetCatalogFolder(catalogId)), document.Receive()))
        return nullptr;
    const ComPtr<IXMLDOMNode> root = GetRootNode(document.Get());
    if (!root)
        return nullptr;
    // The ID goes into the expression as it stands. One that would end the literal early makes an expression
    // that is not well formed, which selects nothing and which not every DOM survives.
    // The ID is widened by itself: one that ends in half a double-byte character would take the literal's end
    // along.
    const std::wstring wideId = Widen(componentId);
    constexpr std::wstring_view endOfLiteral(L"'\0", 2);
    if (wideId.find_first_of(endOfLiteral) != std::wstring::npos)
        return nullptr;
    ComPtr<IXMLDOMNode> part;
    const Bstr expression(L"//Part[ID='" + wideId + L"']");
    if (root->selectSingleNode(expression.Get(), part.Receive()) != S_OK)
        return nullptr;
    return part;
}

bool IsNamed(IXMLDOMNode* node, std::wstring_view name) noexcept {
    Bstr found;
    return node->get_nodeName(found.Receive()) == S_OK && found.View() == name;
}

bool IsElement(IXMLDOMNode* node, std::wstring_view name) noexcept {
    DOMNodeType type = NODE_INVALID;
    return IsNamed(node, name) && SUCCEEDED(node->get_nodeType(&type)) && type == NODE_ELEMENT;
}

bool ReadAttribute(IXMLDOMElement* element, const Bstr& name, Variant& value) noexcept {
    if (element->getAttribute(name.Get(), value.Receive()) == S_OK && value.Type() != VT_NULL)
        return true;
    // By its whole name, prefix included, getAttribute need not find one.
    ComPtr<IXMLDOMNamedNodeMap> attributes;
    if (name.View().find(L':') == std::wstring_view::npos ||
        element->get_attributes(attributes.Receive()) != S_OK || !attributes)
        return false;
    attributes->reset();
    ComPtr<IXMLDOMNode> attribute;
    while (attributes->nextNode(attribute.Receive()) == S_OK && attribute) {
        if (IsNamed(attribute.Get(), name.View())) {
            ReadString(attribute.Get(), value);
            return true;
        }
    }
    return false;
}

bool ReadChildElement(IXMLDOMNode* node, std::wstring_view name, Variant& value) noexcept {
    bool found = false;
    ForEachChild(node, [&](IXMLDOMNode* child, IXMLDOMNode*) {
        found = IsElement(child, name);
        if (found)
            ReadString(child, value);
        return !found;
    });
    return found;
}

}  // namespace nux
