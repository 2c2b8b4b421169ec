#include "environment/MessageTable.h"

#include "environment/XMLAccess.h"

namespace nux {
MessageTable MessageTable::Read(IXMLDOMDocument* document) {
    MessageTable table;
    const ComPtr<IXMLDOMNode> root = GetRootNode(document);
    if (!root || !IsElement(root.Get(), L"Messages"))
        return table;
    // What the selection "Messages/MsgID" finds. Walking costs a fraction of it in a large file.
    ForEachChild(root.Get(), [&](IXMLDOMNode* node, IXMLDOMNode* behind) {
        if (IsElement(node, L"MsgID"))
            table.Add(GetNodeText(node), GetWholeNodeText(behind, CP_ACP));
        return true;
    });
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
