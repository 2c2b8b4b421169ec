// Making and opening a dimension file.

#include "dimensions/DimensionDocument.h"

#include <gtest/gtest.h>

#include "environment/XMLAccess.h"
#include "framework/Handles.h"
#include "framework/Text.h"
#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

class DimensionDocument : public testing::Test {
protected:
    ~DimensionDocument() override { ClearXMLDocumentCache(); }

    static std::string RootName(const ComPtr<IXMLDOMDocument>& document) {
        Bstr name;
        RootOf(document)->get_nodeName(name.Receive());
        return Narrow(name.Get());
    }
    static bool Exists(const std::string& path) {
        return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    TempFolder temp;
    ComPtr<IXMLDOMDocument> document;
};

TEST_F(DimensionDocument, NeedsAPlaceForTheResult) {
    EXPECT_FALSE(CreateDimensionDocument(temp.Path() + "new", "A.xml", nullptr));
    EXPECT_FALSE(Exists(temp.Path() + "new"));
}

TEST_F(DimensionDocument, IsMadeWithARootAndNothingElse) {
    ASSERT_TRUE(CreateDimensionDocument(temp.Path(), "A.xml", document.Receive()));
    EXPECT_EQ("Dimensions", RootName(document));
    VARIANT_BOOL children = VARIANT_TRUE;
    RootOf(document)->hasChildNodes(&children);
    EXPECT_EQ(VARIANT_FALSE, children);
    EXPECT_EQ("<Dimensions/>", temp.Read("A.xml").substr(0, 13));
}

TEST_F(DimensionDocument, IsKeptLikeOneThatWasLoaded) {
    ASSERT_TRUE(CreateDimensionDocument(temp.Path(), "A.xml", document.Receive()));
    const std::string folder = temp.Path().substr(0, temp.Path().size() - 1);
    ComPtr<IXMLDOMDocument> again;
    ASSERT_TRUE(LoadXMLDocument("file://" + folder + "//A.xml", again.Receive()));
    EXPECT_EQ(again.Get(), document.Get());
}

TEST_F(DimensionDocument, MakesTheFolderButNotItsParent) {
    for (const char* end : {"", "\\", "/"}) {
        const std::string folder = temp.Path() + "made" + std::to_string(end[0]);
        EXPECT_TRUE(CreateDimensionDocument(folder + end, "A.xml", document.Receive())) << end;
        EXPECT_TRUE(Exists(folder + "\\A.xml"));
    }
    EXPECT_FALSE(CreateDimensionDocument(temp.Path() + "none\\below", "A.xml", document.Receive()));
    EXPECT_FALSE(document);
    EXPECT_FALSE(Exists(temp.Path() + "none"));
}

TEST_F(DimensionDocument, CutsOneSeparatorOnly) {
    const std::string folder = temp.Path() + "folder";
    EXPECT_TRUE(CreateDimensionDocument(folder + "\\\\", "A.xml", document.Receive()));
    EXPECT_TRUE(Exists(folder + "\\A.xml"));
}

TEST_F(DimensionDocument, ReplacesAFileInTheFolder) {
    temp.Write("folder\\A.xml", "<Dimensions><Size A='1'/></Dimensions>");
    ASSERT_TRUE(CreateDimensionDocument(temp.Path() + "folder", "A.xml", document.Receive()));
    VARIANT_BOOL children = VARIANT_TRUE;
    RootOf(document)->hasChildNodes(&children);
    EXPECT_EQ(VARIANT_FALSE, children) << "the test for a file looks at the glued name";
}

TEST_F(DimensionDocument, IsOpenedIfAFileHasTheGluedName) {
    temp.Write("folder\\A.xml", "<Dimensions><Size A='1'/></Dimensions>");
    temp.Write("folderA.xml", "anything");
    ASSERT_TRUE(CreateDimensionDocument(temp.Path() + "folder\\", "A.xml", document.Receive()));
    VARIANT_BOOL children = VARIANT_FALSE;
    RootOf(document)->hasChildNodes(&children);
    EXPECT_EQ(VARIANT_TRUE, children);
}

TEST_F(DimensionDocument, IsNoneIfTheGluedNameExistsAndTheFileDoesNot) {
    temp.MakeFolder("folder");
    temp.Write("folderA.xml", "anything");
    document = ParseXml("<old/>");
    IXMLDOMDocument* given = document.Get();
    EXPECT_FALSE(CreateDimensionDocument(temp.Path() + "folder", "A.xml", &given));
    EXPECT_EQ(nullptr, given);
}

TEST_F(DimensionDocument, IsNoneIfItCanNotBeWritten) {
    temp.MakeFolder("folder\\A.xml");  // a folder stands where the file would
    EXPECT_FALSE(CreateDimensionDocument(temp.Path() + "folder", "A.xml", document.Receive()));
    EXPECT_FALSE(document);
}

TEST_F(DimensionDocument, ThatCanNotBeSavedIsTheOneThatStandsThere) {
    temp.Write("folder\\A.xml", "<Old/>");
    const UniqueFile reader(CreateFileA((temp.Path() + "folder\\A.xml").c_str(), GENERIC_READ,
                                        FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(reader);  // who shares it with readers only
    ASSERT_TRUE(CreateDimensionDocument(temp.Path() + "folder", "A.xml", document.Receive()));
    EXPECT_EQ("Old", RootName(document));
}

TEST_F(DimensionDocument, OfAGluedNameIsTheOneThatIsKept) {
    temp.Write("folder\\A.xml", "<First/>");
    temp.Write("folderA.xml", "anything");
    ASSERT_TRUE(CreateDimensionDocument(temp.Path() + "folder", "A.xml", document.Receive()));
    temp.Write("folder\\A.xml", "<Second/>");
    ComPtr<IXMLDOMDocument> again;
    ASSERT_TRUE(CreateDimensionDocument(temp.Path() + "folder", "A.xml", again.Receive()));
    EXPECT_EQ(again.Get(), document.Get());
    EXPECT_EQ("First", RootName(again));
}

TEST_F(DimensionDocument, CountsItsReferences) {
    ASSERT_TRUE(CreateDimensionDocument(temp.Path(), "A.xml", document.Receive()));
    ClearXMLDocumentCache();
    IXMLDOMDocument* last = document.Detach();
    EXPECT_EQ(0u, last->Release()) << "one for the caller, and one that the cache had";
}

class UsersFile : public DimensionChooserFixture {
protected:
    // A DOM may give a document's node as one object or as another: a document is known by its marks.
    static void Mark(const ComPtr<IXMLDOMNode>& root, const char* mark) {
        root.As<IXMLDOMElement>()->setAttribute(Bstr(L"mark").Get(), Variant(mark).Get());
    }
    static std::string MarkOf(const ComPtr<IXMLDOMNode>& root) { return AttributeOf(root, "mark"); }
};

TEST_F(UsersFile, IsLeftWithItsDocumentWhereThereIsNoPlaceForTheResult) {
    Folder().Write("custom\\catalogs\\BOLTS\\UsrDimensions\\M8.xml", "<Dimensions/>");
    const Bstr catalog(L"BOLTS"), component(L"M8");
    ComPtr<IDispatch> node;
    ASSERT_EQ(S_OK, Object().GetUsrDimensionNode(catalog.Get(), component.Get(), node.Receive()));
    EXPECT_EQ(E_INVALIDARG, Object().GetUsrDimensionNode(catalog.Get(), component.Get(), nullptr));
    Mark(node.As<IXMLDOMNode>(), "first");
    ComPtr<IXMLDOMDocument> kept;
    ASSERT_TRUE(LoadXMLDocument(
        "file://" + Folder().Path() + "custom\\catalogs\\BOLTS\\UsrDimensions\\M8.xml", kept.Receive()));
    EXPECT_EQ("first", MarkOf(RootOf(kept)));
}

class StandardFile : public UsersFile {};

TEST_F(StandardFile, IsADocumentForEachSpellingOfItsIdentifiers) {
    Folder().Write("catalogs\\Bolts\\StdDimensions\\M8.xml", "<Dimensions/>");
    const auto rootOf = [&](const wchar_t* catalog, const wchar_t* component) {
        ComPtr<IDispatch> node;
        EXPECT_EQ(S_OK,
                  Object().GetStdDimensionNode(Bstr(catalog).Get(), Bstr(component).Get(), node.Receive()))
            << catalog;
        return node.As<IXMLDOMNode>();
    };
    Mark(rootOf(L"Bolts", L"M8"), "first");
    EXPECT_EQ("first", MarkOf(rootOf(L"Bolts", L"M8")));
    for (const auto& [catalog, component] :
         {std::pair{L"BOLTS", L"M8"}, {L"Bolts", L"m8"}, {L"Other\\..\\Bolts", L"M8"}}) {
        const auto root = rootOf(catalog, component);
        ASSERT_TRUE(root) << catalog << component;
        EXPECT_NE("first", MarkOf(root)) << catalog << component;
    }
}

TEST_F(UsersFile, ThatIsMissingIsAFailureAndLeavesNothingBehind) {
    const Bstr catalog(L"BOLTS"), component(L"M8");
    const auto exists = [&](const char* name) {
        return GetFileAttributesA((Folder().Path() + name).c_str()) != INVALID_FILE_ATTRIBUTES;
    };
    ComPtr<IDispatch> node;
    EXPECT_EQ(E_FAIL, Object().GetUsrDimensionNode(catalog.Get(), component.Get(), node.Receive()));
    EXPECT_FALSE(node);
    EXPECT_FALSE(exists("custom"));
    Folder().MakeFolder("custom\\catalogs\\BOLTS\\UsrDimensions");
    EXPECT_EQ(E_FAIL, Object().GetUsrDimensionNode(catalog.Get(), component.Get(), node.Receive()));
    EXPECT_FALSE(exists("custom\\catalogs\\BOLTS\\UsrDimensions\\M8.xml"));
}

}  // namespace
}  // namespace nux
