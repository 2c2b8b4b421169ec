// How single values are found in a row.

#include "dimensions/CellText.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/Dom.h"

namespace nux {
namespace {

std::optional<std::string> Child(const std::string& row, const wchar_t* name) {
    CellText text;
    const bool found = ReadChildElement(RootOf(ParseXml(row)).Get(), Bstr(name), &text);
    return found ? std::optional<std::string>(text.View()) : std::nullopt;
}

std::optional<std::string> Attribute(const std::string& row, const wchar_t* name) {
    CellText text;
    const auto element = RootOf(ParseXml(row)).As<IXMLDOMElement>(IID_IXMLDOMElement);
    const bool found = ReadAttribute(element.Get(), Bstr(name), &text);
    return found ? std::optional<std::string>(text.View()) : std::nullopt;
}

/// The text of the node that the DOM itself selects.
std::optional<std::string> Selected(const std::string& row, const wchar_t* name) {
    ComPtr<IXMLDOMNode> node;
    if (RootOf(ParseXml(row))->selectSingleNode(Bstr(name).Get(), node.Receive()) != S_OK)
        return std::nullopt;
    Bstr text;
    node->get_text(text.Receive());
    return Narrow(text.Get());
}

TEST(RowValues, ChildElementIsTheOneThatTheDomSelectsByItsName) {
    struct {
        const char* row;
        const wchar_t* name;
        std::optional<std::string> text;
    } const cases[] = {
        {"<s A='1'><A>2</A></s>", L"A", "2"},
        {"<s><A>first</A><A>second</A></s>", L"A", "first"},
        {"<s>A<!--A--><x><A>deeper</A></x><?A 1?><A>3</A></s>", L"A", "3"},
        {"<s><A>1<b>2</b></A></s>", L"A", "12"},
        {"<s><a>1</a><AA>2</AA></s>", L"A", std::nullopt},
        {"<s xmlns='u'><A>of a default namespace</A></s>", L"A", "of a default namespace"},
        {"<s><A xmlns='u'>1</A><A>2</A></s>", L"A", "1"},
        {"<s xmlns:p='u'><p:A>1</p:A></s>", L"p:A", "1"},
        {"<s xmlns:p='u'><p:A>1</p:A></s>", L"A", std::nullopt},
        {"<s/>", L"A", std::nullopt},
    };
    for (const auto& [row, name, text] : cases) {
        EXPECT_EQ(Child(row, name), text) << row;
        EXPECT_EQ(Selected(row, name), text) << row;
    }
}

// Names that not every DOM selects.
TEST(RowValues, AreFoundByPrefixedNamesAndThoseBeyondAscii) {
    const char prefixed[] = "<s xmlns:p='u' A='no' p:A='1'><A>no</A><p:A>2</p:A></s>";
    EXPECT_EQ(Attribute(prefixed, L"p:A"), "1");
    EXPECT_EQ(Child(prefixed, L"p:A"), "2");
    EXPECT_EQ(Attribute("<s xmlns:p='u' p:A='1'/>", L"A"), std::nullopt);
    const char umlaut[] = "<s La='no' L\xC3\xA4='1'><La>no</La><L\xC3\xA4>2</L\xC3\xA4></s>";
    EXPECT_EQ(Attribute(umlaut, L"L\u00E4"), "1");
    EXPECT_EQ(Child(umlaut, L"L\u00E4"), "2");
}

TEST(RowValues, NamesThatMakeNoExpressionFindNothing) {
    for (const wchar_t* name : {L"#comment", L"A[", L"@", L"A/b", L"*", L"."}) {
        EXPECT_EQ(Child("<s A='1'><A>1<b/></A></s>", name), std::nullopt) << name;
        EXPECT_EQ(Attribute("<s A='1'><A>1<b/></A></s>", name), std::nullopt) << name;
    }
}

TEST(RowValues, AValueThatIsNoStringReadsAsAnEmptyText) {
    const std::string typed =
        "<s xmlns:dt='urn:schemas-microsoft-com:datatypes'><A dt:dt='int'>12</A><B dt:dt='string'>13</B></s>";
    EXPECT_EQ(Child(typed, L"A"), "");
    EXPECT_EQ(Child(typed, L"B"), "13");
    CellText text;
    text.Assign(L"old", 3);
    VARIANT number{};
    number.vt = VT_I4;
    number.lVal = 12;
    text.Assign(number);
    EXPECT_EQ(text.View(), "");
}

}  // namespace
}  // namespace nux
