#include "webbrowser/ScriptValue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <stdexcept>

#include <nlohmann/json.hpp>

#include "webbrowser/Utf.h"

// Values that JSON has go as they are. The others are objects with one letter for what they are:
//   {"u":0}                              undefined
//   {"n":"NaN"}                          a number that JSON lacks: NaN, Infinity, -Infinity, -0
//   {"w":[55357]}                        a text that is not well formed, by its units
//   {"d":0.5}                            a date
//   {"p":3,"g":"k2","k":"element","c":"HTMLDivElement"}   an object of the page
//   {"x":3,"t":1,"f":true}               an object of C++
//   {"e":-2147467259,"m":"words"}        an error

namespace nux::webbrowser {
namespace {

using Json = nlohmann::json;

constexpr int deepest = 64;

constexpr std::array<std::pair<PageObjectKind, const char*>, 10> kinds{{
    {PageObjectKind::object, "object"},
    {PageObjectKind::function, "function"},
    {PageObjectKind::array, "array"},
    {PageObjectKind::list, "list"},
    {PageObjectKind::element, "element"},
    {PageObjectKind::node, "node"},
    {PageObjectKind::document, "document"},
    {PageObjectKind::window, "window"},
    {PageObjectKind::event, "event"},
    {PageObjectKind::style, "style"},
}};

[[noreturn]] void Refuse() {
    throw std::invalid_argument("no value of a page");
}

Json NumberToJson(double number) {
    if (std::isnan(number))
        return {{"n", "NaN"}};
    if (std::isinf(number))
        return {{"n", number > 0 ? "Infinity" : "-Infinity"}};
    if (number == 0 && std::signbit(number))
        return {{"n", "-0"}};
    return number;
}

Json ToJson(const ScriptValue& value);

struct Encoder {
    Json operator()(ScriptUndefined) const { return {{"u", 0}}; }
    Json operator()(ScriptNull) const { return nullptr; }
    Json operator()(bool truth) const { return truth; }
    Json operator()(double number) const { return NumberToJson(number); }
    Json operator()(const std::u16string& text) const {
        if (IsWellFormed(text))
            return ToUtf8(text);
        Json units = Json::array();
        for (const char16_t unit : text)
            units.push_back(static_cast<unsigned>(unit));
        return {{"w", std::move(units)}};
    }
    Json operator()(ScriptDate date) const {
        // An invalid date has no number; null reads as one.
        return {{"d", std::isfinite(date.milliseconds) ? Json(date.milliseconds) : Json(nullptr)}};
    }
    Json operator()(const ScriptArray& array) const {
        Json elements = Json::array();
        for (const ScriptValue& element : array)
            elements.push_back(ToJson(element));
        return elements;
    }
    Json operator()(const PageObjectId& id) const {
        const auto* const kind =
            std::find_if(kinds.begin(), kinds.end(), [&](const auto& row) { return row.first == id.kind; });
        return {{"p", id.number}, {"g", id.document}, {"k", kind->second}, {"c", id.className}};
    }
    Json operator()(const ComObjectId& id) const {
        return {{"x", id.number}, {"t", id.type}, {"f", id.callable}};
    }
    Json operator()(const ScriptError& error) const {
        Json result = {{"e", error.number}};
        result["m"] = (*this)(error.description);
        return result;
    }
};

Json ToJson(const ScriptValue& value) {
    return std::visit(Encoder(), value.content);
}

/// A whole number that a script can count.
std::int64_t WholeNumber(const Json& json) {
    constexpr double largest = 9007199254740991.0;
    if (!json.is_number())
        Refuse();
    const double number = json.get<double>();
    if (!(number >= -largest && number <= largest) || number != std::floor(number))
        Refuse();
    return static_cast<std::int64_t>(number);
}

const Json& Part(const Json& json, const char* name) {
    const auto found = json.find(name);
    if (found == json.end())
        Refuse();
    return *found;
}

const std::string& Words(const Json& json) {
    if (!json.is_string())
        Refuse();
    return json.get_ref<const std::string&>();
}

double NamedNumber(const std::string& name) {
    if (name == "NaN")
        return std::numeric_limits<double>::quiet_NaN();
    if (name == "Infinity")
        return std::numeric_limits<double>::infinity();
    if (name == "-Infinity")
        return -std::numeric_limits<double>::infinity();
    if (name == "-0")
        return -0.0;
    Refuse();
}

std::u16string TextOf(const Json& json) {
    if (json.is_string())
        return FromUtf8(Words(json));
    if (!json.is_object())
        Refuse();
    const Json& units = Part(json, "w");
    if (!units.is_array())
        Refuse();
    std::u16string text;
    text.reserve(units.size());
    for (const Json& unit : units) {
        const std::int64_t number = WholeNumber(unit);
        if (number < 0 || number > 0xffff)
            Refuse();
        text += static_cast<char16_t>(number);
    }
    return text;
}

ScriptValue ObjectFromJson(const Json& json) {
    if (json.contains("u"))
        return {ScriptUndefined()};
    if (json.contains("n"))
        return {NamedNumber(Words(Part(json, "n")))};
    if (json.contains("d")) {
        const Json& date = Part(json, "d");
        if (date.is_null())
            return {ScriptDate{std::numeric_limits<double>::quiet_NaN()}};
        if (!date.is_number())
            Refuse();
        return {ScriptDate{date.get<double>()}};
    }
    if (json.contains("p")) {
        PageObjectId id;
        id.number = WholeNumber(Part(json, "p"));
        id.document = Words(Part(json, "g"));
        const std::string& name = Words(Part(json, "k"));
        const auto* const kind =
            std::find_if(kinds.begin(), kinds.end(), [&](const auto& row) { return name == row.second; });
        if (kind == kinds.end())
            Refuse();
        id.kind = kind->first;
        id.className = Words(Part(json, "c"));
        return {std::move(id)};
    }
    if (json.contains("x")) {
        ComObjectId id;
        id.number = WholeNumber(Part(json, "x"));
        // A page only gives back what it was given: the rest is for the other way.
        if (json.contains("t"))
            id.type = WholeNumber(Part(json, "t"));
        if (json.contains("f")) {
            if (!Part(json, "f").is_boolean())
                Refuse();
            id.callable = Part(json, "f").get<bool>();
        }
        return {id};
    }
    if (json.contains("e")) {
        const std::int64_t number = WholeNumber(Part(json, "e"));
        // Scripts have the codes of failures as signed or unsigned numbers.
        if (number < std::numeric_limits<std::int32_t>::min() ||
            number > std::numeric_limits<std::uint32_t>::max())
            Refuse();
        return {ScriptError{static_cast<std::int32_t>(static_cast<std::uint32_t>(number)),
                            TextOf(Part(json, "m"))}};
    }
    return {TextOf(json)};
}

ScriptValue FromJson(const Json& json) {
    switch (json.type()) {
        case Json::value_t::null:
            return {ScriptNull()};
        case Json::value_t::boolean:
            return {json.get<bool>()};
        case Json::value_t::number_integer:
        case Json::value_t::number_unsigned:
        case Json::value_t::number_float:
            return {json.get<double>()};
        case Json::value_t::string:
            return {TextOf(json)};
        case Json::value_t::array: {
            ScriptArray array;
            array.reserve(json.size());
            for (const Json& element : json)
                array.push_back(FromJson(element));
            return {std::move(array)};
        }
        case Json::value_t::object:
            return ObjectFromJson(json);
        default:
            Refuse();
    }
}

}  // namespace

std::string EncodeScriptValue(const ScriptValue& value) {
    return ToJson(value).dump();
}

ScriptValue DecodeScriptValue(std::string_view text) {
    // Deeper ones are refused while they are read, before the calls that take them apart could get too many.
    const Json json = Json::parse(
        text,
        [](int depth, Json::parse_event_t, Json&) {
            if (depth > deepest)
                Refuse();
            return true;
        },
        false);
    if (json.is_discarded())
        Refuse();
    return FromJson(json);
}

}  // namespace nux::webbrowser
