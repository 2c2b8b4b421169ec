// The current component: what is kept, what is dropped, what the user is told and which page opens, for each
// way in which a component or its page can be missing.

#include <gtest/gtest.h>

#include "framework/Handles.h"
#include "tests/control/HostedComponent.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/PrivateMemory.h"
#include "tests/support/RawVariant.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

using host::Call;

constexpr char noPart[] = "Cannot find a html page of the component!";
constexpr char noGeometry[] = "Cannot get a geometry file of the component!";

class EditedComponents : public HostedTest {
protected:
    /// A component of the host becomes the edited one and its page opens.
    HRESULT Reload(const std::wstring& catalogue, const std::wstring& component) {
        return Edit(objects.Edit(catalogue, component).Get(), 1);
    }

    /// Loading this component fails with these words, drops the edited component and opens the default page.
    void ExpectFailure(const std::wstring& catalogue, const std::wstring& component,
                       const std::string& words) {
        SCOPED_TRACE(Narrow(component.data(), component.size()));
        EditOne();
        HRESULT result = S_OK;
        EXPECT_EQ(words, Told([&] { result = Reload(catalogue, component); }));
        EXPECT_EQ(E_FAIL, result);
        EXPECT_FALSE(Edited());
        EXPECT_EQ(Texts{defaultPage}, Opened());
    }
};

TEST_F(EditedComponents, AreOnlyKeptWithoutAReload) {
    AttachBrowser();
    objects.Record().ClearLines();
    const auto component = objects.Edit(L"NONE", L"none");
    EXPECT_EQ(S_OK, Edit(component.Get(), 0));
    EXPECT_EQ(static_cast<IDispatch*>(component.Get()), Edited().Get());
    EXPECT_TRUE(objects.Record().Lines().empty()) << "nothing is asked, no catalogue is read, no page opens";
}

TEST_F(EditedComponents, OpenTheirPageWithAReload) {
    AttachBrowser();
    for (const long reload : {1L, -1L, 2L}) {
        EXPECT_EQ(S_OK, Edit(objects.Edit(L"BOLTS", L"M8").Get(), reload));
        EXPECT_TRUE(Edited());
        EXPECT_EQ((Texts{"GetValue Catalog", "GetValue ID", "Navigate " + componentPage}),
                  Asked({Call::GetValue, Call::Close, Call::Navigate}));
    }
}

TEST_F(EditedComponents, OpenAPageWhoseNameHasUmlautsBlanksAndSlashes) {
    AttachBrowser();
    folder.Write(
        "catalogs\\Gr\xf6\xdf"
        "en 1\\Catalog.xml",
        "<?xml version='1.0' encoding='windows-1252'?><c><Part><ID>\xc4 1</ID>"
        "<Geometry>sub/Seite \xfc.htm</Geometry></Part></c>");
    folder.Write(
        "catalogs\\Gr\xf6\xdf"
        "en 1\\sub\\Seite \xfc.htm",
        "");
    EXPECT_EQ(S_OK, Reload(L"Gr\u00f6\u00dfen 1", L"\u00c4 1"));
    EXPECT_EQ(Texts{"file://" + catalogs +
                    "Gr\xf6\xdf"
                    "en 1\\sub/Seite \xfc.htm"},
              Opened());
}

TEST_F(EditedComponents, OpenThePageBelowTheObjectsOwnPath) {
    AttachBrowser();
    const std::string elsewhere = folder.MakeFolder("elsewhere");
    folder.Write("elsewhere\\Catalog.xml", "<c><Part><ID>P</ID><Geometry>M8.htm</Geometry></Part></c>");
    folder.Write("elsewhere\\BOLTS\\M8.htm", "");
    objects.application->SetFolder(L"BOLTS", Widen(elsewhere));
    EXPECT_EQ(S_OK, Reload(L"BOLTS", L"P")) << "the catalogue is read where the host says";
    EXPECT_EQ(Texts{componentPage}, Opened());
    const ComPtr<InuxStdParts> other = CreateParts();
    ASSERT_EQ(S_OK, SetPaths(other, elsewhere, elsewhere, gui, custom));
    EXPECT_EQ(S_OK, Reload(L"BOLTS", L"P"));
    EXPECT_EQ(Texts{componentPage}, Opened()) << "whatever another object has set";
}

