// Every operation that fails says why: in the thread's error object, in EXCEPINFO, and so in what scripts
// read.

#include "framework/ErrorInfo.h"

#include <gtest/gtest.h>

#include "driver/ScriptEngine.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/Installation.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

/// What stands in the thread's error object, which is taken.
struct Said {
    GUID iid{};
    std::wstring source;
    std::wstring words;
};

Said TakeSaid() {
    Said said;
    ComPtr<IErrorInfo> error;
    if (GetErrorInfo(0, error.Receive()) != S_OK)
        return said;
    BSTR source = nullptr;
    BSTR words = nullptr;
    EXPECT_EQ(S_OK, error->GetGUID(&said.iid));
    EXPECT_EQ(S_OK, error->GetSource(&source));
    EXPECT_EQ(S_OK, error->GetDescription(&words));
    said.source = Take(source);
    said.words = Take(words);
    return said;
}

bool Contains(const std::wstring& text, const std::wstring& part) {
    return text.find(part) != std::wstring::npos;
}

/// Leaves an error of somebody else's with the thread.
void LeaveStaleError() {
    ComPtr<ICreateErrorInfo> error;
    CreateErrorInfo(error.Receive());
    wchar_t stale[] = L"stale";
    error->SetDescription(stale);
    SetErrorInfo(0, error.As<IErrorInfo>().Get());
}

class SaysWhy : public InstallationTest {
protected:
    /// The operation fails with this code, and its words hold this part.
    void Expect(HRESULT code, const std::wstring& part, HRESULT result) {
        const Said said = TakeSaid();
        EXPECT_EQ(code, result) << Narrow(part.c_str(), part.size());
        EXPECT_EQ(IID_InuxStdParts, said.iid);
        EXPECT_EQ(L"Tarnvale.nuxStdParts", said.source);
        EXPECT_TRUE(Contains(said.words, part)) << Narrow(said.words.c_str(), said.words.size());
    }
    HRESULT Document(const ComPtr<InuxStdParts>& object, const wchar_t* id) {
        ComPtr<IDispatch> document;
        return object->GetComponentsDocument(Bstr(id).Get(), document.Receive());
    }
};

TEST_F(SaysWhy, InItsOwnInterfacesAndNoOthers) {
    const auto support = parts.As<ISupportErrorInfo>();
    ASSERT_TRUE(support);
    EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(IID_InuxStdParts));
    EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(IID_InuxDataManager));
    EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(IID_IOleObject));
    ComPtr<IDispatch> data;
    parts->get_DataManager(data.Receive());
    const auto dataSupport = data.As<ISupportErrorInfo>();
    ASSERT_TRUE(dataSupport);
    EXPECT_EQ(S_OK, dataSupport->InterfaceSupportsErrorInfo(IID_InuxDataManager));
    EXPECT_EQ(S_FALSE, dataSupport->InterfaceSupportsErrorInfo(IID_InuxStdParts));
}

TEST_F(SaysWhy, ADocumentCannotBeLoaded) {
    Expect(E_FAIL, L"NUTS\\Catalog.xml can't be loaded: there is no such file", Document(parts, L"NUTS"));
    folder.Write("catalogs\\BROKEN\\Catalog.xml", "<Catalog>\n<Part></Catalog>");
    Expect(E_FAIL, L"BROKEN\\Catalog.xml can't be loaded: ", Document(parts, L"BROKEN"));
    Document(parts, L"BROKEN");
    EXPECT_FALSE(Contains(TakeSaid().words, L"no such file"));
    Expect(E_FAIL, L"longer than", Document(parts, std::wstring(3000, L'x').c_str()));

    ComPtr<IDispatch> node;
    const Bstr id(L"BOLTS");
    Expect(E_FAIL, L"BOLTS\\StdDimensions\\BOLTS.xml",
           parts->GetStdDimensionNode(id.Get(), id.Get(), node.Receive()));
    Expect(E_FAIL, L"BOLTS\\UsrDimensions\\BOLTS.xml",
           parts->GetUsrDimensionNode(id.Get(), id.Get(), node.Receive()));
    Expect(E_FAIL, L"file://C:\\none.xml",
           parts->GetXMLDocument(Bstr(L"file://C:\\none.xml").Get(), node.Receive()));
}

