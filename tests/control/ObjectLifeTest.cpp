#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "driver/Controls.h"
#include "driver/Input.h"
#include "host/Browser.h"
#include "host/EditedComponent.h"
#include "tests/control/LifterWizardClass.h"
#include "tests/support/DomDoubles.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Installation.h"
#include "tests/support/RawVariant.h"
#include "tests/support/WithUser.h"

namespace nux {
namespace {

/// Does something at its end, as an object of a host may.
class Parting : public HostDispatch {
public:
    explicit Parting(std::function<void()> atEnd) : atEnd_(std::move(atEnd)) {}
    ~Parting() override { atEnd_(); }

private:
    std::function<void()> atEnd_;
};

/// Makes an array of sizes with one element, which is copied.
void MakeSizes(RawVariant& sizes, VARIANT& element) {
    sizes.Receive();
    sizes.parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    sizes.vt = VT_ARRAY | VT_VARIANT;
    LONG index = 0;
    SafeArrayPutElement(sizes.parray, &index, &element);
}

/// Tells the journal of its end.
class JournalledBrowser : public host::Browser {
public:
    explicit JournalledBrowser(Journal* journal)
        : Browser(std::make_shared<host::CallRecord>()), journal_(journal) {}
    ~JournalledBrowser() override { journal_->push_back("browser released"); }

private:
    Journal* journal_;
};

class JournalledComponent : public host::EditedComponent {
public:
    explicit JournalledComponent(Journal* journal)
        : EditedComponent(std::make_shared<host::CallRecord>(), L"BOLTS", L"M8"), journal_(journal) {}
    ~JournalledComponent() override { journal_->push_back("edited component released"); }

private:
    Journal* journal_;
};

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
    RawVariant global;
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
        const auto bar = MakeObject<NamedProperties>(&journal, "status bar");
        for (const wchar_t* member :
             {L"SetMessage", L"SetProgress", L"CreateProgressBar", L"DestroyProgressBar"})
            bar->SetNumber(member, 0);
        EXPECT_EQ(S_OK, parts->put_StatusBar(bar.Get()));
        const auto browser = MakeObject<JournalledBrowser>(&journal);
        EXPECT_EQ(S_OK, parts->AttachBrowser(browser.Get()));
        browser->Release();  // the one that is kept for the life of the process
        RawVariant edited;
        edited.vt = VT_DISPATCH;
        edited.pdispVal = MakeObject<JournalledComponent>(&journal).Detach();
        EXPECT_EQ(S_OK, parts->SetEditedComponent(edited, 0));
        ComPtr<IDispatch> wizard;
        EXPECT_EQ(S_OK, parts->get_LifterWizard(wizard.Receive()));

        RawVariant global;
        global.vt = VT_DISPATCH;
        ComPtr<IDispatch>(inGlobal.Get()).CopyTo(&global.pdispVal);
        parts->put_GlobalData(global);
        RawVariant element;
        element.vt = VT_DISPATCH;
        ComPtr<IDispatch>(inSizes.Get()).CopyTo(&element.pdispVal);
        RawVariant sizes;
        MakeSizes(sizes, element);
        ComPtr<IDispatch> dispatch;
        parts->get_DataManager(dispatch.Receive());
        EXPECT_EQ(S_OK, dispatch.As<InuxDataManager>()->put_CorePlateSizes(sizes));
    }
    EXPECT_TRUE(journal.empty());
    ReleaseParts();
    EXPECT_EQ((Journal{"status bar released", "browser released", "edited component released", "3D released",
                       "data manager's value released", "lifter wizard released",
                       "external dispatch released", "global data released"}),
              journal);
}

TEST_F(ObjectLife, TwoObjectsKeepTheirOwnState) {
    const ComPtr<InuxStdParts> second = CreateParts();
    EXPECT_NE(parts.Get(), second.Get());
    GiveAll(parts);
    EXPECT_EQ(S_OK, parts->put_UserData(Bstr(L"mine").Get()));
    EXPECT_EQ(S_OK, parts->put_LastRVCCmdResult(Bstr(L"mine").Get()));
    RawVariant global;
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
}

