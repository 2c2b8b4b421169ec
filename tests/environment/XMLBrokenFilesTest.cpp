#include <gtest/gtest.h>

#include <string>

#include "environment/XMLAccess.h"
#include "framework/Handles.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

class BrokenFile : public testing::Test {
protected:
    ~BrokenFile() override { ClearXMLDocumentCache(); }

    /// Loads a file that can't be a document, and then a good one in its place.
    void ExpectFailureThatIsNotRemembered(const std::string& name) {
        auto* document = reinterpret_cast<IXMLDOMDocument*>(this);
        EXPECT_FALSE(LoadXMLDocument(folder_.Url(name), &document));
        EXPECT_EQ(nullptr, document);
        folder_.Write(name, "<a>good</a>");
        ComPtr<IXMLDOMDocument> good;
        ASSERT_TRUE(LoadXMLDocument(folder_.Url(name), good.Receive()));
        EXPECT_EQ("good", GetNodeText(GetRootNode(good.Get()).Get()));
    }

    const TempFolder folder_;
};

TEST_F(BrokenFile, IsNoDocumentWhenItIsMissing) {
    ExpectFailureThatIsNotRemembered("a.xml");
}

TEST_F(BrokenFile, IsNoDocumentWhenItsFolderIsMissing) {
    ComPtr<IXMLDOMDocument> document;
    EXPECT_FALSE(LoadXMLDocument(folder_.Url("no such folder\\a.xml"), document.Receive()));
}

TEST_F(BrokenFile, IsNoDocumentUnderAUrlThatIsNone) {
    for (const std::string& url : {std::string(), std::string("file://"), std::string("nonsense://a.xml"),
                                   std::string("\x01\x02"), "file://" + std::string(100'000, 'a')}) {
        ComPtr<IXMLDOMDocument> document;
        EXPECT_FALSE(LoadXMLDocument(url, document.Receive())) << url.substr(0, 20);
        EXPECT_FALSE(document) << url.substr(0, 20);
    }
}

TEST_F(BrokenFile, IsNoDocumentWhenItIsEmpty) {
    folder_.Write("a.xml", "");
    ExpectFailureThatIsNotRemembered("a.xml");
}

TEST_F(BrokenFile, IsNoDocumentWhenItIsNotWellFormed) {
    for (const char* content :
         {"<a>", "<a></b>", "<a/><b/>", "text", "<a b=1/>", "<a>&none;</a>", "<a>\x01</a>",
          "<?xml version='1.0'?>", "<!-- only a comment -->", "   ", "<a><![CDATA[</a>",
          "<?xml version='1.0' encoding='utf-8'?><a>\xFF\xFE</a>"}) {
        folder_.Write("a.xml", content);
        ComPtr<IXMLDOMDocument> document;
        EXPECT_FALSE(LoadXMLDocument(folder_.Url("a.xml"), document.Receive())) << content;
    }
    ExpectFailureThatIsNotRemembered("a.xml");
}

TEST_F(BrokenFile, IsNoDocumentWhenItIsCutAnywhere) {
    const std::string whole = "<?xml version='1.0'?><a b='c'><!-- d --><e>f</e><![CDATA[g]]></a>";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        folder_.Write("a.xml", whole.substr(0, length));
        ComPtr<IXMLDOMDocument> document;
        EXPECT_FALSE(LoadXMLDocument(folder_.Url("a.xml"), document.Receive())) << length;
    }
}

TEST_F(BrokenFile, IsNoDocumentWhenItIsBinary) {
    std::string content;
    unsigned random = 1;
    while (content.size() < 100'000) {
        random = random * 1664525u + 1013904223u;
        content += static_cast<char>(random >> 24);
    }
    folder_.Write("a.xml", content);
    ExpectFailureThatIsNotRemembered("a.xml");
    folder_.Write("b.xml", "\xFF\xFE" + content);
    ExpectFailureThatIsNotRemembered("b.xml");
}

TEST_F(BrokenFile, IsNoDocumentWhenItIsLongAndBrokenAtItsEnd) {
    std::string content = "<a>";
    while (content.size() < 1'000'000)
        content += "<row a='1'>text</row>";
    folder_.Write("a.xml", content);
    ExpectFailureThatIsNotRemembered("a.xml");
}

TEST_F(BrokenFile, IsNoDocumentWhenAFolderIsInItsPlace) {
    folder_.MakeFolder("a.xml");
    ComPtr<IXMLDOMDocument> document;
    EXPECT_FALSE(LoadXMLDocument(folder_.Url("a.xml"), document.Receive()));
    EXPECT_FALSE(LoadXMLDocument("file://" + folder_.Path(), document.Receive()));
}

TEST_F(BrokenFile, IsNoDocumentWhileAnotherHoldsItWithoutSharing) {
    const std::string path = folder_.Write("a.xml", "<a>good</a>");
    {
        const UniqueFile held(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(held);
        ComPtr<IXMLDOMDocument> document;
        EXPECT_FALSE(LoadXMLDocument(folder_.Url("a.xml"), document.Receive()));
    }
    ComPtr<IXMLDOMDocument> document;
    EXPECT_TRUE(LoadXMLDocument(folder_.Url("a.xml"), document.Receive()));
}

/// A document of so many elements, each in the one before.
std::string Nested(int levels) {
    std::string content;
    for (int level = 0; level < levels; ++level)
        content += "<a>";
    content += "text";
    for (int level = 0; level < levels; ++level)
        content += "</a>";
    return content;
}

TEST_F(BrokenFile, IsAnyButOneThatIsNestedAsDeeplyAsFilesMayBe) {
    folder_.Write("a.xml", Nested(200));
    ComPtr<IXMLDOMDocument> document;
    ASSERT_TRUE(LoadXMLDocument(folder_.Url("a.xml"), document.Receive()));
    EXPECT_EQ("text", GetNodeText(GetRootNode(document.Get()).Get()));
}

TEST_F(BrokenFile, IsRefusedOrLoadedWholeWhenItIsNestedDeeply) {
    folder_.Write("a.xml", Nested(10'000));
    ComPtr<IXMLDOMDocument> document;
    if (LoadXMLDocument(folder_.Url("a.xml"), document.Receive()))
        EXPECT_EQ("text", GetNodeText(GetRootNode(document.Get()).Get()));
    else
        EXPECT_FALSE(document);
}

TEST_F(BrokenFile, OfDeepNestingThatNeverClosesIsNoDocument) {
    std::string content;
    while (content.size() < 3'000'000)
        content += "<a>";
    folder_.Write("a.xml", content);
    ExpectFailureThatIsNotRemembered("a.xml");
}

}  // namespace
}  // namespace nux
