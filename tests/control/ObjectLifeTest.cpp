#include <gtest/gtest.h>

#include "tests/control/HostDoubles.h"
#include "tests/control/Installation.h"
#include "tests/control/LifterWizardClass.h"

namespace nux {
namespace {

class ObjectLife : public InstallationTest {
protected:
    void GiveAll(const ComPtr<InuxStdParts>& object) {
        object->put_nux3D(static_cast<Inux3D*>(side.Get()));
        EXPECT_EQ(S_OK, object->SetExternalDispatch(host.Get()));
        side->attached.Reset();
        EXPECT_EQ(S_OK, SetPaths(object, catalogs, data, gui, custom));
    }

    ComPtr<ComObject<Host3D>> side = MakeObject<Host3D>();
    ComPtr<ComObject<NamedProperties>> host = MakeObject<NamedProperties>();
};

TEST_F(ObjectLife, ItsEndReturnsEveryReferenceOfTheHostsObjects) {
    IDispatch* const sideDispatch = static_cast<Inux3D*>(side.Get());
    GiveAll(parts);
    Variant global;
    global.vt = VT_DISPATCH;
    ComPtr<IDispatch>(host.Get()).CopyTo(&global.pdispVal);
    parts->put_GlobalData(global);
    global.Receive();
    EXPECT_EQ(2u, References(sideDispatch));
    EXPECT_EQ(3u, References(host.Get()));
    ReleaseParts();
    EXPECT_EQ(1u, References(sideDispatch));
    EXPECT_EQ(1u, References(host.Get()));
}

TEST_F(ObjectLife, WhatItHoldsIsReleasedInOrder) {
    Journal journal;
    const LifterWizardClass wizards(&journal);
    {
        const auto ownSide = MakeObject<Host3D>(&journal);
        const auto ownHost = MakeObject<NamedProperties>(&journal, "external dispatch");
        const auto inSizes = MakeObject<NamedProperties>(&journal, "data manager's value");
        const auto inGlobal = MakeObject<NamedProperties>(&journal, "global data");
        parts->put_nux3D(static_cast<Inux3D*>(ownSide.Get()));
        parts->SetExternalDispatch(ownHost.Get());
        ownSide->attached.Reset();
        ComPtr<IDispatch> wizard;
        EXPECT_EQ(S_OK, parts->get_LifterWizard(wizard.Receive()));

        Variant global;
        global.vt = VT_DISPATCH;
        ComPtr<IDispatch>(inGlobal.Get()).CopyTo(&global.pdispVal);
        parts->put_GlobalData(global);
        Variant element;
        element.vt = VT_DISPATCH;
        ComPtr<IDispatch>(inSizes.Get()).CopyTo(&element.pdispVal);
        Variant sizes;
        sizes.parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
        sizes.vt = VT_ARRAY | VT_VARIANT;
        LONG index = 0;
        SafeArrayPutElement(sizes.parray, &index, &element);
        ComPtr<IDispatch> dispatch;
        parts->get_DataManager(dispatch.Receive());
        EXPECT_EQ(S_OK, dispatch.As<InuxDataManager>(IID_InuxDataManager)->put_CorePlateSizes(sizes));
    }
    EXPECT_TRUE(journal.empty());
    ReleaseParts();
    EXPECT_EQ((Journal{"3D released", "data manager's value released", "lifter wizard released",
                       "external dispatch released", "global data released"}),
              journal);
}

TEST_F(ObjectLife, TwoObjectsKeepTheirOwnState) {
    const ComPtr<InuxStdParts> second = CreateParts();
    EXPECT_NE(parts.Get(), second.Get());
    GiveAll(parts);
    EXPECT_EQ(S_OK, parts->put_UserData(Bstr(L"mine").Get()));
    EXPECT_EQ(S_OK, parts->put_LastRVCCmdResult(Bstr(L"mine").Get()));
    Variant global;
    global.vt = VT_I4;
    global.lVal = 5;
    EXPECT_EQ(S_OK, parts->put_GlobalData(global));

    EXPECT_EQ(L"", ReadText(second, &InuxStdParts::get_UserData));
    EXPECT_EQ(L"", ReadText(second, &InuxStdParts::get_LastRVCCmdResult));
    EXPECT_EQ(S_OK, second->get_GlobalData(&global));
    EXPECT_EQ(VT_EMPTY, global.vt);
    long initialised = -1;
    second->get_Initialised(&initialised);
    EXPECT_EQ(0, initialised);
    ComPtr<IDispatch> read;
    EXPECT_EQ(S_FALSE, second->get_nux3D(read.Receive()));
    EXPECT_EQ(E_FAIL, second->RunDieWizard(1));
}

TEST_F(ObjectLife, TheEndOfOneLeavesTheOtherWorking) {
    GiveAll(parts);
    {
        const ComPtr<InuxStdParts> second = CreateParts();
        GiveAll(second);
    }
    EXPECT_EQ(2u, References(host.Get()));
    EXPECT_EQ(S_OK, parts->RunDieWizard(3));
    folder.Write("catalogs\\BOLTS\\Catalog.xml", "<Catalog/>");
    ComPtr<IDispatch> document;
    EXPECT_EQ(S_OK, parts->GetComponentsDocument(Bstr(L"BOLTS").Get(), document.Receive()));
    folder.MakeFolder("locale\\English");
    EXPECT_EQ(S_OK, UseInstallation());
    EXPECT_EQ(L"x", Localized(L"ENDOFONE", L"x")) << "the host that the dead one gave is not asked any more";
}

TEST_F(ObjectLife, AnObjectThatAScriptHoldsOutlivesItsHostsReference) {
    const ComPtr<IDispatch> held = parts.As<IDispatch>(IID_IDispatch);
    parts.Reset();
    EXPECT_EQ(S_FALSE, ModuleCanUnload());
    const auto again = held.As<InuxStdParts>(IID_InuxStdParts);
    EXPECT_EQ(S_OK, again->AssertFail());
}

TEST_F(ObjectLife, ItIsMadeByEitherProgId) {
    for (const wchar_t* progId : {L"Tarnvale.nuxStdParts", L"Tarnvale.nuxStdParts.1"}) {
        CLSID classId{};
        EXPECT_EQ(S_OK, CLSIDFromProgID(progId, &classId));
        EXPECT_EQ(CLSID_nuxStdParts, classId);
    }
    LPOLESTR progId = nullptr;
    EXPECT_EQ(S_OK, ProgIDFromCLSID(CLSID_nuxStdParts, &progId));
    EXPECT_STREQ(L"Tarnvale.nuxStdParts.1", progId);
    CoTaskMemFree(progId);
}

}  // namespace
}  // namespace nux
