// The documents and nodes that scripts are given.

#include <windows.h>

#include <gtest/gtest.h>
#include <msxml2.h>

#include <functional>
#include <iterator>
#include <string_view>

#include "tests/support/HostDoubles.h"
#include "tests/support/Installation.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

constexpr char catalogue[] = "catalogs\\BOLTS\\Catalog.xml";
constexpr char standard[] = "catalogs\\BOLTS\\StdDimensions\\M8.xml";
constexpr char users[] = "custom\\catalogs\\BOLTS\\UsrDimensions\\M8.xml";

class DocumentServices : public InstallationTest {
protected:
    using NodeOf = HRESULT (STDMETHODCALLTYPE InuxStdParts::*)(BSTR, BSTR, IDispatch**);

    void SetUp() override {
        InstallationTest::SetUp();
        folder.Write(catalogue, "<Catalog kind='bolts'/>");
        folder.Write(standard, "<Dims kind='first'/>");
        folder.Write(users, "<Dims kind='first'/>");
    }

    HRESULT Node(NodeOf get, const wchar_t* id, const wchar_t* component, ComPtr<IDispatch>& node) {
        return (parts.Get()->*get)(Bstr(id).Get(), Bstr(component).Get(), node.Receive());
    }

    HRESULT Document(const std::string& url, ComPtr<IDispatch>& document) {
        return parts->GetXMLDocument(Bstr(url, CP_ACP).Get(), document.Receive());
    }

    /// Attribute `kind` of an element, or of the root of a document.
    static std::wstring Kind(const ComPtr<IDispatch>& object) {
        ComPtr<IXMLDOMElement> element = object.As<IXMLDOMElement>(IID_IXMLDOMElement);
        if (const auto document = object.As<IXMLDOMDocument>(IID_IXMLDOMDocument))
            document->get_documentElement(element.Receive());
        Variant kind;
        if (!element || element->getAttribute(Bstr(L"kind").Get(), &kind) != S_OK)
            return L"(none)";
        return kind.bstrVal;
    }

    static bool Same(const ComPtr<IDispatch>& one, const ComPtr<IDispatch>& other) {
        return Query<IUnknown>(one.Get(), IID_IUnknown).Get() ==
               Query<IUnknown>(other.Get(), IID_IUnknown).Get();
    }
};

TEST_F(DocumentServices, NullOutPointersAreInvalid) {
    const Bstr id(L"BOLTS");
    const Bstr component(L"M8");
    EXPECT_EQ(E_INVALIDARG, parts->GetComponentsDocument(id.Get(), nullptr));
    EXPECT_EQ(E_INVALIDARG, parts->GetXMLDocument(Bstr(folder.Url(catalogue), CP_ACP).Get(), nullptr));
    EXPECT_EQ(E_INVALIDARG, parts->GetStdDimensionNode(id.Get(), component.Get(), nullptr));
    EXPECT_EQ(E_INVALIDARG, parts->GetUsrDimensionNode(id.Get(), component.Get(), nullptr));
}

TEST_F(DocumentServices, WhatCannotBeLoadedFailsWithNull) {
    const auto expectFailure = [](auto&& get) {
        const auto garbage = MakeObject<NamedProperties>();
        IDispatch* out = garbage.Get();
        EXPECT_EQ(E_FAIL, get(&out));
        EXPECT_EQ(nullptr, out);
    };
    const Bstr id(L"BOLTS");
    const Bstr unknown(L"UNKNOWN");
    expectFailure([&](IDispatch** out) { return parts->GetComponentsDocument(unknown.Get(), out); });
    expectFailure([&](IDispatch** out) { return parts->GetStdDimensionNode(id.Get(), unknown.Get(), out); });
    expectFailure(
        [&](IDispatch** out) { return parts->GetStdDimensionNode(unknown.Get(), unknown.Get(), out); });
    expectFailure([&](IDispatch** out) { return parts->GetUsrDimensionNode(id.Get(), unknown.Get(), out); });
    expectFailure([&](IDispatch** out) { return parts->GetXMLDocument(unknown.Get(), out); });
    expectFailure([&](IDispatch** out) { return parts->GetComponentsDocument(nullptr, out); });
    expectFailure([&](IDispatch** out) { return parts->GetStdDimensionNode(nullptr, nullptr, out); });
    expectFailure([&](IDispatch** out) { return parts->GetUsrDimensionNode(nullptr, nullptr, out); });
    expectFailure([&](IDispatch** out) { return parts->GetXMLDocument(nullptr, out); });
}

