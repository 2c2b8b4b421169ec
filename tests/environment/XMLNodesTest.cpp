#include <gtest/gtest.h>

#include <string>

#include "environment/XMLAccess.h"
#include "framework/Text.h"
#include "tests/support/RawVariant.h"
#include "tests/support/TempFolder.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

class NodeTexts : public testing::Test {
protected:
    ~NodeTexts() override { ClearXMLDocumentCache(); }

    /// The root element of a document with this content.
    ComPtr<IXMLDOMNode> Root(const std::string& content) {
        folder_.Write("a.xml", content);
        ComPtr<IXMLDOMDocument> document;
        EXPECT_TRUE(LoadXMLDocument(folder_.Url("a.xml"), document.Receive())) << content;
        ClearXMLDocumentCache();
        return GetRootNode(document.Get());
    }
    ComPtr<IXMLDOMNode> Select(const ComPtr<IXMLDOMNode>& node, const wchar_t* expression) {
        ComPtr<IXMLDOMNode> found;
        EXPECT_EQ(S_OK, node->selectSingleNode(Bstr(expression).Get(), found.Receive()));
        return found;
    }

    const TempFolder folder_;
};

TEST_F(NodeTexts, AreEmptyForANullNode) {
    EXPECT_EQ("", GetNodeText(nullptr));
    EXPECT_EQ("", GetChildNodeText(nullptr, "Name"));
    EXPECT_EQ("", GetNodeAttribute(nullptr, "name"));
}

TEST_F(NodeTexts, AreThoseOfElementsAttributesAndCharacters) {
    const auto root =
        Root("<a b='x'><c>text</c><!--comment--><?target instruction?><d><![CDATA[<data>]]></d></a>");
    EXPECT_EQ("x", GetNodeText(Select(root, L"@b").Get()));
    ComPtr<IXMLDOMNode> characters;
    Select(root, L"c")->get_firstChild(characters.Receive());
    EXPECT_EQ("text", GetNodeText(characters.Get()));
    EXPECT_EQ("comment", GetNodeText(Select(root, L"comment()").Get()));
    EXPECT_EQ("instruction", GetNodeText(Select(root, L"processing-instruction()").Get()));
    Select(root, L"d")->get_firstChild(characters.Receive());
    EXPECT_EQ("<data>", GetNodeText(characters.Get()));
    EXPECT_EQ("text<data>", GetNodeText(root.Get()));
}

TEST_F(NodeTexts, OfAnElementHoldThoseOfItsChildren) {
    EXPECT_EQ("onetwo", GetNodeText(Root("<a><b>one</b><c><d>two</d></c></a>").Get()));
}

TEST_F(NodeTexts, AreEmptyForADocumentWhoseValueIsNoString) {
    const auto root = Root("<a>text</a>");
    ComPtr<IXMLDOMDocument> document;
    root->get_ownerDocument(document.Receive());
    EXPECT_EQ("", GetNodeText(document.Get()));
}

TEST_F(NodeTexts, AreEmptyForAValueOfAnotherType) {
    const auto root = Root("<a xmlns:dt='urn:schemas-microsoft-com:datatypes'><b dt:dt='i4'>42</b></a>");
    const auto number = Select(root, L"b");
    RawVariant value;
    ASSERT_EQ(S_OK, number->get_nodeTypedValue(value.Receive()));
    ASSERT_EQ(VT_I4, value.vt);
    EXPECT_EQ("", GetNodeText(number.Get()));
    EXPECT_EQ("", GetChildNodeText(root.Get(), "b"));
}

TEST_F(NodeTexts, KeepEachUmlautAsOneByteOfTheWesternCodePage) {
    ASSERT_EQ(1252u, GetACP()) << "needs the western code page";
    const auto root = Root("<a b='&#252;&#223;'>Gr&#246;&#223;e&#8364;</a>");
    EXPECT_EQ(
        "Gr\xF6\xDF"
        "e\x80",
        GetNodeText(root.Get()));
    EXPECT_EQ("\xFC\xDF", GetNodeAttribute(root.Get(), "b"));
}

TEST_F(NodeTexts, HaveTheDefaultCharacterWhereTheCodePageLacksOne) {
    ASSERT_EQ(1252u, GetACP()) << "needs the western code page";
    EXPECT_EQ("a?b", GetNodeText(Root("<a>a&#x8868;b</a>").Get()));
    EXPECT_EQ("a??b", GetNodeText(Root("<a>a&#x1F600;b</a>").Get()));
}

