#include "tests/support/Dom.h"

#include <stdexcept>

#include "framework/Automation.h"

namespace nux {
namespace {

std::string Escaped(const std::string& text) {
    std::string result;
    for (const char character : text) {
        switch (character) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '"':
                result += "&quot;";
                break;
            default:
                result += character;
        }
    }
    return result;
}

}  // namespace

ComPtr<IXMLDOMDocument> ParseXml(const std::string& xml) {
    ComPtr<IXMLDOMDocument> document;
    CoCreateInstance(CLSID_DOMDocument30, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                     document.ReceiveVoid());
    document->put_async(VARIANT_FALSE);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    const Bstr text(Wide(xml));
    if (document->loadXML(text.Get(), &loaded) != S_OK || !loaded)
        throw std::invalid_argument("not well formed: " + xml);
    return document;
}

ComPtr<IXMLDOMNode> RootOf(const ComPtr<IXMLDOMDocument>& document) {
    ComPtr<IXMLDOMElement> root;
    document->get_documentElement(root.Receive());
    return root.As<IXMLDOMNode>(IID_IXMLDOMNode);
}

ComPtr<IXMLDOMNodeList> SelectNodes(const ComPtr<IXMLDOMNode>& node, const wchar_t* expression) {
    ComPtr<IXMLDOMNodeList> nodes;
    const Bstr text{std::wstring_view(expression)};
    node->selectNodes(text.Get(), nodes.Receive());
    return nodes;
}

std::string AttributeOf(const ComPtr<IXMLDOMNode>& row, const std::string& name) {
    const auto element = row.As<IXMLDOMElement>(IID_IXMLDOMElement);
    Variant value;
    const Bstr text(Wide(name));
    if (!element || element->getAttribute(text.Get(), value.Receive()) != S_OK)
        return "(none)";
    return Narrow(value.bstrVal, CP_ACP);
}

std::string Ansi(const std::string& utf8) {
    const std::wstring wide = Wide(utf8);
    return Narrow(wide.data(), wide.size(), CP_ACP);
}

std::wstring Wide(const std::string& utf8) {
    return Widen(utf8, CP_UTF8);
}

std::string SizeTable::Names() const {
    std::string xml = "<Names>";
    for (const std::string& dimension : dimensions)
        xml += "<" + dimension + "/>";
    return xml + "</Names>";
}

std::string SizeTable::Write(bool elements) const {
    std::string xml = "<Dimensions>";
    for (const std::vector<std::string>& row : rows) {
        std::string attributes;
        std::string children;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string value = Escaped(row[i]);
            attributes += " " + dimensions[i] + "=\"" + value + "\"";
            children += "<" + dimensions[i] + ">" + value + "</" + dimensions[i] + ">";
        }
        xml += "<Size" + attributes + ">" + (elements ? children : "") + "</Size>";
    }
    return xml + "</Dimensions>";
}

}  // namespace nux
