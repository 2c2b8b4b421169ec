// Texts in a code page whose characters have one or two bytes: run with a Japanese locale. The second byte of
// one of the characters used here is that of the backslash.

#include <gtest/gtest.h>

#include <string>

#include "dimensions/DimensionDocument.h"
#include "environment/Localisation.h"
#include "environment/Paths.h"
#include "framework/Text.h"
#include "tests/support/HostDouble.h"
#include "tests/support/LanguageFolders.h"

namespace nux {
namespace {

// Two characters of two bytes each, and one of a single byte.
const std::string table = "\x95\x5C";
const std::string show = "\x8E\xA6";
const std::string halfWidth = "\xB1";
const std::string tableXml = "&#x8868;";
const std::string showXml = "&#x793A;";
const std::string halfWidthXml = "&#xFF71;";

class DoubleByte : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(932u, GetACP()) << "needs the Japanese code page"; }

    ComPtr<IXMLDOMNode> Root(const std::string& content) {
        languages_.Folder().Write("a.xml", content);
        ClearXMLDocumentCache();
        ComPtr<IXMLDOMDocument> document;
        EXPECT_TRUE(LoadXMLDocument(languages_.Folder().Url("a.xml"), document.Receive()));
        return GetRootNode(document.Get());
    }
    std::string TextOf(const std::string& xml) { return GetNodeText(Root("<a>" + xml + "</a>").Get()); }

    const LanguageFolders languages_;
};

TEST_F(DoubleByte, NodeTextIsCutAfterAsManyBytesAsItHasCharacters) {
    EXPECT_EQ(table, TextOf(tableXml + showXml));
    EXPECT_EQ(table + show, TextOf(tableXml + showXml + tableXml + showXml));
}

TEST_F(DoubleByte, NodeTextMayBeCutInTheMiddleOfACharacter) {
    EXPECT_EQ("\x95", TextOf(tableXml));
    EXPECT_EQ("a\x95", TextOf("a" + tableXml));
    EXPECT_EQ(table + "\x8E", TextOf(tableXml + showXml + "z"));
}

TEST_F(DoubleByte, NodeTextOfSingleBytesIsNotCut) {
    EXPECT_EQ("abc", TextOf("abc"));
    EXPECT_EQ(halfWidth + halfWidth + "a", TextOf(halfWidthXml + halfWidthXml + "a"));
}

TEST_F(DoubleByte, ChildTextIsCutAlike) {
    const auto root = Root("<a><Name>" + tableXml + showXml + "</Name></a>");
    EXPECT_EQ(table, GetChildNodeText(root.Get(), "Name"));
}

TEST_F(DoubleByte, AttributeIsTakenWhole) {
    const auto root = Root("<a name='" + tableXml + showXml + "z'/>");
    EXPECT_EQ(table + show + "z", GetNodeAttribute(root.Get(), "name"));
}

TEST_F(DoubleByte, AttributeNodeIsCutLikeAnyOtherWhenItIsReadAsText) {
    const auto root = Root("<a name='" + tableXml + showXml + "'/>");
    ComPtr<IXMLDOMNode> attribute;
    ASSERT_EQ(S_OK, root->selectSingleNode(Bstr(L"@name").Get(), attribute.Receive()));
    EXPECT_EQ(table, GetNodeText(attribute.Get()));
}

TEST_F(DoubleByte, AttributeIsFoundByItsName) {
    // The name is written in UTF-8, the encoding of a file that tells none.
    EXPECT_EQ("x", GetNodeAttribute(Root("<a \xE8\xA1\xA8='x'/>").Get(), table.c_str()));
}

TEST_F(DoubleByte, ComponentIsFoundByItsWholeId) {
    languages_.Folder().Write("Catalog.xml", "<Catalog><Part><ID>" + tableXml + showXml +
                                                 "</ID><Name>found</Name></Part></Catalog>");
    Installation().catalog = languages_.Folder().Path();
    EXPECT_EQ("found", GetChildNodeText(FindComponentNode("", table + show).Get(), "Name"));
    EXPECT_FALSE(FindComponentNode("", table));
}