constexpr std::string_view noXml[] = {"", "<Dims>", {"\0\xff\xfe\x01", 4}, "not XML"};

TEST_F(DocumentServices, AFileOfAnyKindThatIsNoXmlFailsWithNullUntilItIsMended) {
    const Bstr id(L"BOLTS");
    const Bstr component(L"BAD");
    const Bstr url(folder.Url("bad.xml"), CP_ACP);
    struct Kind {
        const char* file;
        std::function<HRESULT(IDispatch**)> get;
    };
    const Kind kinds[] = {
        {catalogue, [&](IDispatch** out) { return parts->GetComponentsDocument(id.Get(), out); }},
        {"catalogs\\BOLTS\\StdDimensions\\BAD.xml",
         [&](IDispatch** out) { return parts->GetStdDimensionNode(id.Get(), component.Get(), out); }},
        {"custom\\catalogs\\BOLTS\\UsrDimensions\\BAD.xml",
         [&](IDispatch** out) { return parts->GetUsrDimensionNode(id.Get(), component.Get(), out); }},
        {"bad.xml", [&](IDispatch** out) { return parts->GetXMLDocument(url.Get(), out); }}};
    for (const Kind& kind : kinds) {
        SCOPED_TRACE(kind.file);
        ComPtr<IDispatch> found;
        for (const std::string_view content : noXml) {
            folder.Write(kind.file, content);
            EXPECT_EQ(E_FAIL, kind.get(found.Receive())) << content;
            EXPECT_FALSE(found);
        }
        folder.Write(kind.file, "<Dims kind='mended'/>");
        EXPECT_EQ(S_OK, kind.get(found.Receive())) << "a failed load is not remembered";
        EXPECT_EQ(L"mended", DocumentServices::Kind(found));
    }
}

TEST_F(DocumentServices, MessagesOfAFileThatIsNoXmlAreGivenBackForGood) {
    folder.MakeFolder("locale\\English");
    UseInstallation();
    for (std::size_t number = 0; number < std::size(noXml); ++number) {
        const std::string id = "NOXML" + std::to_string(number);
        const std::string file = "locale\\English\\" + id + "_Msgs.xml";
        folder.Write(file, noXml[number]);
        EXPECT_EQ(L"Bolt", Localized(Widen(id), L"Bolt")) << noXml[number];
        WriteMessage(file, "Bolt", "mended");
        EXPECT_EQ(L"Bolt", Localized(Widen(id), L"Bolt")) << "looked for once per process";
    }
}

TEST_F(DocumentServices, UrlsComeInInTheCodePageOfTheThread) {
    const ThreadLocale locale(russian);
    const std::wstring path = Widen(folder.Path(), CP_ACP) + L"\u0416.xml";
    ASSERT_TRUE(CopyFileW(Widen(folder.Path() + catalogue, CP_ACP).c_str(), path.c_str(), TRUE));
    ComPtr<IDispatch> document;
    EXPECT_EQ(S_OK, parts->GetXMLDocument(Bstr(L"file://" + path).Get(), document.Receive()));
    EXPECT_EQ(L"bolts", Kind(document));
    EXPECT_TRUE(DeleteFileW(path.c_str())) << "its name is beyond the system's";
}

