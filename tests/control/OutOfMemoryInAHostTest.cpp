// No exception leaves the component while it works with a host. Each allocation that an operation makes is
// made to fail in turn: the operation returns a code, and works when it is called again.

#include <windows.h>

#include <commdlg.h>
#include <gtest/gtest.h>
#include <shellapi.h>
#include <shlobj.h>

#include "environment/Registry.h"
#include "tests/control/AllocationFailure.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Installation.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

using host::Call;

int WINAPI PressOk(HWND, const char*, const char*, UINT) {
    return IDOK;
}

INT_PTR answerOfShell = 33;  ///< to a file that is to be opened

HINSTANCE WINAPI StartNothing(HWND, const char* verb, const char*, const char*, const char*, int) {
    return reinterpret_cast<HINSTANCE>(verb ? answerOfShell : 33);
}

UINT WINAPI RunNothing(const char*, UINT) {
    return 33;
}

BOOL WINAPI ChooseFile(OPENFILENAMEA* description) {
    lstrcpyA(description->lpstrFile, "C:\\a folder of some length\\chosen.txt");
    return TRUE;
}

PIDLIST_ABSOLUTE WINAPI ChooseFolder(BROWSEINFOA*) {
    PIDLIST_ABSOLUTE folder = nullptr;
    SHGetSpecialFolderLocation(nullptr, CSIDL_WINDOWS, &folder);
    return folder;
}

/// Whatever the user is asked is answered at once.
class AllocationFailureInAHost : public AllocationFailure {
protected:
    void SetUp() override {
        AllocationFailure::SetUp();
        parts->put_nux3D(objects.side3D.Get());
        ASSERT_EQ(S_OK, UseInstallation());
        for (const ImportPatch* patch : {&boxes_, &shell_, &files_, &folders_})
            ASSERT_TRUE(*patch);
    }

    /// The address that the browser was sent to last; empty for none.
    std::string LastOpened() {
        const Texts addresses = Opened();
        return addresses.empty() ? std::string() : addresses.back();
    }
    /// The code of an operation that fails in any case, whose text may be missing.
    static HRESULT Expected(HRESULT result) { return result == E_FAIL ? S_OK : result; }

private:
    const ImportPatch boxes_{module.Handle(), "USER32.dll", "MessageBoxA", reinterpret_cast<void*>(PressOk)};
    const ImportPatch shell_{module.Handle(), "SHELL32.dll", "ShellExecuteA",
                             reinterpret_cast<void*>(StartNothing)};
    const ImportPatch files_{module.Handle(), "COMDLG32.dll", "GetSaveFileNameA",
                             reinterpret_cast<void*>(ChooseFile)};
    const ImportPatch folders_{module.Handle(), "SHELL32.dll", "SHBrowseForFolderA",
                               reinterpret_cast<void*>(ChooseFolder)};
};

TEST_F(AllocationFailureInAHost, IsReportedByTheBrowser) {
    FailEach("AttachBrowser", [&] { return Attach(objects.browser.Get()); });
    const Bstr url(defaultPage, CP_ACP);
    const Bstr missing(defaultPage + ".missing", CP_ACP);
    EXPECT_GT(FailEach("Navigate", [&] { return parts->Navigate(url.Get()); }), 0);
    EXPECT_GT(FailEach("Navigate to nothing", [&] { return parts->Navigate(missing.Get()); }), 1);
    EXPECT_GT(FailEach(
                  "the default page", [&] { return Edit(nullptr, 0); },
                  [&] { EXPECT_EQ(defaultPage, LastOpened()); }),
              1);
    FailEach("put_StatusBar", [&] { return parts->put_StatusBar(objects.statusBar.Get()); });
    EXPECT_GT(FailEach("SetStatusMessage", [&] { return parts->SetStatusMessage(url.Get()); }), 0);
    FailEach("UpdateProgressBar", [&] { return parts->UpdateProgressBar(1); });
    FailEach("CreateProgressBar", [&] { return parts->CreateProgressBar(); });
    FailEach("DestroyProgressBar", [&] { return parts->DestroyProgressBar(); });
    folder.Remove("data\\Tarnvale.htm");
    EXPECT_GT(FailEach("the default page, missing", [&] { return Edit(nullptr, 0); }), 2);
    folder.Write("data\\Tarnvale.htm", "");
    objects.Record().Fail(Call::Navigate, E_FAIL, 0);
    EXPECT_GT(FailEach("the default page, in a browser that fails", [&] { return Edit(nullptr, 0); }), 2);
    objects.Record().Restore();
    failureIsSilent = true;
    EXPECT_GT(FailEach("a foreign browser",
                       [&] {
                           const HRESULT result = Attach(objects.application.Get());
                           return result == E_NOINTERFACE ? S_OK : result;
                       }),
              0);
    FailEach("a foreign status bar",
             [&] { return Expected(parts->put_StatusBar(objects.application.Get())); });
}

