// The dialogs for names of files and folders, driven as a user does.

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>
#include <gtest/gtest.h>
#include <shlobj.h>

#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/Waiting.h"
#include "tests/control/FileDialogs.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

using driver::User;
using host::Call;

TEST_F(FileDialogs, TheNameOfAFileIsGiven) {
    const std::string wanted = work +
                               "Gr\xf6\xdf"
                               "e 1.txt";
    const Given given = Ask(L"Where to?", L"Texts|*.txt", "", L"txt", [&](User&, HWND dialog) {
        EXPECT_EQ("Where to?", driver::TextOf(dialog));
        EXPECT_EQ("", driver::ControlText(NameField(dialog)));
        Save(dialog, wanted);
    });
    EXPECT_EQ(wanted, given.text);
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(wanted.c_str())) << "nothing is made";
}

TEST_F(FileDialogs, CancelGivesAnEmptyText) {
    const Given given =
        Ask(L"t", L"Texts|*.txt", work + "a.txt", L"txt", [](User&, HWND dialog) { Cancel(dialog); });
    EXPECT_FALSE(given.isNull);
    EXPECT_EQ("", given.text);
}

TEST_F(FileDialogs, TheGivenNameStandsThereFirst) {
    const Given given = Ask(L"t", L"", work + "first.txt", L"txt", [](User&, HWND dialog) {
        EXPECT_EQ("first.txt", driver::ControlText(NameField(dialog)));
        driver::Click(driver::Item(dialog, IDOK));
    });
    EXPECT_EQ(work + "first.txt", given.text);
    Ask(L"t", L"", "", L"txt", [](User&, HWND dialog) {
        EXPECT_EQ("", driver::ControlText(NameField(dialog))) << "nothing is kept from the call before";
        Cancel(dialog);
    });
}

TEST_F(FileDialogs, ANameWithoutAnExtensionGetsTheGivenOne) {
    const auto save = [&](const std::wstring& extension, const std::string& name) {
        return Ask(L"t", L"All|*.*", "", extension, [&](User&, HWND dialog) { Save(dialog, work + name); })
            .text;
    };
    EXPECT_EQ(work + "bare.igs", save(L"igs", "bare"));
    EXPECT_EQ(work + "other.txt", save(L"igs", "other.txt"));
    EXPECT_EQ(work + "bare", save(L"", "bare"));
}

TEST_F(FileDialogs, EachPairOfTheFilterIsALineOfTheList) {
    const auto lines = [&](const std::wstring& filter) {
        std::vector<std::string> entries;
        Ask(L"t", filter, "", L"", [&](User&, HWND dialog) {
            entries = driver::Entries(driver::Item(dialog, cmb1));
            Cancel(dialog);
        });
        return entries;
    };
    EXPECT_EQ((Texts{"IGES", "Texts and pages", "All"}),
              lines(L"IGES|*.igs|Texts and pages|*.txt;*.htm|All|*.*"));
    EXPECT_EQ(Texts{"IGES"}, lines(L"IGES|*.igs|"));
    EXPECT_EQ(Texts{}, lines(L""));
}

TEST_F(FileDialogs, AFileThatExistsIsReplacedOnlyIfTheUserSaysSo) {
    folder.Write("work\\old.txt", "old");
    const Given given = Ask(L"t", L"", "", L"", [&](User& user, HWND dialog) {
        Save(dialog, work + "old.txt");
        HWND question = driver::WaitFor("a question", [&] {
            const HWND window = user.Dialog(nullptr);
            return window != dialog ? window : nullptr;
        });
        driver::Click(driver::Item(question, IDNO));
        driver::WaitUntilGone(question);
        EXPECT_TRUE(IsWindowVisible(dialog));
        Save(dialog, work + "old.txt");
        question = driver::WaitFor("a question", [&] {
            const HWND window = user.Dialog(nullptr);
            return window != dialog ? window : nullptr;
        });
        driver::Click(driver::Item(question, IDYES));
    });
    EXPECT_EQ(work + "old.txt", given.text);
    EXPECT_EQ("old", folder.Read("work\\old.txt"));
}

TEST_F(FileDialogs, TheirParentIsTheControlsWindow) {
    const HWND window = ShowControl();
    Ask(L"t", L"", "", L"", [&](User&, HWND dialog) {
        EXPECT_EQ(GetAncestor(window, GA_ROOT), GetAncestor(GetWindow(dialog, GW_OWNER), GA_ROOT));
        Cancel(dialog);
    });
}

TEST_F(FileDialogs, AskThePlatformAsTold) {
    const ImportPatch patch(LoadedModule(), "COMDLG32.dll", "GetSaveFileNameA",
                            reinterpret_cast<void*>(Describe));
    ASSERT_TRUE(patch);
    Bstr path;
    EXPECT_EQ(S_OK, parts->GetSaveFileName(Bstr(L"t").Get(), Bstr(L"A|*.a|B|*.b").Get(), nullptr, nullptr,
                                           path.Receive()));
    EXPECT_EQ(0x8806u | OFN_EXPLORER | OFN_ENABLESIZING | OFN_ENABLEHOOK, described.plain.Flags);
    EXPECT_EQ(std::string("A\0*.a\0B\0*.b\0\0", 13), described.filter);
    EXPECT_EQ(MAX_PATH, static_cast<int>(described.plain.nMaxFile));
    EXPECT_EQ(nullptr, described.plain.hwndOwner) << "the control has no window";
    EXPECT_TRUE(described.plain.lpfnHook);
    path.Receive();
    EXPECT_EQ(S_OK, parts->GetSaveFileName(nullptr, nullptr, nullptr, nullptr, path.Receive()));
    EXPECT_EQ(std::string(2, '\0'), described.filter);
    EXPECT_TRUE(path);
    EXPECT_EQ(S_OK, parts->GetSaveFileName(nullptr, nullptr, Bstr(std::wstring(1000, L'n')).Get(), nullptr,
                                           path.Receive()))
        << "a name that is too long for the dialog is cut";
    EXPECT_EQ(E_FAIL, parts->GetSaveFileName(nullptr, nullptr, nullptr, nullptr, nullptr));
}

