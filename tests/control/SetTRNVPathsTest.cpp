// SetTRNVPaths, the interface language, and the folder of a catalogue, which shows in where messages are
// found.

#include <gtest/gtest.h>

#include "control/nuxStdParts.h"
#include "environment/InstallationPaths.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Installation.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

constexpr char exactLanguage[] = "English_United_States";

class InstallationPaths : public InstallationTest {
protected:
    std::wstring Language() { return ReadText(parts, &InuxStdParts::GetInterfaceLanguage); }
    bool HasCatalogue(const ComPtr<InuxStdParts>& object, const wchar_t* id) {
        ComPtr<IDispatch> document;
        return object->GetComponentsDocument(Bstr(id).Get(), document.Receive()) == S_OK;
    }
};

TEST_F(InstallationPaths, EmptyAndNullPathsAreAccepted) {
    EXPECT_EQ(S_OK, SetPaths(parts, "", "", "", ""));
    EXPECT_EQ(S_OK, parts->SetTRNVPaths(nullptr, nullptr, nullptr, nullptr));
    EXPECT_FALSE(HasCatalogue(parts, L"BOLTS"));
    EXPECT_EQ(L"", Language());
}

TEST_F(InstallationPaths, ASecondCallReplacesThem) {
    folder.Write("catalogs\\BOLTS\\Catalog.xml", "<Catalog/>");
    folder.Write("other\\NUTS\\Catalog.xml", "<Catalog/>");
    EXPECT_TRUE(HasCatalogue(parts, L"BOLTS"));
    EXPECT_FALSE(HasCatalogue(parts, L"NUTS"));
    EXPECT_EQ(S_OK, SetPaths(parts, folder.Path() + "other\\", data, gui, custom));
    EXPECT_FALSE(HasCatalogue(parts, L"BOLTS"));
    EXPECT_TRUE(HasCatalogue(parts, L"NUTS"));
}

TEST_F(InstallationPaths, ASecondObjectReplacesWhatIsSharedAndLeavesTheFirstItsOwn) {
    folder.Write("catalogs\\BOLTS\\Catalog.xml", "<Catalog/>");
    folder.Write("second\\catalogs\\NUTS\\Catalog.xml", "<Catalog/>");
    folder.MakeFolder("second\\locale\\English");
    EXPECT_EQ(L"", Language());
    const ComPtr<InuxStdParts> second = CreateParts();
    const std::string root = folder.Path() + "second\\";
    EXPECT_EQ(S_OK, SetPaths(second, root + "catalogs\\", data, root + "gui\\", custom));

    EXPECT_EQ(L"English", Language()) << "the language is the process's";
    EXPECT_TRUE(HasCatalogue(parts, L"BOLTS"));
    EXPECT_FALSE(HasCatalogue(parts, L"NUTS"));
    EXPECT_TRUE(HasCatalogue(second, L"NUTS"));
    EXPECT_EQ(S_OK, UseInstallation());
    EXPECT_EQ(L"", ReadText(second, &InuxStdParts::GetInterfaceLanguage)) << "the last call wins";
}

TEST_F(InstallationPaths, AreKnownToTheLayersBelow) {
    // Not the registered module's object, whose process-wide paths can't be seen from here, but one of this
    // program's own.
    const auto own = MakeObject<nuxStdParts>();
    const ThreadLocale locale(russian);
    EXPECT_EQ(S_OK, own->SetTRNVPaths(Bstr(L"c\\").Get(), Bstr(L"\u0416\\").Get(), Bstr(L"g\\").Get(),
                                      Bstr(L"u\\").Get()));
    EXPECT_EQ("c\\", Installation().catalog);
    EXPECT_EQ("\xc6\\", Installation().data) << "in the code page of the thread";
    EXPECT_EQ("g\\", Installation().gui);
    EXPECT_EQ("u\\", Installation().customDims);
    EXPECT_EQ(S_OK, own->SetTRNVPaths(nullptr, nullptr, nullptr, nullptr));
    for (const std::string& path :
         {Installation().catalog, Installation().data, Installation().gui, Installation().customDims})
        EXPECT_EQ("", path);
}