TEST_F(EditedComponents, HaveIdsAndAddressesInTheCodePageOfTheThread) {
    AttachBrowser();
    objects.application->SetFolder(L"\u0416", Widen(catalogs + "BOLTS\\"));
    folder.Write("catalogs\\BOLTS\\Catalog.xml",
                 "<c><Part><ID>&#x416;</ID><Geometry>&#x416;.htm</Geometry></Part></c>");
    folder.Write("catalogs\\\xc6\\\xc6.htm", "");  // by the system's code page another letter
    const ThreadLocale locale(russian);
    EXPECT_EQ(S_OK, Reload(L"\u0416", L"\u0416"));
    EXPECT_EQ(Texts{"file://" + catalogs + "\xc6\\\xc6.htm"}, Opened());
}

/// One whose values are null texts.
class ComponentWithoutValues : public host::EditedComponent {
public:
    using EditedComponent::EditedComponent;

    STDMETHODIMP GetValue(BSTR, BSTR* value) override {
        *value = nullptr;
        return S_OK;
    }
};

TEST_F(EditedComponents, HaveEmptyIdsForNullTexts) {
    AttachBrowser();
    const auto component =
        MakeObject<ComponentWithoutValues>(std::make_shared<host::CallRecord>(), L"BOLTS", L"M8");
    EXPECT_EQ(noPart, Told([&] { EXPECT_EQ(E_FAIL, Edit(component.Get(), 1)); }));
    folder.Write("catalogs\\Catalog.xml", "<c><Part><ID/><Geometry>M8.htm</Geometry></Part></c>");
    EXPECT_EQ(noGeometry, Told([&] { EXPECT_EQ(E_FAIL, Edit(component.Get(), 1)); }));
}

TEST_F(EditedComponents, WithoutABrowserAreKeptWithoutALookAtTheirPage) {
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, Reload(L"BOLTS", L"M10")); }));
    EXPECT_TRUE(Edited());
}

TEST_F(EditedComponents, AreDroppedForAnythingThatIsNoObject) {
    AttachBrowser();
    IDispatch* referred = objects.application.Get();
    for (const int type : {+VT_EMPTY, +VT_NULL, +VT_DISPATCH, +VT_I4, +VT_ERROR, VT_BYREF | VT_DISPATCH}) {
        for (const long reload : {0L, 1L}) {
            SCOPED_TRACE(type);
            EditOne();
            VARIANT value{};
            value.vt = static_cast<VARTYPE>(type);
            if (type & VT_BYREF)
                value.ppdispVal = &referred;
            EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, parts->SetEditedComponent(value, reload)); }));
            EXPECT_FALSE(Edited());
            EXPECT_EQ(Texts{"Navigate " + defaultPage}, Asked({Call::Close, Call::Navigate}));
        }
    }
    VARIANT inner{};
    inner.vt = VT_DISPATCH;
    inner.pdispVal = EditOne().Get();
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &inner;
    EXPECT_EQ(S_OK, parts->SetEditedComponent(reference, 0));
    EXPECT_FALSE(Edited());
    VARIANT unknown{};
    unknown.vt = VT_UNKNOWN;
    unknown.punkVal = EditOne().Get();
    EXPECT_EQ(S_OK, parts->SetEditedComponent(unknown, 0));
    EXPECT_FALSE(Edited());
}

TEST_F(EditedComponents, AForeignObjectIsRefusedAndTheOldOneIsGone) {
    AttachBrowser();
    for (const long reload : {0L, 1L}) {
        EditOne();
        EXPECT_EQ("", Told([&] { EXPECT_EQ(E_INVALIDARG, Edit(objects.application.Get(), reload)); }));
        EXPECT_FALSE(Edited());
        EXPECT_TRUE(objects.Record().Lines().empty()) << "neither closed nor a page opened";
    }
}

TEST_F(EditedComponents, AnotherOneDoesNotCloseTheOldOne) {
    AttachBrowser();
    const auto old = EditOne();
    EXPECT_EQ(S_OK, Reload(L"BOLTS", L"M8"));
    EXPECT_NE(static_cast<IDispatch*>(old.Get()), Edited().Get());
    EXPECT_TRUE(Asked({Call::Close}).empty());
    EXPECT_EQ(1u, References(old.Get()));
}