TEST_F(AllocationFailureInAHost, IsReportedByTheCommands) {
    const HWND window = ShowControl();
    AttachBrowser();
    failureIsSilent = true;  // whoever sends a command learns nothing of it
    const auto opened = [&] { EXPECT_EQ(wizardPage, LastOpened()); };
    EXPECT_GT(FailEach(
                  "LoadWizardPage",
                  [&] {
                      SendMessageA(window, WM_COMMAND, 3, 0);
                      return S_OK;
                  },
                  opened),
              1);
    for (const WPARAM command : {2, 4}) {
        FailEach("a command to the page or the 3D side", [&] {
            SendMessageA(window, WM_COMMAND, command, 0);
            return S_OK;
        });
    }
    objects.Record().Fail(Call::Navigate, E_FAIL, 0);
    EXPECT_GT(FailEach("LoadWizardPage, in a browser that fails",
                       [&] {
                           SendMessageA(window, WM_COMMAND, 3, 0);
                           return S_OK;
                       }),
              2);
    objects.Record().Restore();
    folder.Remove("data\\Wizard.htm");
    EXPECT_GT(FailEach(
                  "LoadWizardPage, missing",
                  [&] {
                      SendMessageA(window, WM_COMMAND, 3, 0);
                      return S_OK;
                  },
                  [&] { EXPECT_EQ(defaultPage, LastOpened()); }),
              2);
}

TEST_F(AllocationFailureInAHost, IsReportedByTheComponents) {
    AttachBrowser();
    const auto component = objects.Edit(L"BOLTS", L"M8");
    const auto without = objects.Edit(L"BOLTS", L"M12");
    const auto empty = [&] {
        CreateParts().Reset();  // the end of an object empties the cache of documents
        Edit(nullptr, 0);
        objects.Record().ClearLines();
    };
    FailEach("SetEditedComponent, kept only", [&] { return Edit(component.Get(), 0); });
    EXPECT_GT(FailEach(
                  "SetEditedComponent", empty, [&] { return Edit(component.Get(), 1); },
                  [&] {
                      EXPECT_TRUE(Edited());
                      EXPECT_EQ(componentPage, LastOpened());
                  }),
              5);
    BSTR text = nullptr;
    EXPECT_GT(FailEach("get_CatalogID", [&] { return parts->get_CatalogID(&text); }), 0);
    EXPECT_GT(FailEach("get_ComponentID", [&] { return parts->get_ComponentID(&text); }), 0);
    SysFreeString(text);
    failureIsSilent =
        true;  // a catalogue that can't be made is one that is missing, which is told to the user
    EXPECT_GT(FailEach(
                  "GetComponent", empty, [&] { return GetComponent("BOLTS", "M8"); },
                  [&] { EXPECT_EQ("BOLTS M8", Ids()); }),
              5);
    EXPECT_GT(FailEach(
                  "GetComponent, missing", empty, [&] { return GetComponent("BOLTS", "none"); },
                  [&] { EXPECT_EQ(defaultPage, LastOpened()); }),
              5);
    EXPECT_GT(
        FailEach(
            "SetEditedComponent, without a geometry", empty, [&] { return Expected(Edit(without.Get(), 1)); },
            [&] { EXPECT_EQ(defaultPage, LastOpened()); }),
        5);
    const auto missing = objects.Edit(L"BOLTS", L"none");
    const auto withoutPage = objects.Edit(L"BOLTS", L"M10");
    for (const auto& [name, edited] : {std::pair("SetEditedComponent, without a part", missing.Get()),
                                       std::pair("SetEditedComponent, without a page", withoutPage.Get())}) {
        EXPECT_GT(FailEach(
                      name, empty, [&] { return Expected(Edit(edited, 1)); },
                      [&] {
                          EXPECT_FALSE(Edited());
                          EXPECT_EQ(defaultPage, Opened().back());
                      }),
                  5);
    }
    objects.Record().Fail(Call::Navigate, E_FAIL, 0);
    EXPECT_GT(FailEach(
                  "SetEditedComponent, in a browser that fails", empty,
                  [&] { return Expected(Edit(component.Get(), 1)); }, [&] { EXPECT_FALSE(Edited()); }),
              5);
    objects.Record().Restore();
    EXPECT_GT(FailEach("SetEditedComponent, a foreign object",
                       [&] {
                           const HRESULT result = Edit(objects.application.Get(), 1);
                           return result == E_INVALIDARG ? S_OK : result;
                       }),
              0);
}

