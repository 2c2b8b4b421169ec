// No exception leaves the component. Each allocation that an operation makes is made to fail in turn: the
// operation returns a code, and works when it is called again.

#include <windows.h>

#include <gtest/gtest.h>
#include <ocidl.h>

#include <algorithm>
#include <functional>
#include <thread>
#include <utility>

#include "environment/Registry.h"
#include "tests/control/AllocationFailure.h"
#include "tests/control/ControlSinks.h"
#include "tests/control/LifterWizardClass.h"
#include "tests/support/ControlSite.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Installation.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

using host::Call;
using Extent = FailingAllocations::Extent;

TEST_F(AllocationFailure, IsReportedByTheTextsAndValues) {
    const Bstr text(L"a text that is too long for a small string");
    EXPECT_GT(FailEach(
                  "put_UserData", [&] { return parts->put_UserData(text.Get()); },
                  [&] { EXPECT_EQ(text.Get(), ReadText(parts, &InuxStdParts::get_UserData)); }),
              0);
    BSTR read = nullptr;
    EXPECT_GT(FailEach(
                  "get_UserData", [&] { return parts->get_UserData(&read); },
                  [&] { EXPECT_STREQ(text.Get(), read); }),
              0);
    FailEach("put_LastRVCCmdResult", [&] { return parts->put_LastRVCCmdResult(text.Get()); });
    FailEach(
        "get_LastRVCCmdResult", [&] { return parts->get_LastRVCCmdResult(&read); },
        [&] { EXPECT_STREQ(text.Get(), read); });
    SysFreeString(read);

    RawVariant given;
    given.vt = VT_BSTR;
    given.bstrVal = SysAllocString(L"global");
    RawVariant global;
    EXPECT_GT(FailEach("put_GlobalData", [&] { return parts->put_GlobalData(given); }), 0);
    EXPECT_GT(FailEach(
                  "get_GlobalData", [&] { return parts->get_GlobalData(&global); },
                  [&] { EXPECT_STREQ(L"global", global.bstrVal); }),
              0);
}

TEST_F(AllocationFailure, OfTheGlobalDataLeavesItsCodeThere) {
    RawVariant given;
    given.vt = VT_I4;
    failing.Arm(1);
    EXPECT_EQ(E_OUTOFMEMORY, parts->put_GlobalData(given));
    failing.Disarm();
    RawVariant read;
    EXPECT_EQ(S_OK, parts->get_GlobalData(&read));
    EXPECT_EQ(VT_ERROR, read.vt);
    EXPECT_EQ(E_OUTOFMEMORY, read.scode);
}

TEST_F(AllocationFailure, IsReportedByTheDataManager) {
    ComPtr<IDispatch> dispatch;
    parts->get_DataManager(dispatch.Receive());
    const auto data = dispatch.As<InuxDataManager>();
    RawVariant text;
    text.vt = VT_BSTR;
    text.bstrVal = SysAllocString(L"a text that is too long for a small string");
    RawVariant read;
    EXPECT_GT(FailEach("put_Units", [&] { return data->put_Units(text); }), 0);
    EXPECT_GT(FailEach(
                  "get_Units", [&] { return data->get_Units(&read); },
                  [&] { EXPECT_STREQ(text.bstrVal, read.bstrVal); }),
              0);
    RawVariant sizes;
    sizes.parray = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    sizes.vt = VT_ARRAY | VT_VARIANT;
    EXPECT_GT(FailEach("put_CorePlateSizes", [&] { return data->put_CorePlateSizes(sizes); }), 0);
    EXPECT_GT(FailEach("get_CorePlateSizes", [&] { return data->get_CorePlateSizes(&read); }), 0);
}

TEST_F(AllocationFailure, IsReportedByThePathsAndDocuments) {
    EXPECT_GT(FailEach(
                  "SetTRNVPaths", [&] { return UseInstallation(); },
                  [&] { EXPECT_EQ(L"English", ReadText(parts, &InuxStdParts::GetInterfaceLanguage)); }),
              4);
    const Bstr id(L"BOLTS");
    const Bstr component(L"M8");
    const Bstr url(folder.Url("catalogs\\BOLTS\\Catalog.xml"), CP_ACP);
    ComPtr<IDispatch> out;
    const auto empty = [&] {
        CreateParts().Reset();  // the end of an object empties the cache of documents
        out.Reset();
    };
    const auto given = [&] { EXPECT_TRUE(out); };
    EXPECT_GT(FailEach(
                  "GetComponentsDocument", empty,
                  [&] { return parts->GetComponentsDocument(id.Get(), out.Receive()); }, given),
              2);
    EXPECT_GT(
        FailEach(
            "GetXMLDocument", empty, [&] { return parts->GetXMLDocument(url.Get(), out.Receive()); }, given),
        2);
    EXPECT_GT(
        FailEach(
            "GetXMLDocument, cached", [&] { return parts->GetXMLDocument(url.Get(), out.Receive()); }, given),
        0);
    EXPECT_GT(
        FailEach(
            "GetStdDimensionNode", empty,
            [&] { return parts->GetStdDimensionNode(id.Get(), component.Get(), out.Receive()); }, given),
        2);
    EXPECT_GT(
        FailEach(
            "GetUsrDimensionNode", empty,
            [&] { return parts->GetUsrDimensionNode(id.Get(), component.Get(), out.Receive()); }, given),
        2);
}

