#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace nux::webbrowser {

/// What an object of the page is, as far as C++ makes a difference.
enum class PageObjectKind { object, function, array, list, element, node, document, window, event, style };

/// An object of a page, by its place in the page's table.
struct PageObjectId {
    std::string document;  ///< names the document whose table it is
    std::int64_t number = 0;
    PageObjectKind kind = PageObjectKind::object;
    std::string className;
    bool operator==(const PageObjectId&) const = default;
};

/// An object of C++, by its place in the table of those that a page holds.
struct ComObjectId {
    std::int64_t number = 0;
    std::int64_t type = 0;  ///< objects of one type share what is known of their members; 0 for none
    bool callable = false;  ///< its default member takes arguments
    bool operator==(const ComObjectId&) const = default;
};

struct ScriptUndefined {
    bool operator==(const ScriptUndefined&) const = default;
};
struct ScriptNull {
    bool operator==(const ScriptNull&) const = default;
};
struct ScriptDate {
    double milliseconds = 0;  ///< since 1970, of universal time; NaN for an invalid date
};
/// What a script threw, or is to be thrown in one.
struct ScriptError {
    std::int32_t number = 0;  ///< an HRESULT
    std::u16string description;
    bool operator==(const ScriptError&) const = default;
};

struct ScriptValue;
using ScriptArray = std::vector<ScriptValue>;

/// A value on its way between a page and C++. Texts are UTF-16 as both sides have them, halves of surrogate
/// pairs included.
struct ScriptValue {
    std::variant<ScriptUndefined, ScriptNull, bool, double, std::u16string, ScriptDate, ScriptArray,
                 PageObjectId, ComObjectId, ScriptError>
        content;
};

/// Its text for the channel: JSON in UTF-8.
std::string EncodeScriptValue(const ScriptValue& value);

/// Reads what a page wrote. Throws std::invalid_argument for a text that is no value, whoever wrote it;
/// nothing else is to be feared of it: arrays deeper than 64 are none.
ScriptValue DecodeScriptValue(std::string_view text);

}  // namespace nux::webbrowser