TEST_F(EditedComponents, WithoutTheirValuesAreNotFound) {
    AttachBrowser();
    for (const long nth : {1L, 2L}) {
        SCOPED_TRACE(nth);
        EditOne();
        objects.Record().Fail(Call::GetValue, E_ACCESSDENIED, nth);
        HRESULT result = S_OK;
        EXPECT_EQ(noPart, Told([&] { result = Reload(L"BOLTS", L"M8"); }));
        EXPECT_EQ(E_FAIL, result);
        EXPECT_FALSE(Edited());
        EXPECT_EQ(Texts{defaultPage}, Opened());
        objects.Record().Restore();
    }
}

TEST_F(EditedComponents, WithoutTheirPartAreNotFound) {
    AttachBrowser();
    folder.Write("catalogs\\BROKEN\\Catalog.xml", "<Catalog><Part>");
    ExpectFailure(L"BOLTS", L"none", noPart);
    ExpectFailure(L"BOLTS", L"m8", noPart);
    ExpectFailure(L"BOLTS", L"it's", noPart);
    ExpectFailure(L"BOLTS", L"", noPart);
    ExpectFailure(L"NONE", L"M8", noPart);
    ExpectFailure(L"", L"M8", noPart);
    ExpectFailure(L"BROKEN", L"M8", noPart);
}

TEST_F(EditedComponents, WithoutAGeometryCannotBeOpened) {
    AttachBrowser();
    ExpectFailure(L"BOLTS", L"M12", noGeometry);
    ExpectFailure(L"BOLTS", L"M14", noGeometry);
}

TEST_F(EditedComponents, APartOfTheCatalogueWithoutANameHasNoPage) {
    AttachBrowser();
    folder.Write("catalogs\\Catalog.xml", "<c><Part><ID>M8</ID><Geometry>M8.htm</Geometry></Part></c>");
    ExpectFailure(L"", L"M8", noGeometry);
}

TEST_F(EditedComponents, WithoutTheirPageAreDropped) {
    AttachBrowser();
    ExpectFailure(L"BOLTS", L"M10", noPage);
    folder.MakeFolder("catalogs\\BOLTS\\missing.htm");
    ExpectFailure(L"BOLTS", L"M10", noPage);
    const UniqueFile held(CreateFileA((catalogs + "BOLTS\\M8.htm").c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                                      nullptr, OPEN_EXISTING, 0, nullptr));
    ExpectFailure(L"BOLTS", L"M8", noPage);
}

TEST_F(EditedComponents, AreDroppedWithoutTheDefaultPageIfTheBrowserFails) {
    AttachBrowser();
    objects.Record().Fail(Call::Navigate, E_ACCESSDENIED, 1);
    HRESULT result = S_OK;
    EXPECT_EQ(noMemory, Told([&] { result = Reload(L"BOLTS", L"M8"); }));
    EXPECT_EQ(E_FAIL, result);
    EXPECT_FALSE(Edited());
    EXPECT_EQ(Texts{componentPage}, Opened());
}

TEST_F(EditedComponents, ADefaultPageThatIsMissingOrFailsIsToldToo) {
    AttachBrowser();
    objects.Record().Fail(Call::Navigate, E_FAIL, 0);
    EXPECT_EQ(std::string(noPart) + "|" + noMemory, Told([&] { Reload(L"BOLTS", L"none"); }));
    folder.Remove("data\\Tarnvale.htm");
    EXPECT_EQ(std::string(noPart) + "|" + noDefaultPage, Told([&] { Reload(L"BOLTS", L"none"); }));
    EXPECT_EQ(noDefaultPage, Told([&] { EXPECT_EQ(S_OK, Edit(nullptr, 0)); }))
        << "a failure that only is told";
}

TEST_F(EditedComponents, WithoutABrowserAFailureIsToldAndNoPageMissed) {
    folder.Remove("data\\Tarnvale.htm");
    EXPECT_EQ(noPart, Told([&] { EXPECT_EQ(E_FAIL, Reload(L"BOLTS", L"none")); }));
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, Edit(nullptr, 0)); }));
}