TEST_F(DocumentServices, ACataloguesDocumentIsTheCachedOneOfItsUrl) {
    ComPtr<IDispatch> document;
    ASSERT_EQ(S_OK, parts->GetComponentsDocument(Bstr(L"BOLTS").Get(), document.Receive()));
    EXPECT_TRUE(document.As<IXMLDOMDocument>(IID_IXMLDOMDocument));
    EXPECT_EQ(L"bolts", Kind(document));
    folder.Write(catalogue, "<Catalog kind='rewritten'/>");
    ComPtr<IDispatch> again;
    ASSERT_EQ(S_OK, Document(folder.Url(catalogue), again));
    EXPECT_TRUE(Same(document, again));
    EXPECT_EQ(L"bolts", Kind(again));
}

TEST_F(DocumentServices, ACataloguesDocumentIsLookedForBelowThePathAndNotAskedOfTheHost) {
    const auto side = MakeObject<Host3D>();
    const auto app = MakeObject<HostApplication>();
    side->application = ComPtr<IDispatch>(app.Get());
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    UseInstallation();
    ComPtr<IDispatch> document;
    EXPECT_EQ(S_OK, parts->GetComponentsDocument(Bstr(L"BOLTS").Get(), document.Receive()));
    EXPECT_TRUE(app->asked.empty());
}

TEST_F(DocumentServices, SizesAreLookedForBelowTheObjectsOwnPaths) {
    const auto side = MakeObject<Host3D>();
    const auto app = MakeObject<HostApplication>();
    side->application = ComPtr<IDispatch>(app.Get());
    folder.Write("second\\" + std::string(standard), "<Dims kind='second'/>");
    folder.Write("second\\" + std::string(users), "<Dims kind='second'/>");
    const std::string root = folder.Path() + "second\\";
    const ComPtr<InuxStdParts> second = CreateParts();
    second->put_nux3D(static_cast<Inux3D*>(side.Get()));
    ASSERT_EQ(S_OK,
              SetPaths(second, root + "catalogs\\", root + "data\\", root + "gui\\", root + "custom\\"));
    for (const NodeOf get : {&InuxStdParts::GetStdDimensionNode, &InuxStdParts::GetUsrDimensionNode}) {
        ComPtr<IDispatch> node;
        EXPECT_EQ(S_OK, Node(get, L"BOLTS", L"M8", node));
        EXPECT_EQ(L"first", Kind(node)) << "another object's paths came later";
        EXPECT_EQ(S_OK, (second.Get()->*get)(Bstr(L"BOLTS").Get(), Bstr(L"M8").Get(), node.Receive()));
        EXPECT_EQ(L"second", Kind(node));
    }
    EXPECT_TRUE(app->asked.empty()) << "nor is the host asked";
}

TEST_F(DocumentServices, ADocumentIsAskedForByUrlAndEachSpellingIsOneOfItsOwn) {
    ComPtr<IDispatch> document;
    ASSERT_EQ(S_OK, Document(folder.Url(catalogue), document));
    ComPtr<IDispatch> other;
    ASSERT_EQ(S_OK, Document("FILE://" + folder.Path() + catalogue, other));
    EXPECT_FALSE(Same(document, other));
}

TEST_F(DocumentServices, StandardSizesAreReadOnceAndUsersSizesAtEachCall) {
    ComPtr<IDispatch> node;
    ASSERT_EQ(S_OK, Node(&InuxStdParts::GetStdDimensionNode, L"BOLTS", L"M8", node));
    EXPECT_TRUE(node.As<IXMLDOMNode>(IID_IXMLDOMNode));
    EXPECT_EQ(L"first", Kind(node));
    ComPtr<IDispatch> usersNode;
    ASSERT_EQ(S_OK, Node(&InuxStdParts::GetUsrDimensionNode, L"BOLTS", L"M8", usersNode));
    EXPECT_EQ(L"first", Kind(usersNode));

    folder.Write(standard, "<Dims kind='second'/>");
    folder.Write(users, "<Dims kind='second'/>");
    ASSERT_EQ(S_OK, Node(&InuxStdParts::GetStdDimensionNode, L"BOLTS", L"M8", node));
    EXPECT_EQ(L"first", Kind(node));
    ComPtr<IDispatch> fresh;
    ASSERT_EQ(S_OK, Node(&InuxStdParts::GetUsrDimensionNode, L"BOLTS", L"M8", fresh));
    EXPECT_EQ(L"second", Kind(fresh));
    EXPECT_EQ(L"first", Kind(usersNode)) << "what a script holds stays as it was";
}

