#pragma once

#include <windows.h>

#include <msxml2.h>

#include <string>
#include <string_view>

#include "framework/ComPtr.h"
#include "framework/Text.h"
#include "framework/Variant.h"

namespace nux {

// The component's one layer over the XML DOM. Texts are narrow, in the thread's ANSI code page. Nothing here
// reports a failure: the caller gets an empty or false result and words it. Without memory std::bad_alloc is
// thrown.

/// Gives the document of a URL, loaded at the first call and kept for the process. All callers of one URL,
/// scripts included, share one document; it is not read again when its file changes.
/// @param url       what the DOM loads; compared byte by byte, so each spelling is a document of its own
/// @param document  receives a document with one reference for the caller, or null
/// @param reason    receives why there is no document, for people; null if nobody asks. It is looked for only
///                  once the load has failed
/// @return whether there is a document. A failed load is not remembered.
bool LoadXMLDocument(const std::string& url, IXMLDOMDocument** document, std::wstring* reason = nullptr);

/// Where and why a document is not well formed, in the words of the DOM.
std::wstring DescribeParseError(IXMLDOMParseError* error);

/// Enters a document that was made in memory under its URL, behind those that are kept already.
void KeepXMLDocument(const std::string& url, IXMLDOMDocument* document);

/// Makes a document with an empty root element, saves it as a file, loads it from there and keeps it. A file
/// that can't be saved is loaded all the same: what stands there counts.
/// @return null if it can't be made or loaded
ComPtr<IXMLDOMDocument> MakeXMLDocument(const std::string& path, const wchar_t* root);

/// The next load of this URL reads its file again. The reference of the forgotten document is left
/// unreleased on purpose: a script that edits it may hold nothing but a pointer into it.
void ForgetXMLDocument(const std::string& url);

/// Lets go of all documents that are kept.
void ClearXMLDocumentCache() noexcept;

/// The root element of a document as a node, or null.
ComPtr<IXMLDOMNode> GetRootNode(IXMLDOMDocument* document) noexcept;

/// Whether the node has a string value, which then stands in `value`.
bool ReadString(IXMLDOMNode* node, Variant& value) noexcept;

/// The string value of a node, or empty for a null node or a value that is no string. It is cut after as many
/// bytes as the value has characters, also where a double-byte code page needs more: callers rely on a result
/// that is never longer than the text.
std::string GetNodeText(IXMLDOMNode* node);

/// The whole string value of a node in the given code page, or empty.
std::string GetWholeNodeText(IXMLDOMNode* node, UINT codePage = CP_THREAD_ACP);

/// The first node that `expression`, a well-formed selection relative to the node, selects, or null.
ComPtr<IXMLDOMNode> SelectNode(IXMLDOMNode* node, const char* expression);

/// GetNodeText of what SelectNode finds.
std::string GetChildNodeText(IXMLDOMNode* node, const char* expression);

/// The whole string value of an attribute, or empty.
std::string GetNodeAttribute(IXMLDOMNode* node, const char* name);

/// The first `Part` element, at any depth of the catalogue's "Catalog.xml", whose child `ID` has this text.
/// @return null if the catalogue can't be loaded, has no such part, or the ID holds an apostrophe
ComPtr<IXMLDOMNode> FindComponentNode(const std::string& catalogId, const std::string& componentId);

// Walks. They find what the DOM's own selection finds by a whole node name, at a tenth of its cost, and a
// name that makes no well-formed expression, which Wine 8.0 does not survive, just finds nothing. They find
// more than a selection where that serves the user (XMLAccessTest.cpp): names beyond the code page, in which
// an expression would have to be written; names in a default namespace, and with a prefix that nobody has
// declared for selections, in a document that its page has switched to XPath; the text of an attribute that a
// schema types, whose typed value would be no string. Default attributes of a document type count as written.

/// Whether the node has this name, prefix and all.
bool IsNamed(IXMLDOMNode* node, std::wstring_view name) noexcept;

/// Whether the node is an element of this name.
bool IsElement(IXMLDOMNode* node, std::wstring_view name) noexcept;

/// Reads an attribute. One that is no string leaves `value` as another type. @return false if there is none
bool ReadAttribute(IXMLDOMElement* element, const Bstr& name, Variant& value) noexcept;

/// Reads the value of the first child element of this name. @return false if there is none
bool ReadChildElement(IXMLDOMNode* node, std::wstring_view name, Variant& value) noexcept;

/// Visits the nodes of a list, which may be null, from its start.
/// @param visit  given an IXMLDOMNode*, answers whether to go on
template <class Visit>
void ForEachNode(IXMLDOMNodeList* nodes, Visit&& visit) {
    if (!nodes)
        return;
    nodes->reset();
    ComPtr<IXMLDOMNode> node;
    while (nodes->nextNode(node.Receive()) == S_OK && node && visit(node.Get())) {
    }
}

/// Visits the children of a node in the same way.
/// @param visit  given an IXMLDOMNode* and the one right behind it, which may be null
template <class Visit>
void ForEachChild(IXMLDOMNode* node, Visit&& visit) {
    ComPtr<IXMLDOMNode> child;
    HRESULT found = node->get_firstChild(child.Receive());
    while (found == S_OK && child) {
        ComPtr<IXMLDOMNode> next;
        found = child->get_nextSibling(next.Receive());
        if (!visit(child.Get(), next.Get()))
            return;
        child = std::move(next);
    }
}

}  // namespace nux