TEST_F(SaysWhy, APathIsMissingOrHasNoClosingBackslash) {
    const ComPtr<InuxStdParts> fresh = CreateParts();
    Expect(E_FAIL, L"CatalogPath is empty: SetTRNVPaths has to be called before.", Document(fresh, L"NUTS"));
    SetPaths(fresh, "C:\\catalogs", data, gui, "C:\\custom");
    Expect(E_FAIL, L"CatalogPath lacks its closing backslash: C:\\catalogs.", Document(fresh, L"NUTS"));
    ComPtr<IDispatch> node;
    const Bstr id(L"BOLTS");
    Expect(E_FAIL, L"CustomDimsPath lacks its closing backslash: C:\\custom.",
           fresh->GetUsrDimensionNode(id.Get(), id.Get(), node.Receive()));
    Document(parts, L"NUTS");
    EXPECT_FALSE(Contains(TakeSaid().words, L"CatalogPath")) << "a path that is well is not blamed";
}

TEST_F(SaysWhy, TheCallsAreOutOfOrder) {
    const auto host = MakeObject<NamedProperties>();
    const auto side = MakeObject<Host3D>();
    Expect(E_FAIL, L"nux3D has to be set before SetExternalDispatch", parts->SetExternalDispatch(host.Get()));
    Expect(E_FAIL, L"nux3D has to be set before", parts->RunDieWizard(1));
    Expect(E_FAIL, L"nux3D has to be set before", parts->CreateDieBlock());
    Expect(E_FAIL, L"nux3D has to be set before", parts->RunSlideWizard());
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    side->ready = false;
    Expect(E_FAIL, L"Inux3DReady", parts->SetExternalDispatch(host.Get()));
    side->is3D = false;
    Expect(E_FAIL, L"does not offer Inux3D.", parts->RunDieWizard(1));
    side->ready = true;
    Expect(E_FAIL, L"does not offer Inux3D.", parts->SetExternalDispatch(host.Get()));
    Expect(E_INVALIDARG, L"pDisp must not be null", parts->SetExternalDispatch(nullptr));
}

TEST_F(SaysWhy, AWizardOfTheHostFails) {
    const auto side = MakeObject<Host3D>();
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    side->wizardResult = E_ACCESSDENIED;
    LeaveStaleError();
    const HRESULT result = parts->RunDieWizard(1);
    EXPECT_EQ(E_ACCESSDENIED, result);
    EXPECT_EQ(L"The 3D side failed in RunDieWizard.", TakeSaid().words) << "it has no words of its own";
}

TEST_F(SaysWhy, AnArgumentIsWrong) {
    Expect(E_INVALIDARG, L"Initialised takes 0 and 1", parts->put_Initialised(2));
    Expect(E_INVALIDARG, L"pVal must not be null", parts->get_UserData(nullptr));
    Expect(E_FAIL, L"Language must not be null", parts->GetInterfaceLanguage(nullptr));
    Expect(E_FAIL, L"can't be written", parts->SaveFile(Bstr(L"C:\\none\\file").Get(), nullptr));
    const auto array = MakeObject<NamedProperties>();
    RawVariant result;
    Expect(E_INVALIDARG, L"JSArray must not be null", parts->JSArray2SafeArray(nullptr, &result));
    Expect(E_INVALIDARG, L"no whole number", parts->JSArray2SafeArray(array.Get(), &result));
    array->SetNumber(L"length", 2);
    array->SetNumber(L"0", 5);
    Expect(E_FAIL, L"the element 1", parts->JSArray2SafeArray(array.Get(), &result));
    array->SetNumber(L"length", -1);
    Expect(E_FAIL, L"below 0", parts->JSArray2SafeArray(array.Get(), &result));
    RawVariant none;
    ComPtr<IDispatch> chosen;
    Expect(E_INVALIDARG, L"NamesDisp must not be null",
           parts->ChooseDimensions(nullptr, nullptr, nullptr, none, none, none, chosen.Receive()));
    Expect(E_INVALIDARG, L"NamesDisp holds an object that is no IXMLDOMNodeList",
           parts->ChooseDimensions(nullptr, nullptr, array.Get(), none, none, none, chosen.Receive()));
    RawVariant bad;
    bad.vt = 0x7ff;
    Expect(DISP_E_BADVARTYPE, L"GlobalData takes no value", parts->put_GlobalData(bad));
    bad.vt = VT_EMPTY;
}