/// Messages that were looked for once are not looked for again.
class LocalisedComponents : public EditedComponents {
protected:
    void SetUp() override {
        UnloadModule();
        EditedComponents::SetUp();
        for (const bool ofCatalogue : {false, true}) {
            std::string messages;
            for (const std::string id : {noPart, noGeometry, noPage, noDefaultPage, noMemory, "Tarnvale"})
                messages +=
                    "<MsgID>" + id + "</MsgID><Text>" + (ofCatalogue ? "wrong" : Translated(id)) + "</Text>";
            folder.Write(std::string("locale\\English\\") + (ofCatalogue ? "BOLTS" : "COMMON") + "_Msgs.xml",
                         "<Messages>" + messages + "</Messages>");
        }
        ASSERT_EQ(S_OK, UseInstallation());
    }

    static std::string Translated(const std::string& id) { return "[" + id + "]"; }
};

TEST_F(LocalisedComponents, EachFailureIsToldInTheUsersLanguageFromTheCommonMessages) {
    const HWND window = ShowControl();
    AttachBrowser();
    EXPECT_EQ(Translated(noPart), Told([&] { Reload(L"BOLTS", L"none"); }));
    EXPECT_EQ(Translated(noGeometry), Told([&] { GetComponent("BOLTS", "M12"); }));
    EXPECT_EQ(Translated(noPage), Told([&] { Reload(L"BOLTS", L"M10"); }));
    const Bstr missing("file://" + data + "missing.htm", CP_ACP);
    EXPECT_EQ(Translated(noPage), Told([&] { parts->Navigate(missing.Get()); }));
    objects.Record().Fail(Call::Navigate, E_FAIL, 0);
    for (const std::string& told : {Told([&] { Reload(L"BOLTS", L"M8"); }), Told([&] { Edit(nullptr, 0); }),
                                    Told([&] { SendMessageA(window, WM_COMMAND, 3, 0); })})
        EXPECT_EQ(Translated(noMemory), told);
    folder.Remove("data\\Tarnvale.htm");
    EXPECT_EQ(Translated(noDefaultPage), Told([&] { Edit(nullptr, 0); }));
    folder.Remove("data\\Wizard.htm");
    EXPECT_EQ(Translated(noPage) + "|" + Translated(noDefaultPage),
              Told([&] { SendMessageA(window, WM_COMMAND, 3, 0); }));
}

HWND parentOfBox = nullptr;
UINT styleOfBox = 0;

int WINAPI NoteBox(HWND parent, const char*, const char*, UINT style) {
    parentOfBox = parent;
    styleOfBox = style;
    return IDOK;
}

TEST_F(EditedComponents, FailuresAreShownOnTheControlsOwnWindow) {
    const ImportPatch patch(LoadedModule(), "USER32.dll", "MessageBoxA", reinterpret_cast<void*>(&NoteBox));
    ASSERT_TRUE(patch);
    const HWND window = ShowControl();
    EXPECT_EQ(E_FAIL, Reload(L"BOLTS", L"M12"));
    EXPECT_EQ(window, parentOfBox);
    EXPECT_EQ(16u, styleOfBox);
}

TEST_F(LocalisedComponents, FailuresAreToldOverTheControlsWindowInTheUsersLanguage) {
    AttachBrowser();
    const HWND window = ShowControl();
    const auto boxes = BoxesOf([&] { Reload(L"BOLTS", L"M12"); });
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ(Translated(noGeometry), boxes[0].text);
    // The owner of a box is the window at the top of the one that was named.
    EXPECT_EQ(GetAncestor(window, GA_ROOT), GetAncestor(boxes[0].owner, GA_ROOT));
}

/// What is seen of the component and asked of the host while the user is told of a failure.
std::string meanwhile;
std::function<std::string()> lookMeanwhile;

int WINAPI LookAndPressOk(HWND, const char*, const char*, UINT) {
    meanwhile += lookMeanwhile();
    return IDOK;
}

