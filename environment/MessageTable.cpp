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

}  // namespace

MessageTable MessageTable::Read(IXMLDOMDocument* document) {
    MessageTable table;
    ComPtr<IXMLDOMNodeList> ids;
    if (document->selectNodes(Bstr(L"Messages/MsgID").Get(), ids.Receive()) != S_OK)
        return table;
    for (;;) {
        ComPtr<IXMLDOMNode> id;
        if (ids->nextNode(id.Receive()) != S_OK || !id)
            return table;
        ComPtr<IXMLDOMNode> text;
        id->get_nextSibling(text.Receive());
        table.Add(GetNodeText(id.Get()), TranslationOf(text.Get()));
    }
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
