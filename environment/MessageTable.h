#pragma once

#include <windows.h>

#include <msxml2.h>

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace nux {

/// The translations of one catalogue in one language, by message ID.
class MessageTable {
public:
    /// Reads the pairs of a message file: each `MsgID` below the root `Messages`, and the node right behind
    /// it. A pair without an ID is skipped; of two pairs with one ID the first counts. Throws std::bad_alloc.
    static MessageTable Read(IXMLDOMDocument* document);

    /// Enters a translation unless the ID is empty or there is one already. `text` may be empty.
    void Add(std::string id, std::string text);

    /// The translation, or null if there is none or it is empty. IDs are compared byte by byte.
    /// The pointer lives as long as the table.
    const std::string* Find(std::string_view id) const noexcept;

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const noexcept {
            return std::hash<std::string_view>()(text);
        }
    };

    std::unordered_map<std::string, std::string, Hash, std::equal_to<>> texts_;
};

}  // namespace nux
