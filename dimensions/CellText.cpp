#include "dimensions/CellText.h"

#include <algorithm>
#include <cwchar>
#include <utility>

namespace nux {
namespace {

bool IsNamed(IXMLDOMNode* node, const Bstr& name) noexcept {
    Bstr found;
    return node->get_nodeName(found.Receive()) == S_OK && found.Length() == name.Length() &&
           std::wmemcmp(found.Get(), name.Get(), name.Length()) == 0;
}

void ReadTypedValue(IXMLDOMNode* node, CellText* text) noexcept {
    Variant value;
    if (FAILED(node->get_nodeTypedValue(value.Receive())))
        text->Clear();
    else
        text->Assign(value);
}

/// Finds an attribute by its whole name, prefix included, which getAttribute need not do.
bool ReadPrefixedAttribute(IXMLDOMElement* row, const Bstr& name, CellText* text) noexcept {
    ComPtr<IXMLDOMNamedNodeMap> attributes;
    if (row->get_attributes(attributes.Receive()) != S_OK || !attributes)
        return false;
    attributes->reset();
    ComPtr<IXMLDOMNode> attribute;
    while (attributes->nextNode(attribute.Receive()) == S_OK && attribute) {
        if (IsNamed(attribute.Get(), name)) {
            ReadTypedValue(attribute.Get(), text);
            return true;
        }
    }
    return false;
}

}  // namespace

void CellText::Assign(const wchar_t* text, std::size_t length) noexcept {
    const std::size_t counting = std::min(length, longestCellText);
    for (size_ = 0; size_ < counting && text[size_] < 0x80; ++size_)
        bytes_[size_] = static_cast<char>(text[size_]);
    if (size_ == counting)
        return;
    // Beyond ASCII the code page decides.
    const int written =
        WideCharToMultiByte(CP_THREAD_ACP, 0, text, static_cast<int>(std::min(length, longestWideText)),
                            bytes_.data(), static_cast<int>(bytes_.size()), nullptr, nullptr);
    size_ = CutCellText({bytes_.data(), static_cast<std::size_t>(written)}).size();
}

void CellText::Assign(const VARIANT& value) noexcept {
    if (value.vt == VT_BSTR)
        Assign(value.bstrVal, SysStringLen(value.bstrVal));
    else
        Clear();
}

bool ReadAttribute(IXMLDOMElement* row, const Bstr& name, CellText* text) noexcept {
    Variant value;
    if (row->getAttribute(name.Get(), &value) == S_OK && value.vt != VT_NULL) {
        text->Assign(value);
        return true;
    }
    return std::wmemchr(name.Get(), L':', name.Length()) && ReadPrefixedAttribute(row, name, text);
}

bool ReadChildElement(IXMLDOMNode* node, const Bstr& name, CellText* text) noexcept {
    ComPtr<IXMLDOMNode> child;
    HRESULT found = node->get_firstChild(child.Receive());
    while (found == S_OK && child) {
        DOMNodeType type = NODE_INVALID;
        if (IsNamed(child.Get(), name) && SUCCEEDED(child->get_nodeType(&type)) && type == NODE_ELEMENT) {
            ReadTypedValue(child.Get(), text);
            return true;
        }
        ComPtr<IXMLDOMNode> next;
        found = child->get_nextSibling(next.Receive());
        child = std::move(next);
    }
    return false;
}

}  // namespace nux
