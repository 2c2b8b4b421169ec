#include <gtest/gtest.h>

#include <string>

#include "environment/XMLAccess.h"
#include "tests/support/HostDouble.h"
#include "tests/support/TempFolder.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

using namespace std::string_literals;

/// A catalogue in a folder that the host tells.
class ComponentNode : public testing::Test {
protected:
    ~ComponentNode() override {
        ClearXMLDocumentCache();
        Installation() = {};
    }

    void WriteCatalog(const std::string& parts) {
        folder_.Write("Pins\\Catalog.xml", "<Catalog>" + parts + "</Catalog>");
    }
    /// The child `Name` of the part that is found, or "none".
    std::string NameOf(const std::string& componentId, const std::string& catalogId = "Pins") {
        const ComPtr<IXMLDOMNode> part = FindComponentNode(catalogId, componentId);
        return part ? GetChildNodeText(part.Get(), "Name") : "none";
    }
    static std::string Part(const std::string& id, const std::string& name) {
        return "<Part><ID>" + id + "</ID><Name>" + name + "</Name></Part>";
    }

    const TempFolder folder_;
    const InstalledHost host_{[this](const std::string& id) { return folder_.Path() + id + "\\"; }};
};

TEST_F(ComponentNode, IsThePartWithTheId) {
    WriteCatalog(Part("a", "first") + Part("b", "second"));
    EXPECT_EQ("first", NameOf("a"));
    EXPECT_EQ("second", NameOf("b"));
}

TEST_F(ComponentNode, LiesAtAnyDepth) {
    WriteCatalog("<Folder><Name>x</Name><Folder>" + Part("deep", "nested") + "</Folder></Folder>");
    EXPECT_EQ("nested", NameOf("deep"));
}

TEST_F(ComponentNode, IsFoundOrNullInAFileThatIsNestedDeeply) {
    const auto nested = [](int levels) {
        std::string content;
        for (int level = 0; level < levels; ++level)
            content += "<Folder>";
        content += Part("deep", "nested");
        for (int level = 0; level < levels; ++level)
            content += "</Folder>";
        return content;
    };
    WriteCatalog(nested(200));
    EXPECT_EQ("nested", NameOf("deep"));
    EXPECT_EQ("none", NameOf("missing"));
    for (const int levels : {10'000, 100'000}) {  // more than every DOM takes
        ClearXMLDocumentCache();
        WriteCatalog(nested(levels));
        ComPtr<IXMLDOMDocument> document;
        const bool loaded = LoadXMLDocument(folder_.Url("Pins\\Catalog.xml"), document.Receive());
        EXPECT_EQ(loaded ? "nested" : "none", NameOf("deep")) << levels;
    }
}

TEST_F(ComponentNode, IsTheFirstOfTwoWithTheSameId) {
    WriteCatalog("<Folder>" + Part("a", "first") + "</Folder>" + Part("a", "second"));
    EXPECT_EQ("first", NameOf("a"));
}

TEST_F(ComponentNode, IsAPartAndNothingElse) {
    WriteCatalog("<Folder><ID>a</ID><Name>folder</Name></Folder><part><ID>a</ID></part>" + Part("a", "part"));
    EXPECT_EQ("part", NameOf("a"));
}

TEST_F(ComponentNode, HasTheIdAsItsOwnChild) {
    WriteCatalog(
        "<Part "
        "ID='a'><Name>attribute</Name></Part><Part><Name>deeper</Name><Draft><ID>a</ID></Draft></Part>");
    EXPECT_EQ("none", NameOf("a"));
}

TEST_F(ComponentNode, IsNullForAnIdThatIsMissingOrDiffersInCase) {
    WriteCatalog(Part("Pin", "x"));
    EXPECT_EQ("none", NameOf("Bolt"));
    EXPECT_EQ("none", NameOf("pin"));
    EXPECT_EQ("none", NameOf("Pin "));
}

TEST_F(ComponentNode, OfAnEmptyIdIsThePartWhoseIdIsEmpty) {
    WriteCatalog(Part("a", "x"));
    EXPECT_EQ("none", NameOf(""));
    WriteCatalog(Part("a", "x") + Part("", "without"));
    ClearXMLDocumentCache();
    EXPECT_EQ("without", NameOf(""));
}

TEST_F(ComponentNode, IsNullForAnIdWithAnyApostrophe) {
    // The last ID would be well formed and select each part, if it ever reached the DOM.
    WriteCatalog(Part("a", "x") + Part("O&apos;Ring", "apostrophe") + Part("&apos;", "only"));
    for (const char* id : {"O'Ring", "'", "''", "'a", "a'", "a'b'c", "x' or 'a'='a"})
        EXPECT_EQ("none", NameOf(id)) << id;
}