TEST_F(SaysWhy, AnOperationIsNotOffered) {
    Expect(E_NOTIMPL, L"does not offer this operation yet", parts->DeleteClosedModelessIEDlgs());
}

TEST_F(SaysWhy, TheDataManagerHasNothingOrTakesNothing) {
    ComPtr<IDispatch> dispatch;
    parts->get_DataManager(dispatch.Receive());
    const auto data = dispatch.As<InuxDataManager>();
    RawVariant value;
    const auto expect = [&](HRESULT code, const wchar_t* part, HRESULT result) {
        const Said said = TakeSaid();
        EXPECT_EQ(code, result);
        EXPECT_EQ(IID_InuxDataManager, said.iid);
        EXPECT_TRUE(Contains(said.words, part)) << Narrow(said.words.c_str(), said.words.size());
    };
    expect(E_FAIL, L"No sizes have been put", data->get_CorePlateSizes(&value));
    expect(E_INVALIDARG, L"JSArray2SafeArray", data->put_CorePlateSizes(value));
    expect(E_FAIL, L"No text has been put", data->get_Units(&value));
    expect(E_INVALIDARG, L"has to be a string", data->put_Units(value));
    expect(E_INVALIDARG, L"pVal must not be null", data->get_Units(nullptr));
}

TEST_F(SaysWhy, ASuccessLeavesTheThreadAlone) {
    LeaveStaleError();
    EXPECT_EQ(S_OK, parts->put_Initialised(1));
    EXPECT_EQ(L"stale", TakeSaid().words);
    ComPtr<IDispatch> none;
    EXPECT_EQ(S_FALSE, parts->get_nux3D(none.Receive()));
    EXPECT_EQ(L"", TakeSaid().source);
}

TEST_F(SaysWhy, InAutomationAsWell) {
    DISPPARAMS none{};
    EXCEPINFO exception{};
    LeaveStaleError();
    EXPECT_EQ(DISP_E_EXCEPTION, parts->Invoke(98, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none,
                                              nullptr, &exception, nullptr));
    EXPECT_EQ(E_FAIL, exception.scode);
    EXPECT_EQ(L"Tarnvale.nuxStdParts", Take(exception.bstrSource));
    EXPECT_EQ(L"nux3D has to be set before.", Take(exception.bstrDescription));
    SysFreeString(exception.bstrHelpFile);
}

TEST_F(SaysWhy, ToJScript) {
    ScriptEngine engine(L"JScript", ScriptEngine::Objects{{L"parts", parts.As<IDispatch>()}});
    ASSERT_EQ(S_OK, engine.Run(L"var said; try { parts.GetComponentsDocument('NUTS'); } "
                               L"catch (error) { said = error.message; }"));
    RawVariant said;
    ASSERT_EQ(S_OK, engine.Evaluate(L"said", said.Receive()));
    ASSERT_EQ(VT_BSTR, said.vt);
    EXPECT_TRUE(Contains(said.bstrVal, L"NUTS\\Catalog.xml can't be loaded"));
}

TEST_F(SaysWhy, ToVBScript) {
    ScriptEngine engine(L"VBScript", ScriptEngine::Objects{{L"parts", parts.As<IDispatch>()}});
    ASSERT_EQ(S_OK, engine.Run(L"On Error Resume Next\nparts.GetComponentsDocument \"NUTS\"\n"
                               L"said = Err.Description\nfrom = Err.Source"));
    RawVariant said;
    ASSERT_EQ(S_OK, engine.Evaluate(L"said", said.Receive()));
    ASSERT_EQ(VT_BSTR, said.vt);
    EXPECT_TRUE(Contains(said.bstrVal, L"NUTS\\Catalog.xml can't be loaded"));
    ASSERT_EQ(S_OK, engine.Evaluate(L"from", said.Receive()));
    EXPECT_STREQ(L"Tarnvale.nuxStdParts", said.bstrVal);
}

}  // namespace
}  // namespace nux