TEST_F(EditedComponents, AreGoneBeforeTheUserIsToldAndThePageOpensBehindIt) {
    AttachBrowser();
    const ImportPatch boxes(LoadedModule(), "USER32.dll", "MessageBoxA",
                            reinterpret_cast<void*>(LookAndPressOk));
    ASSERT_TRUE(boxes);
    lookMeanwhile = [&] {
        return std::string(Edited() ? "edited" : "none") + " " + std::to_string(Opened().size()) + ";";
    };
    const auto expect = [&](const std::string& seen, const std::function<HRESULT()>& work) {
        EditOne();
        meanwhile.clear();
        work();
        EXPECT_EQ(seen, meanwhile);
    };
    expect("none 0;", [&] { return Reload(L"BOLTS", L"none"); });
    expect("none 0;", [&] { return Reload(L"BOLTS", L"M12"); });
    expect("none 0;", [&] { return Reload(L"BOLTS", L"M10"); });
    expect("none 0;", [&] { return GetComponent("BOLTS", "none"); });
    objects.Record().Fail(Call::Navigate, E_FAIL, 1);
    expect("none 1;", [&] { return Reload(L"BOLTS", L"M8"); });
    lookMeanwhile = nullptr;
}

TEST_F(EditedComponents, LeaveTheIdsAlone) {
    AttachBrowser();
    EXPECT_EQ(" ", Ids());
    EXPECT_EQ(S_OK, GetComponent("BOLTS", "M10"));
    EXPECT_EQ(S_OK, Reload(L"BOLTS", L"M8"));
    EXPECT_EQ("BOLTS M10", Ids());
    ExpectFailure(L"BOLTS", L"none", noPart);
    ExpectFailure(L"BOLTS", L"M10", noPage);
    EXPECT_EQ(S_OK, Edit(nullptr, 0));
    EXPECT_EQ("BOLTS M10", Ids());
}

TEST_F(EditedComponents, ComeBackToTheHost) {
    AttachBrowser();
    const auto component = objects.Edit(L"BOLTS", L"M8");
    EXPECT_EQ(S_OK, Edit(component.Get(), 1));
    EXPECT_EQ(2u, References(component.Get()));
    ReleaseParts();
    EXPECT_EQ(1u, References(component.Get()));
    EXPECT_TRUE(Asked({Call::Close}).empty()) << "the host knows that the object has gone";
}

TEST_F(EditedComponents, MayLetGoOfTheObjectWhileTheyAreAsked) {
    const auto component = objects.Edit(L"BOLTS", L"M8");
    objects.Record().whenCalled = [&](const auto&) { parts.Reset(); };
    InuxStdParts* const last = parts.Get();
    VARIANT value{};
    value.vt = VT_DISPATCH;
    value.pdispVal = component.Get();
    EXPECT_EQ(S_OK, last->SetEditedComponent(value, 1));
    objects.Record().whenCalled = nullptr;
    EXPECT_EQ(S_OK, ModuleCanUnload());
}

TEST_F(EditedComponents, NeedAnOutPointer) {
    EXPECT_EQ(E_INVALIDARG, parts->get_EditedComponent(nullptr));
    EXPECT_EQ(E_INVALIDARG, parts->get_CatalogID(nullptr));
    EXPECT_EQ(E_INVALIDARG, parts->get_ComponentID(nullptr));
    IDispatch* out = objects.application.Get();
    EXPECT_EQ(S_FALSE, parts->get_EditedComponent(&out));
    EXPECT_EQ(nullptr, out);
}

class Components : public HostedTest {};

TEST_F(Components, AreTakenAndTheirPageIsTheCallersToOpen) {
    AttachBrowser();
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, GetComponent("BOLTS", "M8")); }));
    EXPECT_EQ("BOLTS M8", Ids());
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, GetComponent("BOLTS", "M10")); })) << "its page is missing";
    EXPECT_EQ("BOLTS M10", Ids());
    EXPECT_TRUE(Opened().empty());
}

TEST_F(Components, MayLieInTheCatalogueWithoutAName) {
    folder.Write("catalogs\\Catalog.xml", "<c><Part><ID>M8</ID><Geometry>M8.htm</Geometry></Part></c>");
    EXPECT_EQ(S_OK, GetComponent("BOLTS", "M10"));
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, GetComponent("", "M8")); }));
    EXPECT_EQ(" M8", Ids());
}

TEST_F(Components, CloseTheEditedOneBeforeTheCatalogueIsLookedFor) {
    EditOne();
    EXPECT_EQ(S_OK, GetComponent("BOLTS", "M8"));
    EXPECT_EQ((Texts{"Close", "CatalogFolder BOLTS"}), Asked({Call::Close, Call::CatalogFolder}));
}