TEST_F(InstallationPaths, AnEnvironmentThatDoesNotStartFailsWithThePathsSet) {
    folder.Write("other\\NUTS\\Catalog.xml", "<Catalog/>");
    folder.MakeFolder("locale\\English");
    using Function = int WINAPI(LCID, LCTYPE, LPSTR, int);
    Function* const fail = [](LCID, LCTYPE, LPSTR, int) WINAPI { return 0; };
    {
        const ImportPatch patch(LoadedModule(), "KERNEL32.dll", "GetLocaleInfoA",
                                reinterpret_cast<void*>(fail));
        ASSERT_TRUE(patch);
        EXPECT_EQ(E_FAIL, SetPaths(parts, folder.Path() + "other\\", data, gui, custom))
            << "the decimal separator can't be read";
    }
    EXPECT_TRUE(HasCatalogue(parts, L"NUTS"));
    EXPECT_EQ(L"English", Language());
    EXPECT_EQ(S_OK, UseInstallation());
}

TEST_F(InstallationPaths, APathWithoutItsClosingSeparatorIsNotMended) {
    folder.Write("catalogs\\BOLTS\\Catalog.xml", "<Catalog/>");
    folder.Write("catalogsNUTS\\Catalog.xml", "<Catalog/>");
    EXPECT_EQ(S_OK, SetPaths(parts, folder.Path() + "catalogs", data, gui, custom));
    EXPECT_FALSE(HasCatalogue(parts, L"BOLTS"));
    EXPECT_TRUE(HasCatalogue(parts, L"NUTS"));
}

TEST_F(InstallationPaths, TheLanguageIsTheExactFolderThenTheShortOneThenNone) {
    EXPECT_EQ(L"", Language());
    folder.MakeFolder("locale\\English");
    UseInstallation();
    EXPECT_EQ(L"English", Language());
    folder.MakeFolder(std::string("locale\\") + exactLanguage);
    UseInstallation();
    EXPECT_EQ(L"English_United_States", Language());
    EXPECT_EQ(E_FAIL, parts->GetInterfaceLanguage(nullptr));
    BSTR text = SysAllocString(L"replaced");
    EXPECT_EQ(S_OK, parts->GetInterfaceLanguage(&text));
    EXPECT_EQ(L"English_United_States", Take(text));
}

TEST_F(InstallationPaths, AMessageIsTranslatedOrGivenBack) {
    WriteMessage("locale\\English\\TRANSLATED_Msgs.xml", "Bolt", "A bolt");
    EXPECT_EQ(L"Bolt", Localized(L"TRANSLATED", L"Bolt")) << "no language yet";
    UseInstallation();
    EXPECT_EQ(L"A bolt", Localized(L"TRANSLATED", L"Bolt"));
    EXPECT_EQ(L"bolt", Localized(L"TRANSLATED", L"bolt")) << "case counts";
    EXPECT_EQ(L"Nut", Localized(L"TRANSLATED", L"Nut"));
    EXPECT_EQ(L"", Localized(L"TRANSLATED", L""));
    EXPECT_EQ(L"Bolt", Localized(L"NOSUCHCATALOGUE", L"Bolt"));
    EXPECT_EQ(E_FAIL, parts->GetLocalizedString(Bstr(L"TRANSLATED").Get(), Bstr(L"Bolt").Get(), nullptr));
    BSTR text = nullptr;
    EXPECT_EQ(S_OK, parts->GetLocalizedString(nullptr, nullptr, &text));
    EXPECT_EQ(L"", Take(text));
}

// Each case asks for a catalogue of its own, since a message table once looked for stays.
class FolderOfACatalogue : public InstallationTest {
protected:
    void SetUp() override {
        InstallationTest::SetUp();
        folder.MakeFolder("locale\\English");
        app->folders[L""] = L"";
        side->application = ComPtr<IDispatch>(app.Get());
    }

    /// Whether the messages of a catalogue are found below the folder that the host tells, or below the root.
    std::wstring FoundFor(const std::string& id) {
        WriteMessage("catalogs\\locale\\English\\" + id + "_Msgs.xml", "Where", "in the root");
        WriteMessage("host\\" + id + "\\locale\\English\\" + id + "_Msgs.xml", "Where", "with the host");
        const std::wstring wide = Widen(id);
        app->folders[wide] = Widen(folder.Path() + "host\\" + id + "\\");
        UseInstallation();
        return Localized(wide, L"Where");
    }

    ComPtr<ComObject<HostApplication>> app = MakeObject<HostApplication>();
    ComPtr<ComObject<Host3D>> side = MakeObject<Host3D>();
};