TEST_F(ObjectLife, AHostIsAskedForFoldersOnlyWhileTheObjectThatSetThePathsLastLives) {
    folder.MakeFolder("locale\\English");
    const auto application = MakeObject<HostApplication>();
    side->application = ComPtr<IDispatch>(application.Get());
    for (const char* id : {"LIVING", "DEAD"}) {
        WriteMessage(std::string("catalogs\\locale\\English\\") + id + "_Msgs.xml", "Where", "in the root");
        WriteMessage(std::string("host\\locale\\English\\") + id + "_Msgs.xml", "Where", "with the host");
        application->folders[Widen(id)] = Widen(folder.Path() + "host\\");
    }
    const ComPtr<InuxStdParts> first = CreateParts();
    GiveAll(first);
    ComPtr<InuxStdParts> second = CreateParts();
    GiveAll(second);
    EXPECT_EQ(L"with the host", Localized(L"LIVING", L"Where"));
    second.Reset();
    side->calls.clear();
    EXPECT_EQ(L"in the root", Localized(L"DEAD", L"Where")) << "though the first holds the same host";
    EXPECT_TRUE(side->calls.empty());
}

TEST_F(ObjectLife, LogAndDocumentsGoAfterWhatItHolds) {
    const ComPtr<InuxStdParts> second = CreateParts();
    GiveAll(parts);
    EXPECT_EQ(S_OK, parts->put_DebugSessionStatusAndLogFile(Bstr(folder.Path() + "log", CP_ACP).Get()));
    folder.Write("catalogs\\BOLTS\\Catalog.xml", "<Catalog/>");
    ComPtr<IDispatch> document;
    ASSERT_EQ(S_OK, parts->GetComponentsDocument(Bstr(L"BOLTS").Get(), document.Receive()));
    ULONG referencesThen = 0;
    parts->SetExternalDispatch(MakeObject<Parting>([&] {
                                   second->WriteDebugString(Bstr(L"last words").Get());
                                   referencesThen = References(document.Get());
                               }).Get());
    side->attached.Reset();
    ReleaseParts();
    EXPECT_NE(std::string::npos, folder.Read("log").find("last words"));
    EXPECT_LT(1u, referencesThen) << "the document is kept until then";
    EXPECT_EQ(1u, References(document.Get()));
}

TEST_F(ObjectLife, WhatIsReleasedAtItsEndMayStillCallIn) {
    InuxStdParts* const raw = parts.Get();
    int calls = 0;
    const auto callIn = [&] {
        ++calls;
        const ComPtr<InuxStdParts> again(raw);
        RawVariant five;
        five.vt = VT_I4;
        five.lVal = 5;
        EXPECT_EQ(S_OK, again->put_GlobalData(five));
        EXPECT_EQ(S_OK, again->put_nux3D(static_cast<Inux3D*>(side.Get())));
        EXPECT_EQ(S_OK, SetPaths(again, catalogs, data, gui, custom));
    };
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    parts->SetExternalDispatch(MakeObject<Parting>(callIn).Get());
    side->attached.Reset();
    RawVariant global;
    global.vt = VT_DISPATCH;
    global.pdispVal = MakeObject<Parting>(callIn).Detach();
    parts->put_GlobalData(global);
    global.Receive();
    ReleaseParts();
    EXPECT_EQ(2, calls);
    EXPECT_EQ(1u, References(static_cast<Inux3D*>(side.Get())));
    EXPECT_EQ(S_OK, ModuleCanUnload());
    side->calls.clear();
    parts = CreateParts();
    Localized(L"AFTEREND", L"x");
    EXPECT_TRUE(side->calls.empty()) << "the dead one's host";
}

TEST_F(ObjectLife, AValueThatGoesMayPutAnother) {
    RawVariant five;
    five.vt = VT_I4;
    five.lVal = 5;
    RawVariant global;
    global.vt = VT_DISPATCH;
    global.pdispVal = MakeObject<Parting>([&] { parts->put_GlobalData(five); }).Detach();
    parts->put_GlobalData(global);
    global.Receive();
    RawVariant text;
    text.vt = VT_BSTR;
    text.bstrVal = Bstr(L"text").Detach();
    EXPECT_EQ(S_OK, parts->put_GlobalData(text));
    RawVariant read;
    parts->get_GlobalData(&read);
    EXPECT_EQ(VT_I4, read.vt) << "the last that was put";

    ComPtr<IDispatch> dispatch;
    parts->get_DataManager(dispatch.Receive());
    const auto manager = dispatch.As<InuxDataManager>();
    RawVariant leaving;
    leaving.vt = VT_DISPATCH;
    leaving.pdispVal = MakeObject<Parting>([&] { EXPECT_EQ(S_OK, manager->ClearData()); }).Detach();
    RawVariant sizes;
    MakeSizes(sizes, leaving);
    EXPECT_EQ(S_OK, manager->put_CavityPlateSizes(sizes));
    leaving.Receive();
    MakeSizes(sizes, five);
    EXPECT_EQ(S_OK, manager->put_CavityPlateSizes(sizes));
    EXPECT_EQ(E_FAIL, manager->get_CavityPlateSizes(read.Receive())) << "cleared by the old value";
}