TEST_F(AllocationFailure, IsReportedByTheLocalisation) {
    BSTR text = nullptr;
    EXPECT_GT(FailEach(
                  "GetInterfaceLanguage", [&] { return parts->GetInterfaceLanguage(&text); },
                  [&] { EXPECT_STREQ(L"English", text); }),
              0);
    // A table once looked for stays: each call asks for a catalogue of its own.
    const Bstr id(L"A message ID of some length");
    int round = 0;
    std::string catalogue;
    const auto next = [&] {
        catalogue = "FAILING" + std::to_string(++round);
        WriteMessage("locale\\English\\" + catalogue + "_Msgs.xml", "A message ID of some length",
                     "Its translation");
    };
    failureIsSilent = true;  // a message whose document can't be made is given back as its ID
    EXPECT_GT(FailEach(
                  "GetLocalizedString", next,
                  [&] { return parts->GetLocalizedString(Bstr(catalogue, CP_ACP).Get(), id.Get(), &text); },
                  [&] { EXPECT_STREQ(L"Its translation", text); }),
              5);
    SysFreeString(text);
}

TEST_F(AllocationFailure, IsReportedByTheServices) {
    const Bstr log(folder.Path() + "log", CP_ACP);
    const Bstr file(folder.Path() + "file.txt", CP_ACP);
    const Bstr text(L"a text that is too long for a small string");
    EXPECT_GT(FailEach("put_DebugSessionStatusAndLogFile",
                       [&] { return parts->put_DebugSessionStatusAndLogFile(log.Get()); }),
              0);
    EXPECT_GT(FailEach(
                  "WriteDebugString", [&] { folder.Write("log", ""); },
                  [&] { return parts->WriteDebugString(text.Get()); },
                  [&] { EXPECT_EQ(18 + SysStringLen(text.Get()), folder.Read("log").size()); }),
              0);
    EXPECT_GT(FailEach(
                  "put_DebugSessionStatus", [&] { CreateParts().Reset(); },
                  [&] { return parts->put_DebugSessionStatus(1); }),
              0);
    CreateParts().Reset();
    EXPECT_GT(FailEach(
                  "SaveFile", [&] { return parts->SaveFile(file.Get(), text.Get()); },
                  [&] { EXPECT_EQ(SysStringLen(text.Get()), folder.Read("file.txt").size()); }),
              0);

    const auto array = MakeObject<NamedProperties>();
    array->SetNumber(L"length", 2);
    array->SetText(L"0", L"one");
    array->SetText(L"1", L"two");
    RawVariant result;
    EXPECT_GT(FailEach(
                  "JSArray2SafeArray", [&] { return parts->JSArray2SafeArray(array.Get(), &result); },
                  [&] { EXPECT_EQ(VT_ARRAY | VT_VARIANT, result.vt); }),
              2);
}

TEST_F(AllocationFailure, IsReportedByTheHostsServices) {
    FailEach("SetExternalDispatch", [&] { return parts->SetExternalDispatch(host.Get()); });
    side->attached.Reset();
    FailEach("put_nux3D", [&] { return parts->put_nux3D(static_cast<Inux3D*>(side.Get())); });
    FailEach("RunDieWizard", [&] { return parts->RunDieWizard(1); });
    FailEach("CreateDieBlock", [&] { return parts->CreateDieBlock(); });
    FailEach("RunSlideWizard", [&] { return parts->RunSlideWizard(); });
    const LifterWizardClass wizards;
    ComPtr<IDispatch> wizard;
    failing.Arm(1);
    EXPECT_EQ(S_FALSE, parts->get_LifterWizard(wizard.Receive())) << "it can't be made";
    failing.Disarm();
    EXPECT_EQ(S_OK, parts->get_LifterWizard(wizard.Receive()));
}

