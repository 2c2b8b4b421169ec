#pragma once

#include <windows.h>

#include <msxml2.h>

#include <string>

#include "framework/ComPtr.h"

namespace nux {

// The component's one layer over the XML DOM. Texts are narrow, in the thread's ANSI code page. Nothing here
// reports a failure: the caller gets an empty or false result and words it. Without memory std::bad_alloc is
// thrown.

/// Gives the document of a URL, loaded at the first call and kept for the process. All callers of one URL,
/// scripts included, share one document; it is not read again when its file changes.
/// @param url       what the DOM loads; compared byte by byte, so each spelling is a document of its own
/// @param document  receives a document with one reference for the caller, or null
/// @return whether there is a document. A failed load is not remembered.
bool LoadXMLDocument(const std::string& url, IXMLDOMDocument** document);

/// Enters a document that was made in memory under its URL, behind those that are kept already.
void KeepXMLDocument(const std::string& url, IXMLDOMDocument* document);

/// The next load of this URL reads its file again. The reference of the forgotten document is left
/// unreleased on purpose: a script that edits it may hold nothing but a pointer into it.
void ForgetXMLDocument(const std::string& url);

/// Lets go of all documents that are kept.
void ClearXMLDocumentCache() noexcept;

/// The root element of a document as a node, or null.
ComPtr<IXMLDOMNode> GetRootNode(IXMLDOMDocument* document) noexcept;

/// The string value of a node, or empty for a null node or a value that is no string. It is cut after as many
/// bytes as the value has characters, also where a double-byte code page needs more: callers rely on a result
/// that is never longer than the text.
std::string GetNodeText(IXMLDOMNode* node);

/// GetNodeText of the first node that `expression`, a well-formed selection relative to the node, selects.
std::string GetChildNodeText(IXMLDOMNode* node, const char* expression);

/// The whole string value of an attribute, or empty.
std::string GetNodeAttribute(IXMLDOMNode* node, const char* name);

/// The first `Part` element, at any depth of the catalogue's "Catalog.xml", whose child `ID` has this text.
/// @return null if the catalogue can't be loaded, has no such part, or the ID holds an apostrophe
ComPtr<IXMLDOMNode> FindComponentNode(const std::string& catalogId, const std::string& componentId);

}  // namespace nux