TEST_F(Components, TheEditedOneIsStillThereWhileItIsClosed) {
    const auto component = EditOne();
    bool seen = false;
    objects.Record().whenCalled = [&](const host::CallRecord::Line& line) {
        if (line.call == Call::Close)
            seen = Edited().Get() == static_cast<IDispatch*>(component.Get());
    };
    EXPECT_EQ(S_OK, GetComponent("BOLTS", "M8"));
    objects.Record().whenCalled = nullptr;
    EXPECT_TRUE(seen);
    EXPECT_FALSE(Edited());
}

TEST_F(Components, CloseTheEditedOne) {
    AttachBrowser();
    for (const char* id : {"M8", "none"}) {
        const auto component = EditOne();
        Told([&] { EXPECT_EQ(S_OK, GetComponent("BOLTS", id)); });
        EXPECT_FALSE(Edited());
        EXPECT_EQ(Texts{"Close"}, Asked({Call::Close}));
        EXPECT_EQ(1u, References(component.Get()));
    }
    EXPECT_EQ(S_OK, GetComponent("BOLTS", "M8"));
    EXPECT_TRUE(Asked({Call::Close}).empty());
}

TEST_F(Components, AnEditedOneThatFailsToCloseIsLetGoOf) {
    const auto component = EditOne();
    objects.Record().Fail(Call::Close, E_FAIL, 0);
    EXPECT_EQ(S_OK, GetComponent("BOLTS", "M8"));
    EXPECT_FALSE(Edited());
    EXPECT_EQ("BOLTS M8", Ids());
}

TEST_F(Components, WithoutAGeometryOrAtAllAreToldAndTheOldIdsStay) {
    AttachBrowser();
    EXPECT_EQ(S_OK, GetComponent("BOLTS", "M8"));
    for (const char* id : {"M12", "M14", "none", "it's", ""}) {
        SCOPED_TRACE(id);
        HRESULT result = E_FAIL;
        EXPECT_EQ(noGeometry, Told([&] { result = GetComponent("BOLTS", id); }));
        EXPECT_EQ(S_OK, result);
        EXPECT_EQ(Texts{defaultPage}, Opened());
        EXPECT_EQ("BOLTS M8", Ids());
    }
    EXPECT_EQ(noGeometry, Told([&] { EXPECT_EQ(S_OK, GetComponent("NONE", "M8")); }));
    EXPECT_EQ(noGeometry, Told([&] { EXPECT_EQ(S_OK, parts->GetComponent(nullptr, nullptr)); }));
    EXPECT_EQ("BOLTS M8", Ids());
}

TEST_F(Components, AFailureWithALogGoesThereAndEndsTheProcess) {
    const Ended ended = RunProgram("fail_with_log", "\"" + folder.Path() + "log\"");
    EXPECT_EQ(0xFFFFFFFFu, ended.exitCode);
    EXPECT_EQ("", ended.output);
    EXPECT_EQ(std::string(noGeometry) + "\n", folder.Read("log"));
}

TEST_F(Components, AFailureIsShownWithoutALogFileThoughTheSessionIsMarked) {
    EXPECT_EQ(S_OK, parts->put_DebugSessionStatusAndLogFile(Bstr(folder.Path() + "log", CP_ACP).Get()));
    CreateParts().Reset();  // the end of an object turns the log off
    long status = 0;
    EXPECT_EQ(S_OK, parts->get_DebugSessionStatus(&status));
    EXPECT_EQ(1, status);
    EXPECT_EQ(noGeometry, Told([&] { EXPECT_EQ(S_OK, GetComponent("BOLTS", "none")); }));
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA((folder.Path() + "log").c_str()));
}

/// The part that the object holds shows by the memory of its document, which is large and lies in no cache.
class ComponentNode : public HostedTest {
protected:
    void SetUp() override {
        HostedTest::SetUp();
        folder.Write("catalogs\\LARGE\\Catalog.xml",
                     "<Catalog><Part><ID>P</ID><Geometry>p.htm</Geometry></Part><Text>" +
                         std::string(textSize, 'x') + "</Text></Catalog>");
        folder.Write("catalogs\\LARGE\\p.htm", "");
        AttachBrowser();
        ShowControl();
        EXPECT_EQ(S_OK, GetComponent("LARGE", "P"));  // what is taken once and for all is taken
        Told([&] { EXPECT_EQ(S_OK, GetComponent("BOLTS", "none")); });
        without_ = MemoryWithoutCache();
        EXPECT_FALSE(IsHeld());
    }