TEST_F(ComponentNode, IsNullForAnIdWithAZeroInside) {
    WriteCatalog(Part("a", "x"));
    EXPECT_EQ("none", NameOf("a\0"s));
    EXPECT_EQ("none", NameOf("a\0b"s));
    EXPECT_EQ("none", NameOf("\0"s));
}

TEST_F(ComponentNode, MayHaveQuotesAndOtherMarksInItsId) {
    WriteCatalog(Part("1/2&quot; &lt;x&gt; [1]", "inch"));
    EXPECT_EQ("inch", NameOf("1/2\" <x> [1]"));
    for (const char* id : {"\"", "]", "//", "(", "$", "\\", "&", "{", "a]b["})
        EXPECT_EQ("none", NameOf(id)) << id;
}

TEST_F(ComponentNode, MayHaveUmlautsInItsId) {
    ASSERT_EQ(1252u, GetACP()) << "needs the western code page";
    WriteCatalog(Part("St&#246;&#223;el", "plunger"));
    EXPECT_EQ("plunger", NameOf("St\xF6\xDF"
                                "el"));
}

TEST_F(ComponentNode, HasItsIdInTheCodePageOfTheThread) {
    const ThreadLocale locale(russian);
    WriteCatalog(Part("&#x416;", "found"));
    EXPECT_EQ("found", NameOf("\xC6"));
}

TEST_F(ComponentNode, MayHaveALongId) {
    const std::string id(20'000, 'x');
    WriteCatalog(Part(id, "long"));
    EXPECT_EQ("long", NameOf(id));
}

TEST_F(ComponentNode, IsNullWhenTheCatalogueCannotBeLoaded) {
    EXPECT_EQ("none", NameOf("a"));
    folder_.Write("Pins\\Catalog.xml", "<Catalog>");
    EXPECT_EQ("none", NameOf("a"));
}

TEST_F(ComponentNode, IsNullInADocumentWithoutARoot) {
    ComPtr<IXMLDOMDocument> empty;
    ASSERT_EQ(S_OK, CoCreateInstance(CLSID_DOMDocument30, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                                     empty.ReceiveVoid()));
    KeepXMLDocument(folder_.Url("Pins\\Catalog.xml"), empty.Get());
    EXPECT_EQ("none", NameOf("a"));
}

TEST_F(ComponentNode, LeavesNoReferenceBehind) {
    WriteCatalog(Part("a", "x"));
    ComPtr<IXMLDOMDocument> document;
    ASSERT_TRUE(LoadXMLDocument(folder_.Url("Pins\\Catalog.xml"), document.Receive()));
    const auto references = [&] {
        document->AddRef();
        return document->Release();
    };
    EXPECT_EQ("x", NameOf("a"));
    const ULONG before = references();
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ("x", NameOf("a"));
        EXPECT_EQ("none", NameOf("b"));
        EXPECT_EQ("", GetNodeAttribute(FindComponentNode("Pins", "a").Get(), "none"));
    }
    EXPECT_EQ(before, references());
}

TEST_F(ComponentNode, ComesFromTheCachedDocumentOfTheCatalogue) {
    WriteCatalog(Part("a", "x"));
    ComPtr<IXMLDOMDocument> cached;
    ASSERT_TRUE(LoadXMLDocument(folder_.Url("Pins\\Catalog.xml"), cached.Receive()));
    folder_.Remove("Pins\\Catalog.xml");
    EXPECT_EQ("x", NameOf("a"));
    GetRootNode(cached.Get())->put_text(Bstr(L"emptied").Get());
    EXPECT_EQ("none", NameOf("a"));
}

TEST_F(ComponentNode, LiesInTheRootOfTheCataloguesWithoutAHost) {
    WriteCatalog(Part("a", "of the catalogue"));
    folder_.Write("Catalog.xml", "<Catalog>" + Part("a", "of the root") + "</Catalog>");
    Installation().catalog = folder_.Path();
    SetHost3D(this, nullptr);
    EXPECT_EQ("of the root", NameOf("a"));
}

TEST_F(ComponentNode, StaysUsableAfterTheCacheWasCleared) {
    WriteCatalog(Part("a", "x"));
    const ComPtr<IXMLDOMNode> part = FindComponentNode("Pins", "a");
    ClearXMLDocumentCache();
    EXPECT_EQ("x", GetChildNodeText(part.Get(), "Name"));
}

}  // namespace
}  // namespace nux