/// An application that writes down how it is called.
class AskedApplication : public HostDispatch {
public:
    std::string asked;

    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT*,
                        EXCEPINFO*, UINT*) override {
        asked += std::to_string(id) + " " + std::to_string(locale) + " " + std::to_string(flags) + " " +
                 std::to_string(parameters->cArgs) + (iid == GUID_NULL ? ";" : " iid;");
        return E_FAIL;
    }
};

TEST_F(FileDialogs, AnExportAsksTheApplicationByNumber) {
    const auto application = MakeObject<AskedApplication>();
    const auto side = MakeObject<Host3D>();
    side->application = ComPtr<IDispatch>(application.Get());
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    Bstr path;
    EXPECT_EQ(E_FAIL, parts->TRNVExportDlg(1, path.Receive()));
    EXPECT_EQ("9 2048 1 0;", application->asked) << "a method without arguments in the system's locale";
    parts->put_nux3D(nullptr);
    side->application.Reset();
    EXPECT_EQ(1u, References(static_cast<IDispatch*>(application.Get())));
}

TEST_F(FileDialogs, AnExportNeedsTheHostsMainObject) {
    const auto expectFailure = [&](const char* what) {
        for (const long singleFile : {0L, 1L}) {
            BSTR path = reinterpret_cast<BSTR>(1);  // an out argument, which is not looked at
            WithUser([&] { EXPECT_EQ(E_FAIL, parts->TRNVExportDlg(singleFile, &path)) << what; },
                     [](User&) {});
            EXPECT_EQ(nullptr, path) << what;
        }
    };
    objects.Record().Fail(Call::GetApplication, E_ACCESSDENIED, 0);
    expectFailure("a 3D side that fails");
    objects.Record().Restore();
    Variant null;
    null.SetObject(nullptr);
    objects.Record().Answer(Call::GetApplication, std::move(null));
    expectFailure("no application");
    objects.Record().Restore();
    objects.Record().Fail(Call::MainObject, E_ACCESSDENIED, 0);
    expectFailure("an application that fails");
    objects.Record().Restore();
    Variant number;
    number.SetNumber(5);
    objects.Record().Answer(Call::MainObject, std::move(number));
    expectFailure("an application that answers a number");
    Variant nothing;
    nothing.SetObject(nullptr);
    objects.Record().Answer(Call::MainObject, std::move(nothing));
    expectFailure("an application that answers null");
    objects.Record().Restore();
    parts->put_nux3D(objects.application.Get());
    expectFailure("a foreign object");
    parts->put_nux3D(nullptr);
    expectFailure("no 3D side");
    EXPECT_EQ(E_INVALIDARG, parts->TRNVExportDlg(1, nullptr));
}

std::function<void()> whileOpen;

BOOL WINAPI CancelFile(OPENFILENAMEA*) {
    whileOpen();
    return FALSE;
}

PIDLIST_ABSOLUTE WINAPI CancelFolder(BROWSEINFOA*) {
    whileOpen();
    return nullptr;
}

TEST_F(FileDialogs, MayLetGoOfTheObjectWhileTheyAreOpen) {
    const ImportPatch files(LoadedModule(), "COMDLG32.dll", "GetSaveFileNameA",
                            reinterpret_cast<void*>(CancelFile));
    const ImportPatch folders(LoadedModule(), "SHELL32.dll", "SHBrowseForFolderA",
                              reinterpret_cast<void*>(CancelFolder));
    ASSERT_TRUE(files && folders);
    whileOpen = [&] {
        parts.Reset();
        EXPECT_EQ(2u, References(static_cast<Inux3D*>(objects.side3D.Get()))) << "the call goes on in it";
        EXPECT_EQ(S_FALSE, ModuleCanUnload());
    };
    const std::function<HRESULT(InuxStdParts*, BSTR*)> calls[] = {
        [](InuxStdParts* last, BSTR* path) {
            return last->GetSaveFileName(nullptr, nullptr, nullptr, nullptr, path);
        },
        [](InuxStdParts* last, BSTR* path) { return last->TRNVExportDlg(1, path); },
        [](InuxStdParts* last, BSTR* path) { return last->TRNVExportDlg(0, path); }};
    for (const auto& call : calls) {
        parts = CreateParts();
        parts->put_nux3D(objects.side3D.Get());
        Bstr path;
        EXPECT_EQ(S_OK, call(parts.Get(), path.Receive()));
        EXPECT_TRUE(path);
        EXPECT_EQ(1u, References(static_cast<Inux3D*>(objects.side3D.Get())));
        EXPECT_EQ(S_OK, ModuleCanUnload());
    }
    whileOpen = nullptr;
}

}  // namespace
}  // namespace nux
