#include "environment/MessageTable.h"

#include "environment/XMLAccess.h"
#include "framework/Automation.h"
#include "framework/ComPtr.h"

namespace nux {
namespace {

/// The text of a pair: empty if there is no node or its value is no string.
std::string TranslationOf(IXMLDOMNode* node) {
    Variant value;
    if (!node || FAILED(node->get_nodeTypedValue(&value)) || !value.IsString())
        return {};
    return Narrow(value.bstrVal, CP_ACP);
}

/// Whether the node is an element of this name. Prefix and all, as the DOM's own selections see it.
bool IsElement(IXMLDOMNode* node, std::wstring_view name) noexcept {
    DOMNodeType type = NODE_INVALID;
    Bstr nodeName;
    return SUCCEEDED(node->get_nodeType(&type)) && type == NODE_ELEMENT &&
           SUCCEEDED(node->get_nodeName(nodeName.Receive())) &&
           std::wstring_view(nodeName.Get(), nodeName.Length()) == name;
}

}  // namespace

MessageTable MessageTable::Read(IXMLDOMDocument* document) {
    MessageTable table;
    const ComPtr<IXMLDOMNode> root = GetRootNode(document);
    if (!root || !IsElement(root.Get(), L"Messages"))
        return table;
    // What the selection "Messages/MsgID" finds. Walking costs a fraction of it in a large file.
    ComPtr<IXMLDOMNode> node;
    root->get_firstChild(node.Receive());
    while (node) {
        ComPtr<IXMLDOMNode> next;
        node->get_nextSibling(next.Receive());
        if (IsElement(node.Get(), L"MsgID"))
            table.Add(GetNodeText(node.Get()), TranslationOf(next.Get()));
        node = std::move(next);
    }
    return table;
}

void MessageTable::Add(std::string id, std::string text) {
    if (!id.empty())
        texts_.try_emplace(std::move(id), std::move(text));
}

const std::string* MessageTable::Find(std::string_view id) const noexcept {
    const auto found = texts_.find(id);
    return found == texts_.end() || found->second.empty() ? nullptr : &found->second;
}

}  // namespace nux
