// Files of 50 MB in the place of a catalogue. They have a program of their own because they take long: Wine's
// transport hands a file to the DOM in small pieces, which costs it half a minute of one core for each of
// these.

#include <gtest/gtest.h>

#include <string>

#include "environment/XMLAccess.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

constexpr std::size_t huge = 50'000'000;

class HugeFile : public testing::Test {
protected:
    ~HugeFile() override { ClearXMLDocumentCache(); }

    const TempFolder folder_;
};

TEST_F(HugeFile, OfBinaryDataIsNoDocumentAndIsNotRemembered) {
    std::string content = "<?xml version='1.0'?>\n<Catalog>";
    unsigned random = 1;
    while (content.size() < huge) {
        random = random * 1664525u + 1013904223u;
        content += static_cast<char>(random >> 24);
    }
    folder_.Write("Catalog.xml", content);
    ComPtr<IXMLDOMDocument> document;
    EXPECT_FALSE(LoadXMLDocument(folder_.Url("Catalog.xml"), document.Receive()));
    EXPECT_FALSE(document);
    folder_.Write("Catalog.xml", "<Catalog/>");
    EXPECT_TRUE(LoadXMLDocument(folder_.Url("Catalog.xml"), document.Receive()));
}

TEST_F(HugeFile, OfWellFormedDataIsADocumentLikeAnyOther) {
    const std::string part = "<Part><ID>x</ID><Note>" + std::string(2'000, 'n') + "</Note></Part>";
    std::string content = "<Catalog>";
    while (content.size() < huge)
        content += part;
    folder_.Write("Catalog.xml", content + "<Part><ID>last</ID></Part></Catalog>");
    ComPtr<IXMLDOMDocument> document;
    ASSERT_TRUE(LoadXMLDocument(folder_.Url("Catalog.xml"), document.Receive()));
    const auto root = GetRootNode(document.Get());
    EXPECT_EQ("x", GetChildNodeText(root.Get(), "Part/ID"));
    EXPECT_EQ("last", GetChildNodeText(root.Get(), "Part[ID='last']/ID"));
}

}  // namespace
}  // namespace nux
