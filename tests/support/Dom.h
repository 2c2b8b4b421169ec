#pragma once

#include <windows.h>

#include <msxml2.h>

#include <string>
#include <vector>

#include "framework/ComPtr.h"

namespace nux {

// The documents that a wizard page would hand over. XML is UTF-8.

/// A document made of a text. Throws std::invalid_argument if the text is not well formed.
ComPtr<IXMLDOMDocument> ParseXml(const std::string& xml);

/// The root element.
ComPtr<IXMLDOMNode> RootOf(const ComPtr<IXMLDOMDocument>& document);

/// The nodes that an expression selects.
ComPtr<IXMLDOMNodeList> SelectNodes(const ComPtr<IXMLDOMNode>& node, const wchar_t* expression);

/// An attribute of a row, in the ANSI code page; "(none)" if it has none or there is no row.
std::string AttributeOf(const ComPtr<IXMLDOMNode>& row, const std::string& name);

/// UTF-8 in the ANSI code page, in which controls give their texts.
std::string Ansi(const std::string& utf8);
std::wstring Wide(const std::string& utf8);

/// The content of a dimension file in the making: dimension names, and one list of values for each row.
struct SizeTable {
    std::vector<std::string> dimensions;
    std::vector<std::vector<std::string>> rows;

    /// Rows with their values as attributes and as child elements.
    std::string Xml() const { return Write(true); }
    /// Rows with attributes only, which offer no values to the filters.
    std::string XmlOfAttributes() const { return Write(false); }
    /// The list of names, each with its own name as caption.
    std::string Names() const;

private:
    std::string Write(bool elements) const;
};

}  // namespace nux
