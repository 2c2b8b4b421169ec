// How single values are found in a row, and that the DOM's own selection finds and reads them alike.

#include "environment/XMLAccess.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/Dom.h"

namespace nux {
namespace {

using Text = std::optional<std::string>;

/// The text of a value, "(no text)" for one of another type.
std::string TextOf(const Variant& value) {
    return value.IsString() ? Narrow(value.Text()) : "(no text)";
}

Text Child(const std::string& row, const wchar_t* name) {
    Variant value;
    return ReadChildElement(RootOf(ParseXml(row)).Get(), name, value) ? Text(TextOf(value)) : std::nullopt;
}

Text Attribute(const std::string& row, const wchar_t* name) {
    Variant value;
    const auto element = RootOf(ParseXml(row)).As<IXMLDOMElement>();
    return ReadAttribute(element.Get(), Bstr(name), value) ? Text(TextOf(value)) : std::nullopt;
}

/// The value of the node that the DOM itself selects.
Text Selected(const std::string& row, const std::wstring& expression) {
    ComPtr<IXMLDOMNode> node;
    if (RootOf(ParseXml(row))->selectSingleNode(Bstr(expression).Get(), node.Receive()) != S_OK)
        return std::nullopt;
    Variant value;
    node->get_nodeTypedValue(value.Receive());
    return TextOf(value);
}

void SelectByXPath(const ComPtr<IXMLDOMDocument>& document) {
    // The compiler's libraries don't know this identifier.
    const IID id{0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
    ComPtr<IXMLDOMDocument2> second;
    ASSERT_EQ(document->QueryInterface(id, second.ReceiveVoid()), S_OK);
    ASSERT_EQ(second->setProperty(Bstr(L"SelectionLanguage").Get(), Variant("XPath").Get()), S_OK);
}

TEST(ReadChildElement, TakesTheOneThatTheDomSelectsByItsName) {
    struct {
        const char* row;
        const wchar_t* name;
        Text text;
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

TEST(ReadChildElement, GivesAValueThatIsNoStringAsItIs) {
    const std::string typed =
        "<s xmlns:dt='urn:schemas-microsoft-com:datatypes'><A dt:dt='int'>12</A><B dt:dt='string'>13</B></s>";
    EXPECT_EQ(Child(typed, L"A"), "(no text)");
    EXPECT_EQ(Child(typed, L"B"), "13");
}

TEST(ReadAttribute, GivesWhatTheSelectedNodeHoldsWhateverKindOfAttributeItIs) {
    const std::string type =
        "<!DOCTYPE s [<!ENTITY five '5'><!ELEMENT s EMPTY>"
        "<!ATTLIST s A CDATA #IMPLIED I ID #IMPLIED N NMTOKENS #IMPLIED E (one|two) #IMPLIED>]>";
    const std::string types = " xmlns:dt='urn:schemas-microsoft-com:datatypes'";
    struct {
        std::string row;
        const wchar_t* name;
        Text text;
    } const cases[] = {
        {"<s A='12.50'/>", L"A", "12.50"},
        {"<s A=''/>", L"A", ""},
        {"<s A=' a  b '/>", L"A", " a  b "},
        {"<s A='a\tb\nc'/>", L"A", "a b c"},
        {"<s A='&#65;&#x42;&amp;&lt;&quot;'/>", L"A", "AB&<\""},
        {type + "<s A='1&five;'/>", L"A", "15"},
        {type + "<s I='x1'/>", L"I", "x1"},
        {type + "<s N='a b'/>", L"N", "a b"},
        {type + "<s E='two'/>", L"E", "two"},
        {"<s a='1'/>", L"A", std::nullopt},
        {"<s" + types + " dt:dt='int' A='12'>7</s>", L"A", "12"},
    };
    for (const auto& [row, name, text] : cases) {
        EXPECT_EQ(Attribute(row, name), text) << row;
        EXPECT_EQ(Selected(row, std::wstring(L"@") + name), text) << row;
    }
}

// What follows is found beyond the DOM's own selection, or beyond that of some DOM.

TEST(ReadAttribute, GivesTheTextOfOneThatASchemaTypes) {
    // Where the DOM knows the schema, the typed value of the node is a number, which would read as nothing.
    const std::string row = "<s xmlns:dt='urn:schemas-microsoft-com:datatypes' dt:A='int' A='12'/>";
    EXPECT_EQ(Attribute(row, L"A"), "12");
}

TEST(ReadAttribute, GivesTheDefaultOfADocumentType) {
    const std::string row = "<!DOCTYPE s [<!ELEMENT s EMPTY><!ATTLIST s A CDATA '7' B CDATA '8'>]><s B='9'/>";
    EXPECT_EQ(Attribute(row, L"A"), "7");
    EXPECT_EQ(Attribute(row, L"B"), "9");
}

TEST(RowValues, AreFoundByPrefixedNamesAndThoseBeyondAscii) {
    const char prefixed[] = "<s xmlns:p='u' A='no' p:A='1'><A>no</A><p:A>2</p:A></s>";
    EXPECT_EQ(Attribute(prefixed, L"p:A"), "1");
    EXPECT_EQ(Child(prefixed, L"p:A"), "2");
    EXPECT_EQ(Attribute("<s xmlns:p='u' p:A='1'/>", L"A"), std::nullopt);
    const char umlaut[] = "<s La='no' L\xC3\xA4='1'><La>no</La><L\xC3\xA4>2</L\xC3\xA4></s>";
    EXPECT_EQ(Attribute(umlaut, L"L\u00E4"), "1");
    EXPECT_EQ(Child(umlaut, L"L\u00E4"), "2");
}

TEST(RowValues, AreFoundByNamesBeyondTheCodePage) {
    const char row[] = "<s \xE9\x95\xB7='1'><\xE9\x95\xB7>2</\xE9\x95\xB7></s>";
    EXPECT_EQ(Attribute(row, L"\u9577"), "1");
    EXPECT_EQ(Child(row, L"\u9577"), "2");
}

TEST(RowValues, AreFoundInADefaultNamespaceAlsoWhereTheDocumentSelectsByXPath) {
    const auto document = ParseXml("<s xmlns='u' A='1'><A>2</A></s>");
    SelectByXPath(document);
    Variant value;
    ASSERT_TRUE(ReadChildElement(RootOf(document).Get(), L"A", value));
    EXPECT_EQ(TextOf(value), "2");
    ASSERT_TRUE(ReadAttribute(RootOf(document).As<IXMLDOMElement>().Get(), Bstr(L"A"), value));
    EXPECT_EQ(TextOf(value), "1");
}

TEST(RowValues, AreFoundByAPrefixThatTheSelectionHasNotBeenTold) {
    const auto document = ParseXml("<s xmlns:p='u' p:A='1'><p:A>2</p:A></s>");
    SelectByXPath(document);
    Variant value;
    ASSERT_TRUE(ReadChildElement(RootOf(document).Get(), L"p:A", value));
    EXPECT_EQ(TextOf(value), "2");
    ASSERT_TRUE(ReadAttribute(RootOf(document).As<IXMLDOMElement>().Get(), Bstr(L"p:A"), value));
    EXPECT_EQ(TextOf(value), "1");
}

TEST(RowValues, OfNamesThatMakeNoExpressionAreNone) {
    for (const wchar_t* name : {L"#comment", L"A[", L"@", L"A/b", L"*", L"."}) {
        EXPECT_EQ(Child("<s A='1'><A>1<b/></A></s>", name), std::nullopt) << name;
        EXPECT_EQ(Attribute("<s A='1'><A>1<b/></A></s>", name), std::nullopt) << name;
    }
}

}  // namespace
}  // namespace nux
