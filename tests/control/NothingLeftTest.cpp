// Made and released a hundred thousand times, objects leave nothing behind.

#include <windows.h>

#include <gtest/gtest.h>
#include <msxml2.h>

#include <functional>

#include "tests/support/HandleCount.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/Installation.h"
#include "tests/support/PrivateMemory.h"

namespace nux {
namespace {

constexpr int rounds = 100000;
/// Less than the smallest object for each round, and above what the heap moves by itself.
constexpr long long tolerance = 1024 * 1024;

void ExpectNothingLeft(const std::function<void()>& once, int times = rounds) {
    for (int warmUp = 0; warmUp < times / 20; ++warmUp)
        once();
    const unsigned handles = HandleCount();
    const long long memory = PrivateMemory();
    for (int i = 0; i < times; ++i)
        once();
    EXPECT_LE(PrivateMemory() - memory, tolerance);
    EXPECT_EQ(handles, HandleCount());
}

class NothingLeft : public InstallationTest {
protected:
    void SetUp() override {
        InstallationTest::SetUp();
        folder.Write("catalogs\\BOLTS\\Catalog.xml", "<Catalog><Part><ID>M8</ID></Part></Catalog>");
        folder.Write("catalogs\\BOLTS\\StdDimensions\\M8.xml", "<Dims><D L='10'/></Dims>");
    }
};

TEST_F(NothingLeft, OfTheObject) {
    ReleaseParts();
    CLSID classId{};
    CLSIDFromProgID(L"Tarnvale.nuxStdParts", &classId);
    ExpectNothingLeft([&] {
        ComPtr<InuxStdParts> made;
        CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_InuxStdParts, made.ReceiveVoid());
    });
    EXPECT_EQ(S_OK, ModuleCanUnload());
}

TEST_F(NothingLeft, OfTheObjectWithAllThatItHolds) {
    ReleaseParts();
    const auto side = MakeObject<Host3D>();
    const auto host = MakeObject<NamedProperties>();
    host->SetNumber(L"MainWindowHWND", 5);
    const Bstr text(L"a text that is too long for a small string");
    ExpectNothingLeft([&] {
        const ComPtr<InuxStdParts> made = CreateParts();
        made->put_nux3D(static_cast<Inux3D*>(side.Get()));
        made->SetExternalDispatch(host.Get());
        side->attached.Reset();
        side->calls.clear();
        made->put_UserData(text.Get());
        Variant value;
        value.vt = VT_BSTR;
        value.bstrVal = SysAllocString(text.Get());
        made->put_GlobalData(value);
        ComPtr<IDispatch> data;
        made->get_DataManager(data.Receive());
        data.As<InuxDataManager>(IID_InuxDataManager)->put_Units(value);
    });
    EXPECT_EQ(S_OK, ModuleCanUnload());
}

TEST_F(NothingLeft, OfTheDataManager) {
    ExpectNothingLeft([&] {
        ComPtr<IDispatch> data;
        parts->get_DataManager(data.Receive());
        data.As<InuxDataManager>(IID_InuxDataManager)->ClearData();
    });
}

TEST_F(NothingLeft, OfDocumentsGivenToScripts) {
    const Bstr url(folder.Url("catalogs\\BOLTS\\Catalog.xml"), CP_ACP);
    const Bstr id(L"BOLTS");
    ExpectNothingLeft([&] {
        ComPtr<IDispatch> document;
        parts->GetXMLDocument(url.Get(), document.Receive());
        parts->GetComponentsDocument(id.Get(), document.Receive());
    });
}

TEST_F(NothingLeft, OfNodesGivenToScripts) {
    // The user's sizes are not asked for here: each call leaves the document that it forgets, on purpose.
    const Bstr id(L"BOLTS");
    const Bstr component(L"M8");
    ExpectNothingLeft([&] {
        ComPtr<IDispatch> node;
        parts->GetStdDimensionNode(id.Get(), component.Get(), node.Receive());
        ComPtr<IXMLDOMNode> child;
        node.As<IXMLDOMNode>(IID_IXMLDOMNode)->get_firstChild(child.Receive());
    });
}

TEST_F(NothingLeft, OfDocumentsThatAreLoadedAnew) {
    // Each round parses two files and looks for one that is missing: more rounds would take minutes. A
    // document that is left behind is larger than the tolerance for each of them.
    constexpr int loads = 2000;
    ReleaseParts();
    const Bstr id(L"BOLTS");
    const Bstr component(L"M8");
    const Bstr missing(L"missing");
    ExpectNothingLeft(
        [&] {
            const ComPtr<InuxStdParts> made = CreateParts();  // its end empties the cache
            SetPaths(made, catalogs, data, gui, custom);
            ComPtr<IDispatch> found;
            EXPECT_EQ(S_OK, made->GetComponentsDocument(id.Get(), found.Receive()));
            EXPECT_EQ(S_OK, made->GetStdDimensionNode(id.Get(), component.Get(), found.Receive()));
            EXPECT_EQ(E_FAIL, made->GetComponentsDocument(missing.Get(), found.Receive()));
        },
        loads);
    EXPECT_EQ(S_OK, ModuleCanUnload());
}

TEST_F(NothingLeft, OfCallsThroughAutomation) {
    ExpectNothingLeft([&] {
        wchar_t name[] = L"UserData";
        LPOLESTR names = name;
        DISPID id = 0;
        parts->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
        DISPPARAMS none{};
        Variant read;
        parts->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &read, nullptr,
                      nullptr);
    });
}

}  // namespace
}  // namespace nux