TEST_F(DoubleByte, ComponentIdThatEndsInHalfACharacterFindsNothing) {
    // Such IDs come from GetNodeText, which cuts. Widened together with what follows them, the half would
    // take the end of the literal along, and Wine 8.0's DOM dies of a selection that is not well formed.
    languages_.Folder().Write("Catalog.xml", "<Catalog><Part><ID>1/2</ID></Part></Catalog>");
    Installation().catalog = languages_.Folder().Path();
    for (const char* id : {"M8x20 \x95", "a b\x95", "1/2\x95", "\x95"})
        EXPECT_FALSE(FindComponentNode("", id)) << id;
    EXPECT_TRUE(FindComponentNode("", "1/2"));
}

TEST_F(DoubleByte, TranslationIsTakenWholeAndItsIdIsCut) {
    languages_.StartInUserLanguage();
    EXPECT_EQ("Japanese", InterfaceLanguage());
    languages_.WriteMessages(
        "Pins_Msgs.xml", Pair("Pin", tableXml + showXml) + Pair(tableXml + showXml, "under its first half"));
    EXPECT_EQ(table + show, GetLocalizedMessage("Pins", "Pin"));
    EXPECT_EQ("under its first half", GetLocalizedMessage("Pins", table));
    EXPECT_EQ(table + show, GetLocalizedMessage("Pins", table + show));
}

TEST_F(DoubleByte, FolderWhoseNameEndsInTheByteOfASeparatorIsFound) {
    languages_.Folder().MakeFolder(show + table);
    EXPECT_TRUE(DirectoryExists(languages_.Folder().Path() + show + table));
    EXPECT_TRUE(DirectoryExists(languages_.Folder().Path() + show + table + "\\"));
    EXPECT_FALSE(DirectoryExists(languages_.Folder().Path() + table));
}

TEST_F(DoubleByte, PathWhoseLastCharacterEndsInThatByteEndsInNoSeparator) {
    EXPECT_FALSE(EndsInSeparator("C:\\" + table));
    EXPECT_FALSE(EndsInSeparator(table));
    EXPECT_TRUE(EndsInSeparator("C:\\" + table + "\\"));
    EXPECT_TRUE(EndsInSeparator(table + "/"));
}

TEST_F(DoubleByte, DimensionFileIsMadeInAFolderWhoseNameEndsInThatByte) {
    const std::string folder = languages_.Folder().Path() + show + table;
    for (const char* end : {"", "\\", "/"}) {
        ComPtr<IXMLDOMDocument> document;
        EXPECT_TRUE(CreateDimensionDocument(folder + end, "a.xml", document.Receive())) << end;
    }
    EXPECT_TRUE(FileExists(folder + "\\a.xml"));
    EXPECT_FALSE(DirectoryExists(languages_.Folder().Path() + show + "\x95"));
}

TEST_F(DoubleByte, DocumentIsLoadedFromAPathOfSuchCharacters) {
    const std::string name = table + "\\" + show + table + ".xml";
    languages_.Folder().Write(name, "<a>found</a>");
    EXPECT_TRUE(FileExists(languages_.Folder().Path() + name));
    EXPECT_TRUE(URLTargetExists(languages_.Folder().Url(name)));
    ComPtr<IXMLDOMDocument> document;
    ASSERT_TRUE(LoadXMLDocument(languages_.Folder().Url(name), document.Receive()));
    EXPECT_EQ("found", GetNodeText(GetRootNode(document.Get()).Get()));
}

TEST_F(DoubleByte, CatalogueFolderIsAskedForAndToldInSuchCharacters) {
    const InstalledHost host([](const std::string& id) { return "C:\\" + id + "\\"; });
    EXPECT_EQ("C:\\" + table + show + "\\", GetCatalogFolder(table + show));
}

TEST_F(DoubleByte, LogEntryIsWrittenWhole) {
    SetLogFile(languages_.Folder().Path() + table + ".log");
    WriteLogEntry(false, 0, 0, 0, table + show);
    EXPECT_EQ(table + show, languages_.Folder().Read(table + ".log"));
}

}  // namespace
}  // namespace nux
