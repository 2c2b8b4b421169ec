// The documents that are kept, as scripts see them.

#include <gtest/gtest.h>

#include <msxml2.h>

#include "tests/support/Installation.h"

namespace nux {
namespace {

class KeptDocuments : public InstallationTest {
protected:
    ComPtr<IDispatch> Document(const std::string& file) {
        ComPtr<IDispatch> document;
        EXPECT_EQ(S_OK, parts->GetXMLDocument(Bstr(folder.Url(file), CP_ACP).Get(), document.Receive()))
            << file;
        return document;
    }
    ComPtr<IDispatch> Catalogue(const wchar_t* id) {
        ComPtr<IDispatch> document;
        EXPECT_EQ(S_OK, parts->GetComponentsDocument(Bstr(id).Get(), document.Receive()));
        return document;
    }
    /// Whether both stand for one object; a document is handed out by one interface only.
    static bool Same(const ComPtr<IDispatch>& a, const ComPtr<IDispatch>& b) {
        return a.As<IUnknown>().Get() == b.As<IUnknown>().Get();
    }
};

TEST_F(KeptDocuments, OfIdsThatDifferInCaseAreTwo) {
    folder.Write("catalogs\\BOLTS\\Catalog.xml", "<Catalog/>");
    EXPECT_TRUE(Same(Catalogue(L"BOLTS"), Catalogue(L"BOLTS")));
    EXPECT_FALSE(Same(Catalogue(L"BOLTS"), Catalogue(L"bolts")));
}

TEST_F(KeptDocuments, StayWhenThereIsNoPlaceForTheUsersSizes) {
    const std::string file = "custom\\catalogs\\BOLTS\\UsrDimensions\\M8.xml";
    folder.Write(file, "<Dimensions/>");
    const ComPtr<IDispatch> before = Document(file);
    const Bstr catalogue(L"BOLTS"), component(L"M8");
    EXPECT_EQ(E_INVALIDARG, parts->GetUsrDimensionNode(catalogue.Get(), component.Get(), nullptr));
    EXPECT_TRUE(Same(before, Document(file)));
    ComPtr<IDispatch> node;
    EXPECT_EQ(S_OK, parts->GetUsrDimensionNode(catalogue.Get(), component.Get(), node.Receive()));
    EXPECT_FALSE(Same(before, Document(file))) << "it is read anew at each call";
}

}  // namespace
}  // namespace nux