TEST_F(FolderOfACatalogue, IsTheRootWithoutAHost) {
    EXPECT_EQ(L"in the root", FoundFor("NOHOST"));
}

TEST_F(FolderOfACatalogue, IsTheRootWithAForeignHost) {
    parts->put_nux3D(MakeObject<NamedProperties>().Get());
    EXPECT_EQ(L"in the root", FoundFor("FOREIGN"));
}

TEST_F(FolderOfACatalogue, IsWhatTheHostSays) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    EXPECT_EQ(L"with the host", FoundFor("HOSTS"));
    EXPECT_EQ((std::vector<std::wstring>{L"HOSTS"}), app->asked);
    EXPECT_EQ(2048u, app->lcid);
    EXPECT_EQ(DISPATCH_METHOD, app->flags);
}

TEST_F(FolderOfACatalogue, IsNotAskedOfAHostThatCameAfterThePaths) {
    UseInstallation();
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    app->folders[L"LATE"] = Widen(folder.Path() + "host\\");
    WriteMessage("catalogs\\locale\\English\\LATE_Msgs.xml", "Where", "in the root");
    WriteMessage("host\\locale\\English\\LATE_Msgs.xml", "Where", "with the host");
    EXPECT_EQ(L"in the root", Localized(L"LATE", L"Where"));
    EXPECT_TRUE(app->asked.empty());
}

TEST_F(FolderOfACatalogue, IsNoLongerAskedOfAHostThatWasTakenAway) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    UseInstallation();
    EXPECT_EQ(S_OK, parts->put_nux3D(nullptr));
    EXPECT_EQ(1u, References(static_cast<Inux3D*>(side.Get()))) << "the layers below hold no reference";
    WriteMessage("catalogs\\locale\\English\\GONE_Msgs.xml", "Where", "in the root");
    EXPECT_EQ(L"in the root", Localized(L"GONE", L"Where")) << "and do not ask a host that may be gone";
}

TEST_F(FolderOfACatalogue, IsTheRootOnceTheObjectThatSetThePathsLastHasGone) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    UseInstallation();
    ComPtr<InuxStdParts> later = CreateParts();
    EXPECT_EQ(S_OK, SetPaths(later, catalogs, data, gui, custom));
    later.Reset();
    app->folders[L"ORPHANED"] = Widen(folder.Path() + "host\\");
    WriteMessage("catalogs\\locale\\English\\ORPHANED_Msgs.xml", "Where", "in the root");
    WriteMessage("host\\locale\\English\\ORPHANED_Msgs.xml", "Where", "with the host");
    EXPECT_EQ(L"in the root", Localized(L"ORPHANED", L"Where")) << "the paths are the later one's";
    EXPECT_TRUE(app->asked.empty());
}

TEST_F(FolderOfACatalogue, StaysTheRootForAHostThatIsTakenAwayAndGivenAgain) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    UseInstallation();
    parts->put_nux3D(nullptr);
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    WriteMessage("catalogs\\locale\\English\\AGAIN_Msgs.xml", "Where", "in the root");
    EXPECT_EQ(L"in the root", Localized(L"AGAIN", L"Where")) << "only the paths make a host count";
    EXPECT_TRUE(app->asked.empty());
}

TEST_F(FolderOfACatalogue, IsTheRootIfTheApplicationCannotBeHad) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    side->applicationResult = E_ACCESSDENIED;
    EXPECT_EQ(L"in the root", FoundFor("APPFAILS"));
    side->applicationResult = S_OK;
    side->application.Reset();
    EXPECT_EQ(L"in the root", FoundFor("APPNULL"));
}

TEST_F(FolderOfACatalogue, IsTheRootIfTheAnswerIsNoText) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    app->otherAnswer.vt = VT_I4;
    app->otherAnswer.lVal = 5;
    EXPECT_EQ(L"in the root", FoundFor("NUMBER"));
}

TEST_F(FolderOfACatalogue, IsTheRootIfTheCallDoesNotGiveOk) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    app->result = DISP_E_MEMBERNOTFOUND;
    EXPECT_EQ(L"in the root", FoundFor("CALLFAILS"));
    app->result = S_FALSE;
    EXPECT_EQ(L"in the root", FoundFor("CALLFALSE"));
}

}  // namespace
}  // namespace nux