TEST_F(AllocationFailure, IsReportedByAutomation) {
    ReleaseParts();
    ComPtr<InuxStdParts> fresh;
    const auto forgetTypes = [&] {
        fresh.Reset();
        EXPECT_EQ(S_OK, ModuleCanUnload());  // drops the type descriptions
        fresh = CreateParts();
    };
    wchar_t name[] = L"UserData";
    LPOLESTR names = name;
    DISPID id = 0;
    EXPECT_GT(FailEach(
                  "GetIDsOfNames", forgetTypes,
                  [&] { return fresh->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id); },
                  [&] { EXPECT_EQ(91, id); }),
              2);
    RawVariant read;
    DISPPARAMS none{};
    EXPECT_GT(FailEach(
                  "Invoke", forgetTypes,
                  [&] {
                      return fresh->Invoke(91, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                           read.Receive(), nullptr, nullptr);
                  },
                  [&] { EXPECT_EQ(VT_BSTR, read.vt); }),
              2);
    ComPtr<ITypeInfo> type;
    EXPECT_GT(FailEach(
                  "GetTypeInfo",
                  [&] {
                      type.Reset();
                      forgetTypes();
                  },
                  [&] { return fresh->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive()); }),
              2);
    ComPtr<ITypeInfo> coclass;
    EXPECT_GT(FailEach(
                  "GetClassInfo",
                  [&] {
                      coclass.Reset();
                      forgetTypes();
                  },
                  [&] { return fresh.As<IProvideClassInfo>()->GetClassInfo(coclass.Receive()); }),
              2);
}

TEST_F(AllocationFailure, IsReportedByTheControl) {
    const HWND frame = CreateWindowExA(0, "STATIC", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 400,
                                       300, nullptr, nullptr, nullptr, nullptr);
    const auto site = MakeObject<ControlSite>(frame);
    const auto object = parts.As<IOleObject>();
    object->SetClientSite(site.Get());
    failureIsSilent = true;  // a frame that can't be told the name is no failure of the activation
    FailEach(
        "DoVerb", [&] { object->Close(OLECLOSE_NOSAVE); },
        [&] { return object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, frame, nullptr); });
    failureIsSilent = false;
    object->SetClientSite(nullptr);
    DestroyWindow(frame);

    LPOLESTR name = nullptr;
    EXPECT_GT(FailEach(
                  "GetUserType", [&] { return object->GetUserType(USERCLASSTYPE_FULL, &name); },
                  [&] {
                      EXPECT_STREQ(L"nuxStdParts Class", name);
                      CoTaskMemFree(name);
                  }),
              0);
    const auto sink = MakeObject<AdviseSink>();
    DWORD cookie = 0;
    EXPECT_GT(FailEach(
                  "Advise", [&] { return object->Advise(sink.Get(), &cookie); },
                  [&] { EXPECT_EQ(S_OK, object->Unadvise(cookie)); }),
              0);
    const auto container = parts.As<IConnectionPointContainer>();
    ComPtr<IEnumConnectionPoints> points;
    EXPECT_GT(
        FailEach("EnumConnectionPoints", [&] { return container->EnumConnectionPoints(points.Receive()); }),
        1);
    const auto events = MakeObject<EventSink>();
    ComPtr<IConnectionPoint> point;
    container->FindConnectionPoint(DIID__InuxStdPartsEvents, point.Receive());
    EXPECT_GT(FailEach("connecting a sink", [&] { return point->Advise(events.Get(), &cookie); }), 0);
    ComPtr<IEnumConnections> connections;
    EXPECT_GT(FailEach("EnumConnections", [&] { return point->EnumConnections(connections.Receive()); }), 1);
}

TEST_F(AllocationFailure, IsReportedByTheClassFactory) {
    ComPtr<IClassFactory> factory;
    EXPECT_GT(FailEach("DllGetClassObject",
                       [&] {
                           return module.GetClassObject(CLSID_nuxStdParts, IID_IClassFactory,
                                                        factory.ReceiveVoid());
                       }),
              0);
    ComPtr<InuxStdParts> made;
    EXPECT_GT(FailEach(
                  "CreateInstance",
                  [&] { return factory->CreateInstance(nullptr, IID_InuxStdParts, made.ReceiveVoid()); },
                  [&] { EXPECT_EQ(S_OK, made->AssertFail()); }),
              2);
    EXPECT_GT(FailEach("DllRegisterServer", [&] { return module.Register(); }), 2);
}

TEST_F(AllocationFailure, IsReportedByAThreadThatHasNeverSeenAnException) {
    for (const Extent extent : {Extent::one, Extent::thatAndAllBehind}) {
        HRESULT result = S_OK;
        HRESULT again = E_FAIL;
        std::thread([&] {
            OleInitialize(nullptr);
            {
                const ComPtr<InuxStdParts> own = CreateParts();
                const Bstr text(L"a text that is too long for a small string");
                failing.Arm(1, extent);
                result = own->put_UserData(text.Get());
                failing.Disarm();
                again = own->put_UserData(text.Get());
            }
            OleUninitialize();
        }).join();
        EXPECT_EQ(E_OUTOFMEMORY, result);
        EXPECT_EQ(S_OK, again);
    }
}

}  // namespace
}  // namespace nux