std::vector<DWORD> revoked;

HRESULT WINAPI NoteRevocation(DWORD cookie, void*) {
    revoked.push_back(cookie);
    return S_OK;
}

TEST_F(ObjectLife, NoRegistrationAsActiveObjectIsRevokedAtTheEnd) {
    revoked.clear();
    const ImportPatch patch(LoadedModule(), "OLEAUT32.dll", "RevokeActiveObject",
                            reinterpret_cast<void*>(&NoteRevocation));
    ASSERT_TRUE(patch);
    ReleaseParts();
    EXPECT_EQ((std::vector<DWORD>{0}), revoked);
}

TEST_F(ObjectLife, AnObjectThatAScriptHoldsOutlivesItsHostsReference) {
    const ComPtr<IDispatch> held = parts.As<IDispatch>();
    parts.Reset();
    EXPECT_EQ(S_FALSE, ModuleCanUnload());
    const auto again = held.As<InuxStdParts>();
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

/// A list of nodes, empty, which does something when it is first read.
class ActingList : public NodeListDouble {
public:
    explicit ActingList(std::function<void()> act) : NodeListDouble({}), act_(std::move(act)) {}

    STDMETHODIMP nextNode(IXMLDOMNode** node) override {
        if (const auto act = std::exchange(act_, nullptr))
            act();
        return NodeListDouble::nextNode(node);
    }

private:
    std::function<void()> act_;
};

TEST_F(ObjectLife, ItHoldsItselfWhileAUserChoosesDimensions) {
    IDispatch* const held = static_cast<Inux3D*>(side.Get());
    parts->put_nux3D(held);
    const auto names = MakeObject<ActingList>([&] {
        ReleaseParts();
        EXPECT_EQ(2u, References(held)) << "what it holds is held until the call is over";
    });
    InuxStdParts* const last = parts.Get();
    const VARIANT none{};
    ComPtr<IDispatch> chosen;
    WithUser(
        [&] {
            EXPECT_EQ(S_OK, last->ChooseDimensions(nullptr, nullptr, names.Get(), none, none, none,
                                                   chosen.Receive()));
        },
        [](driver::User& user) {
            const HWND dialog = user.Dialog("Choose dimensions");
            driver::Click(driver::Item(dialog, IDCANCEL));
        });
    EXPECT_FALSE(parts) << "the list was read";
    EXPECT_EQ(1u, References(held));
}

/// What a caller has in its out arguments.
template <class Value>
Value* Untouched() {
    return reinterpret_cast<Value*>(0x5a5a);
}

TEST_F(ObjectLife, OperationsThatAreNotOfferedLeaveTheirOutArguments) {
    IDispatch* object = Untouched<IDispatch>();
    long number = 77;
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = 78;
    const VARIANT none{};
    EXPECT_EQ(E_NOTIMPL, parts->ShowHTMLModelessDialog(nullptr, nullptr, 0, 0, 0, 0, none, &object));
    EXPECT_EQ(E_NOTIMPL, parts->NewComponent(0, &number));
    EXPECT_EQ(E_NOTIMPL, parts->MessageBox(nullptr, nullptr, 0, &number));
    EXPECT_EQ(E_NOTIMPL, parts->MessageBoxHTML(nullptr, nullptr, 0, VARIANT_FALSE, 0, 0, &number));
    EXPECT_EQ(E_NOTIMPL, parts->ShowHTMLModalDialog(nullptr, nullptr, 0, 0, 0, 0, none, &value));
    EXPECT_EQ(Untouched<IDispatch>(), object);
    EXPECT_EQ(77, number);
    EXPECT_EQ(VT_I4, value.vt);
    EXPECT_EQ(78, value.lVal);
    // Null pointers are no different.
    EXPECT_EQ(E_NOTIMPL, parts->NewComponent(0, nullptr));
    EXPECT_EQ(E_NOTIMPL, parts->ShowHTMLModalDialog(nullptr, nullptr, 0, 0, 0, 0, none, nullptr));
}

}  // namespace
}  // namespace nux