    bool IsHeld() { return MemoryWithoutCache() - without_ > static_cast<long long>(textSize) / 2; }
    void Hold() {
        EXPECT_EQ(S_OK, GetComponent("LARGE", "P"));
        EXPECT_TRUE(IsHeld());
    }
    void LoadWizardPage() {
        HWND window = nullptr;
        parts.As<IOleWindow>()->GetWindow(&window);
        SendMessageA(window, WM_COMMAND, 3, 0);
    }

private:
    static constexpr std::size_t textSize = 6'000'000;

    static long long MemoryWithoutCache() {
        CreateParts().Reset();  // the end of an object empties the cache of documents
        return PrivateMemory();
    }

    long long without_ = 0;
};

TEST_F(ComponentNode, IsHeldByComponentsThatWereFoundAlone) {
    EXPECT_EQ(S_OK, Edit(objects.Edit(L"LARGE", L"P").Get(), 1));
    EXPECT_TRUE(IsHeld());
    Told([&] { EXPECT_EQ(S_OK, GetComponent("LARGE", "none")); });
    EXPECT_FALSE(IsHeld());
}

TEST_F(ComponentNode, StaysForAnEditedOneThatIsOnlyKeptOrRefused) {
    Hold();
    EXPECT_EQ(S_OK, Edit(objects.Edit(L"BOLTS", L"M8").Get(), 0));
    EXPECT_TRUE(IsHeld());
    EXPECT_EQ(E_INVALIDARG, Edit(objects.application.Get(), 1));
    EXPECT_TRUE(IsHeld());
}

TEST_F(ComponentNode, GoesWithTheEditedOne) {
    Hold();
    EXPECT_EQ(S_OK, Edit(nullptr, 0));
    EXPECT_FALSE(IsHeld());
}

TEST_F(ComponentNode, GoesIfTheEditedOneOrItsPageIsMissing) {
    Hold();
    Told([&] { EXPECT_EQ(E_FAIL, Edit(objects.Edit(L"LARGE", L"none").Get(), 1)); });
    EXPECT_FALSE(IsHeld());
    objects.Record().Fail(Call::Navigate, E_FAIL, 1);
    EXPECT_EQ(noMemory, Told([&] { EXPECT_EQ(E_FAIL, Edit(objects.Edit(L"LARGE", L"P").Get(), 1)); }));
    EXPECT_FALSE(IsHeld());
    folder.Remove("catalogs\\LARGE\\p.htm");
    EXPECT_EQ(noPage, Told([&] { EXPECT_EQ(E_FAIL, Edit(objects.Edit(L"LARGE", L"P").Get(), 1)); }));
    EXPECT_FALSE(IsHeld());
}

TEST_F(ComponentNode, OutlivesANavigationAndNotTheWizardPage) {
    Hold();
    EXPECT_EQ(S_OK, parts->Navigate(Bstr(defaultPage, CP_ACP).Get()));
    EXPECT_TRUE(IsHeld());
    LoadWizardPage();
    EXPECT_FALSE(IsHeld());
}

TEST_F(ComponentNode, OfAHostThatTakesOneMeanwhileGoesIfTheWizardPageFails) {
    const auto takeOneAt = [&](Call call) {
        objects.Record().whenCalled = [this, call](const auto& line) {
            if (line.call != call)
                return;
            objects.Record().whenCalled = nullptr;
            Hold();
        };
    };
    objects.Record().Fail(Call::Navigate, E_FAIL, 0);
    takeOneAt(Call::Navigate);
    EXPECT_EQ(noMemory, Told([&] { LoadWizardPage(); }));
    EXPECT_FALSE(IsHeld());

    EditOne();
    folder.Remove("data\\Wizard.htm");
    takeOneAt(Call::Close);
    EXPECT_EQ(std::string(noPage) + "|" + noMemory, Told([&] { LoadWizardPage(); }));
    EXPECT_FALSE(IsHeld());
}

}  // namespace
}  // namespace nux