TEST_F(NodeTexts, AndNamesAreInTheCodePageOfTheThread) {
    const ThreadLocale locale(russian);
    // The name is written in UTF-8, the encoding of a file that tells none.
    const auto root = Root("<a b='&#x416;' \xD0\x96='x'>&#x416;<c b='&#x416;'>y</c></a>");
    EXPECT_EQ("\xC6y", GetNodeText(root.Get()));
    EXPECT_EQ("\xC6", GetNodeAttribute(root.Get(), "b"));
    EXPECT_EQ("x", GetNodeAttribute(root.Get(), "\xC6"));
    EXPECT_EQ("y", GetChildNodeText(root.Get(), "c[@b='\xC6']"));
}

TEST_F(NodeTexts, AreTakenWholeHoweverLong) {
    const std::string text(300'000, 'x');
    const auto root = Root("<a b='" + text + "'><c>" + text + "</c></a>");
    EXPECT_EQ(text, GetNodeText(root.Get()));
    EXPECT_EQ(text, GetChildNodeText(root.Get(), "c"));
    EXPECT_EQ(text, GetNodeAttribute(root.Get(), "b"));
}

TEST_F(NodeTexts, KeepLineFeedsAndInnerBlanks) {
    EXPECT_EQ("one\n  two", GetNodeText(Root("<a>one\n  two</a>").Get()));
}

TEST_F(NodeTexts, OfAChildAreEmptyAlikeWhetherItIsEmptyOrMissing) {
    const auto root = Root("<a><Empty/><Open></Open><Name>text</Name></a>");
    EXPECT_EQ("", GetChildNodeText(root.Get(), "Empty"));
    EXPECT_EQ("", GetChildNodeText(root.Get(), "Open"));
    EXPECT_EQ("", GetChildNodeText(root.Get(), "Missing"));
    EXPECT_EQ("text", GetChildNodeText(root.Get(), "Name"));
}

TEST_F(NodeTexts, OfAChildAreThoseOfTheFirstThatIsSelected) {
    const auto root = Root("<a><deep><Name>inner</Name></deep><Name>first</Name><Name>second</Name></a>");
    EXPECT_EQ("first", GetChildNodeText(root.Get(), "Name"));
    EXPECT_EQ("inner", GetChildNodeText(root.Get(), "deep/Name"));
    EXPECT_EQ("", GetChildNodeText(root.Get(), "name"));
}

TEST_F(NodeTexts, OfAChildAreRelativeToTheNode) {
    const auto root = Root("<a><Name>outer</Name><b><Name>inner</Name></b></a>");
    EXPECT_EQ("inner", GetChildNodeText(Select(root, L"b").Get(), "Name"));
}

TEST_F(NodeTexts, OfAnAttributeAreEmptyAlikeWhetherItIsEmptyOrMissing) {
    const auto root = Root("<a name='text' empty=''/>");
    EXPECT_EQ("text", GetNodeAttribute(root.Get(), "name"));
    EXPECT_EQ("", GetNodeAttribute(root.Get(), "empty"));
    EXPECT_EQ("", GetNodeAttribute(root.Get(), "missing"));
    EXPECT_EQ("", GetNodeAttribute(root.Get(), "Name"));
    EXPECT_EQ("", GetNodeAttribute(root.Get(), ""));
}

TEST_F(NodeTexts, OfAnAttributeAreEmptyForANodeThatHasNone) {
    const auto root = Root("<a name='x'>text<!--comment--></a>");
    ComPtr<IXMLDOMNode> characters;
    root->get_firstChild(characters.Receive());
    EXPECT_EQ("", GetNodeAttribute(characters.Get(), "name"));
    EXPECT_EQ("", GetNodeAttribute(Select(root, L"comment()").Get(), "name"));
    EXPECT_EQ("", GetNodeAttribute(Select(root, L"@name").Get(), "name"));
}

TEST_F(NodeTexts, OfAnAttributeHaveTheirReferencesResolved) {
    EXPECT_EQ("<\"'&>", GetNodeAttribute(Root("<a name='&lt;&quot;&apos;&amp;&gt;'/>").Get(), "name"));
}

TEST_F(NodeTexts, OfADocumentWithoutRootHaveNoRootNode) {
    ComPtr<IXMLDOMDocument> empty;
    ASSERT_EQ(S_OK, CoCreateInstance(CLSID_DOMDocument30, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                                     empty.ReceiveVoid()));
    EXPECT_FALSE(GetRootNode(empty.Get()));
}

}  // namespace
}  // namespace nux