TEST_F(DocumentServices, UsersSizesThatAreGoneFail) {
    ComPtr<IDispatch> node;
    ASSERT_EQ(S_OK, Node(&InuxStdParts::GetUsrDimensionNode, L"BOLTS", L"M8", node));
    folder.Remove(users);
    EXPECT_EQ(E_FAIL, Node(&InuxStdParts::GetUsrDimensionNode, L"BOLTS", L"M8", node));
    EXPECT_FALSE(node);
}

TEST_F(DocumentServices, ADocumentWithoutARootGivesNullAndNoFailure) {
    // No file without a root can be loaded, but a script can take the root out of the shared document.
    ComPtr<IDispatch> shared;
    ASSERT_EQ(S_OK, Document(folder.Url(standard), shared));
    const auto document = shared.As<IXMLDOMDocument>(IID_IXMLDOMDocument);
    ComPtr<IXMLDOMElement> root;
    ASSERT_EQ(S_OK, document->get_documentElement(root.Receive()));
    ComPtr<IXMLDOMNode> removed;
    ASSERT_EQ(S_OK, document->removeChild(root.Get(), removed.Receive()));
    ComPtr<IDispatch> node;
    EXPECT_EQ(S_OK, Node(&InuxStdParts::GetStdDimensionNode, L"BOLTS", L"M8", node));
    EXPECT_FALSE(node);
}

TEST_F(DocumentServices, PathsAndIdsWithUmlautsAndBlanksAreFound) {
    folder.Write(
        "catalogs\\Gr\xf6\xdf"
        "en 1\\Catalog.xml",
        "<Catalog kind='sizes'/>");
    folder.Write(
        "catalogs\\Gr\xf6\xdf"
        "en 1\\StdDimensions\\M 8.xml",
        "<Dims kind='sizes'/>");
    ComPtr<IDispatch> found;
    EXPECT_EQ(S_OK, parts->GetComponentsDocument(Bstr(L"Gr\u00f6\u00dfen 1").Get(), found.Receive()));
    EXPECT_EQ(L"sizes", Kind(found));
    EXPECT_EQ(S_OK, Node(&InuxStdParts::GetStdDimensionNode, L"Gr\u00f6\u00dfen 1", L"M 8", found));
    EXPECT_EQ(L"sizes", Kind(found));
}

TEST_F(DocumentServices, TwoObjectsShareTheDocuments) {
    const ComPtr<InuxStdParts> second = CreateParts();
    ASSERT_EQ(S_OK, SetPaths(second, catalogs, data, gui, custom));
    ComPtr<IDispatch> mine;
    ComPtr<IDispatch> theirs;
    parts->GetComponentsDocument(Bstr(L"BOLTS").Get(), mine.Receive());
    second->GetComponentsDocument(Bstr(L"BOLTS").Get(), theirs.Receive());
    EXPECT_TRUE(Same(mine, theirs));
}

TEST_F(DocumentServices, TheEndOfAnyObjectEmptiesTheCacheAndLeavesScriptsTheirDocuments) {
    ComPtr<IDispatch> document;
    ASSERT_EQ(S_OK, Document(folder.Url(catalogue), document));
    EXPECT_GT(References(document.Get()), 1u);
    CreateParts().Reset();
    EXPECT_EQ(1u, References(document.Get())) << "only this reference is left";
    EXPECT_EQ(L"bolts", Kind(document));
    folder.Write(catalogue, "<Catalog kind='rewritten'/>");
    ComPtr<IDispatch> again;
    ASSERT_EQ(S_OK, Document(folder.Url(catalogue), again));
    EXPECT_EQ(L"rewritten", Kind(again));
}

}  // namespace
}  // namespace nux