TEST_F(AllocationFailureInAHost, OfAComponentLeavesNothingHalf) {
    const char* const longIds[] = {"a catalogue with a name that is long",
                                   "an ID that is too long for a small string"};
    folder.Write(std::string("catalogs\\") + longIds[0] + "\\Catalog.xml",
                 std::string("<c><Part><ID>") + longIds[1] + "</ID><Geometry>g</Geometry></Part></c>");
    for (long number = 1;; ++number) {
        SCOPED_TRACE(number);
        ASSERT_EQ(S_OK, GetComponent("BOLTS", "M8"));
        const auto edited = objects.Edit(Widen(longIds[0]), Widen(longIds[1]));
        failing.Arm(number);
        const HRESULT edit = Edit(edited.Get(), 1);
        failing.Disarm();
        EXPECT_EQ(SUCCEEDED(edit), static_cast<bool>(Edited()));
        failing.Arm(number);
        const HRESULT get = GetComponent(longIds[0], longIds[1]);
        if (failing.Disarm() < number)
            break;
        const std::string wanted = std::string(longIds[0]) + " " + longIds[1];
        EXPECT_TRUE(Ids() == "BOLTS M8" || (SUCCEEDED(get) && Ids() == wanted)) << Ids();
    }
}

TEST_F(AllocationFailureInAHost, IsReportedByTheDialogs) {
    const Bstr file(folder.Path() + "file.nuxtest", CP_ACP);
    const Bstr filter(L"A description of some length|*.txt|All|*.*");
    EXPECT_GT(FailEach("ExecuteFileInShell", [&] { return parts->ExecuteFileInShell(file.Get()); }), 0);
    answerOfShell = SE_ERR_NOASSOC;
    EXPECT_GT(FailEach("ExecuteFileInShell, a file of no application",
                       [&] { return Expected(parts->ExecuteFileInShell(file.Get())); }),
              1);
    answerOfShell = 33;
    {
        const ImportPatch run(module.Handle(), "KERNEL32.dll", "WinExec",
                              reinterpret_cast<void*>(RunNothing));
        ASSERT_TRUE(run);
        CRegistry(HKEY_CLASSES_ROOT).SetStringValue(".nuxtest", "", "nuxtest.file of some length");
        CRegistry(HKEY_CLASSES_ROOT)
            .SetStringValue("nuxtest.file of some length\\shell\\open\\command", "",
                            "\"C:\\a folder of some length\\IEXPLORE.EXE\" %1");
        EXPECT_GT(FailEach("ExecuteFileInShell, in the browser",
                           [&] { return parts->ExecuteFileInShell(file.Get()); }),
                  5);
        CRegistry(HKEY_CLASSES_ROOT).Delete(".nuxtest", nullptr);
        CRegistry(HKEY_CLASSES_ROOT).Delete("nuxtest.file of some length", nullptr);
    }
    BSTR path = nullptr;
    EXPECT_GT(FailEach(
                  "GetSaveFileName",
                  [&] {
                      return parts->GetSaveFileName(filter.Get(), filter.Get(), file.Get(), filter.Get(),
                                                    &path);
                  },
                  [&] { EXPECT_STREQ(L"C:\\a folder of some length\\chosen.txt", path); }),
              3);
    SysFreeString(path);
    path = nullptr;
    for (const long singleFile : {1L, 0L}) {
        EXPECT_GT(FailEach(
                      "TRNVExportDlg",
                      [&] {
                          SysFreeString(path);
                          return parts->TRNVExportDlg(singleFile, &path);
                      },
                      [&] {
                          EXPECT_STREQ(singleFile ? L"C:\\a folder of some length\\chosen.txt"
                                                  : L"C:\\windows\\Moldbase",
                                       path);
                      }),
                  2);
    }
    SysFreeString(path);
}

}  // namespace
}  // namespace nux
