#include <gtest/gtest.h>

#include <string>

#include "environment/XMLAccess.h"
#include "framework/Text.h"
#include "tests/support/RawVariant.h"
#include "tests/support/TempFolder.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

ComPtr<IXMLDOMDocument> Load(const std::string& url) {
    ComPtr<IXMLDOMDocument> document;
    const bool loaded = LoadXMLDocument(url, document.Receive());
    EXPECT_EQ(loaded, static_cast<bool>(document));
    return document;
}

std::string RootText(const ComPtr<IXMLDOMDocument>& document) {
    return document ? GetNodeText(GetRootNode(document.Get()).Get()) : "no document";
}

ULONG References(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

class DocumentCache : public testing::Test {
protected:
    ~DocumentCache() override { ClearXMLDocumentCache(); }

    const TempFolder folder_;
};

TEST_F(DocumentCache, GivesTheSameObjectForTheSameUrl) {
    folder_.Write("a.xml", "<a>one</a>");
    const auto first = Load(folder_.Url("a.xml"));
    EXPECT_EQ("one", RootText(first));
    EXPECT_EQ(first.Get(), Load(folder_.Url("a.xml")).Get());
}

TEST_F(DocumentCache, DoesNotTouchTheDiskAgainEvenIfTheFileHasGone) {
    folder_.Write("a.xml", "<a>one</a>");
    const auto first = Load(folder_.Url("a.xml"));
    folder_.Write("a.xml", "<a>two</a>");
    EXPECT_EQ("one", RootText(Load(folder_.Url("a.xml"))));
    folder_.Remove("a.xml");
    EXPECT_EQ(first.Get(), Load(folder_.Url("a.xml")).Get());
}

TEST_F(DocumentCache, TakesItsUrlsInTheCodePageOfTheThread) {
    const std::string plain = folder_.Write("a.xml", "<a>found</a>");
    const ThreadLocale locale(russian);
    ASSERT_TRUE(CopyFileW(Widen(plain).c_str(), Widen(folder_.Path() + "\xC6.xml").c_str(), TRUE));
    EXPECT_EQ("found", RootText(Load(folder_.Url("\xC6.xml"))));
    EXPECT_TRUE(DeleteFileW(Widen(folder_.Path() + "\xC6.xml").c_str())) << "its name is beyond the system's";
}

TEST_F(DocumentCache, DoesNotRememberAFailure) {
    EXPECT_FALSE(Load(folder_.Url("a.xml")));
    folder_.Write("a.xml", "<a>not closed");
    EXPECT_FALSE(Load(folder_.Url("a.xml")));
    folder_.Write("a.xml", "<a>one</a>");
    EXPECT_EQ("one", RootText(Load(folder_.Url("a.xml"))));
}

TEST_F(DocumentCache, ReadsTheFileAgainAfterItWasForgotten) {
    folder_.Write("a.xml", "<a>one</a>");
    const auto first = Load(folder_.Url("a.xml"));
    folder_.Write("a.xml", "<a>two</a>");
    ForgetXMLDocument(folder_.Url("a.xml"));
    const auto second = Load(folder_.Url("a.xml"));
    EXPECT_NE(first.Get(), second.Get());
    EXPECT_EQ("one", RootText(first));
    EXPECT_EQ("two", RootText(second));
    first->Release();  // the reference that forgetting leaves
}

TEST_F(DocumentCache, LeavesTheReferenceOfAForgottenDocumentUnreleased) {
    folder_.Write("a.xml", "<a>one</a>");
    IXMLDOMDocument* kept = Load(folder_.Url("a.xml")).Get();  // held by the cache alone
    EXPECT_EQ(1u, References(kept));
    ForgetXMLDocument(folder_.Url("a.xml"));
    EXPECT_EQ(1u, References(kept));
    EXPECT_EQ("one", RootText(ComPtr<IXMLDOMDocument>(kept)));
    kept->Release();
}

TEST_F(DocumentCache, ForgetsNothingElse) {
    folder_.Write("a.xml", "<a>a</a>");
    folder_.Write("b.xml", "<a>b</a>");
    folder_.Write("c.xml", "<a>c</a>");
    const auto a = Load(folder_.Url("a.xml"));
    const auto b = Load(folder_.Url("b.xml"));
    const auto c = Load(folder_.Url("c.xml"));
    ForgetXMLDocument(folder_.Url("d.xml"));
    ForgetXMLDocument(folder_.Url("B.XML"));
    ForgetXMLDocument(folder_.Url("b.xml"));
    EXPECT_EQ(a.Get(), Load(folder_.Url("a.xml")).Get());
    EXPECT_EQ(c.Get(), Load(folder_.Url("c.xml")).Get());
    EXPECT_NE(b.Get(), Load(folder_.Url("b.xml")).Get());
    b->Release();
}

TEST_F(DocumentCache, TakesEachSpellingOfAUrlForADocumentOfItsOwn) {
    const std::string path = folder_.Write("a.xml", "<a>one</a>");
    const auto lower = Load("file://" + path);
    const auto upper = Load("FILE://" + path);
    const auto name = Load(folder_.Url("A.xml"));
    ASSERT_TRUE(lower && upper && name);
    EXPECT_NE(lower.Get(), upper.Get());
    EXPECT_NE(lower.Get(), name.Get());
    EXPECT_EQ(upper.Get(), Load("FILE://" + path).Get());
}

TEST_F(DocumentCache, SharesAnEditUntilTheDocumentIsForgotten) {
    folder_.Write("a.xml", "<a>one</a>");
    const auto edited = Load(folder_.Url("a.xml"));
    ComPtr<IXMLDOMElement> root;
    edited->get_documentElement(root.Receive());
    BSTR text = SysAllocString(L"edited");
    root->put_text(text);
    SysFreeString(text);
    EXPECT_EQ("edited", RootText(Load(folder_.Url("a.xml"))));
    ForgetXMLDocument(folder_.Url("a.xml"));
    EXPECT_EQ("one", RootText(Load(folder_.Url("a.xml"))));
    edited->Release();
}

TEST_F(DocumentCache, OwnsOneReferenceBesideThatOfTheCaller) {
    folder_.Write("a.xml", "<a/>");
    const auto document = Load(folder_.Url("a.xml"));
    EXPECT_EQ(2u, References(document.Get()));
    {
        const auto again = Load(folder_.Url("a.xml"));
        EXPECT_EQ(3u, References(document.Get()));
    }
    ClearXMLDocumentCache();
    EXPECT_EQ(1u, References(document.Get()));
}

TEST_F(DocumentCache, LoadsAfreshOnceItWasCleared) {
    folder_.Write("a.xml", "<a>one</a>");
    const auto first = Load(folder_.Url("a.xml"));
    ClearXMLDocumentCache();
    ClearXMLDocumentCache();
    folder_.Write("a.xml", "<a>two</a>");
    EXPECT_EQ("two", RootText(Load(folder_.Url("a.xml"))));
    EXPECT_EQ("one", RootText(first));
}

TEST_F(DocumentCache, KeepsADocumentThatWasMadeInMemory) {
    folder_.Write("a.xml", "<a>one</a>");
    const auto made = Load(folder_.Url("a.xml"));
    KeepXMLDocument("file://no such drive\\made.xml", made.Get());
    EXPECT_EQ(made.Get(), Load("file://no such drive\\made.xml").Get());
    EXPECT_EQ(3u, References(made.Get()));
}

TEST_F(DocumentCache, GivesTheFirstOfTwoDocumentsUnderOneUrlAndForgetsItFirst) {
    folder_.Write("a.xml", "<a>a</a>");
    folder_.Write("b.xml", "<a>b</a>");
    const auto a = Load(folder_.Url("a.xml"));
    const auto b = Load(folder_.Url("b.xml"));
    KeepXMLDocument("twice", a.Get());
    KeepXMLDocument("twice", b.Get());
    EXPECT_EQ(a.Get(), Load("twice").Get());
    ForgetXMLDocument("twice");
    EXPECT_EQ(b.Get(), Load("twice").Get());
    a->Release();
}

TEST_F(DocumentCache, RefusesANullOutPointerAndLoadsNothing) {
    folder_.Write("a.xml", "<a>one</a>");
    EXPECT_FALSE(LoadXMLDocument(folder_.Url("a.xml"), nullptr));
    folder_.Write("a.xml", "<a>two</a>");
    EXPECT_EQ("two", RootText(Load(folder_.Url("a.xml"))));
}

TEST_F(DocumentCache, SetsTheOutPointerToNullOnFailure) {
    auto* document = reinterpret_cast<IXMLDOMDocument*>(this);
    EXPECT_FALSE(LoadXMLDocument(folder_.Url("missing.xml"), &document));
    EXPECT_EQ(nullptr, document);
}

TEST_F(DocumentCache, LoadsTheWholeDocumentBeforeItAnswers) {
    folder_.Write("a.xml", "<a>one</a>");
    const auto document = Load(folder_.Url("a.xml"));
    VARIANT_BOOL async = VARIANT_TRUE;
    LONG state = 0;
    document->get_async(&async);
    document->get_readyState(&state);
    EXPECT_EQ(VARIANT_FALSE, async);
    EXPECT_EQ(4, state);
}

TEST_F(DocumentCache, LeavesTheOtherPropertiesOfADocumentAtTheirDefaults) {
    folder_.Write("a.xml", "<a> <b/> </a>");
    ComPtr<IXMLDOMDocument> untouched;
    ASSERT_EQ(S_OK, CoCreateInstance(CLSID_DOMDocument30, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                                     untouched.ReceiveVoid()));
    const auto loaded = Load(folder_.Url("a.xml"));
    for (const auto read : {&IXMLDOMDocument::get_validateOnParse, &IXMLDOMDocument::get_resolveExternals,
                            &IXMLDOMDocument::get_preserveWhiteSpace}) {
        VARIANT_BOOL expected = VARIANT_TRUE;
        VARIANT_BOOL found = VARIANT_FALSE;
        (untouched.Get()->*read)(&expected);
        (loaded.Get()->*read)(&found);
        EXPECT_EQ(expected, found);
    }
    // Not every library of identifiers has that of IXMLDOMDocument2.
    constexpr IID document2{0x2933bf95, 0x7b36, 0x11d2, {0xb2, 0x0e, 0x00, 0xc0, 0x4f, 0x98, 0x3e, 0x60}};
    RawVariant language;
    wchar_t name[] = L"SelectionLanguage";
    EXPECT_EQ(S_OK, Query<IXMLDOMDocument2>(loaded.Get(), document2)->getProperty(name, &language));
    EXPECT_STREQ(L"XSLPattern", language.bstrVal) << "pages select by whole node names";
}

TEST_F(DocumentCache, HoldsManyDocuments) {
    for (int i = 0; i < 250; ++i)
        folder_.Write(std::to_string(i) + ".xml", "<a>" + std::to_string(i) + "</a>");
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 250; ++i)
            EXPECT_EQ(std::to_string(i), RootText(Load(folder_.Url(std::to_string(i) + ".xml"))));
    }
}

}  // namespace
}  // namespace nux
