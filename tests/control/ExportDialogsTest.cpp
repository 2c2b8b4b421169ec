// The dialogs for the target of an export, driven as a user does.

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>
#include <gtest/gtest.h>
#include <shlobj.h>

#include <cstring>

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

/// What the platform does with a path that is too long for the caller.
BOOL WINAPI FailForALongPath(OPENFILENAMEA* description) {
    described.texts = description->lpstrFile;
    const WORD needed = 300;
    std::memcpy(description->lpstrFile, &needed, sizeof needed);
    return FALSE;
}

/// The dialogs of exports stay as long as the module: each of these tests has it loaded anew.
class Exports : public FileDialogs {
protected:
    void SetUp() override {
        UnloadModule();
        FileDialogs::SetUp();
        folder.MakeFolder("locale\\English");
        folder.Write(
            "locale\\English\\COMMON_Msgs.xml",
            "<Messages><MsgID>Choose a file to export the moldbase to</MsgID><Text>Which file?</Text>"
            "<MsgID>Choose a folder to export the moldbase to</MsgID><Text>Which folder?</Text></Messages>");
        ASSERT_EQ(S_OK, UseInstallation());
        parent = CreateWindowExA(0, "STATIC", "main", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 200, 100,
                                 nullptr, nullptr, nullptr, nullptr);
        objects.external->SetMainWindow(parent);
    }

    void TearDown() override {
        FileDialogs::TearDown();
        DestroyWindow(parent);
    }

    /// Another object, whose host has another main window or none.
    void TakeAnotherObject() {
        objects.external->SetMainWindow(nullptr);
        parts = CreateParts();
        parts->put_nux3D(objects.side3D.Get());
        ASSERT_EQ(S_OK, UseInstallation());
    }

    HWND parent = nullptr;
};

TEST_F(Exports, AskForAFileWithTheLastOneShown) {
    Given given = Export(1, [&](User&, HWND dialog) {
        EXPECT_EQ("Which file?", driver::TextOf(dialog));
        EXPECT_EQ("moldbase.igs", driver::ControlText(NameField(dialog)));
        EXPECT_EQ(Texts{"IGES"}, driver::Entries(driver::Item(dialog, cmb1)));
        EXPECT_EQ(parent, GetWindow(dialog, GW_OWNER));
        Save(dialog, work + "chosen");
    });
    EXPECT_EQ(work + "chosen.igs", given.text);
    given = Export(-1, [&](User&, HWND dialog) {
        EXPECT_EQ("chosen.igs", driver::ControlText(NameField(dialog)));
        Cancel(dialog);
    });
    EXPECT_FALSE(given.isNull);
    EXPECT_EQ("", given.text);

    TakeAnotherObject();
    given = Export(1, [&](User&, HWND dialog) {
        EXPECT_EQ(parent, GetWindow(dialog, GW_OWNER)) << "the one of the first time";
        driver::Click(driver::Item(dialog, IDOK));
    });
    EXPECT_EQ(work + "chosen.igs", given.text) << "the one that stood there";
}

TEST_F(Exports, TheMainWindowIsAskedForOnlyOnce) {
    for (int i = 0; i < 2; ++i)
        Export(1, [&](User&, HWND dialog) { Cancel(dialog); });
    EXPECT_EQ(Texts{"MainWindowHWND"}, Asked({Call::MainWindowHWND}));
    TakeAnotherObject();
    objects.external->SetMainWindow(parent);
    EXPECT_EQ(S_OK, parts->SetExternalDispatch(objects.external.Get()));
    objects.Record().ClearLines();
    Export(1, [&](User&, HWND dialog) { Cancel(dialog); });
    EXPECT_TRUE(Asked({Call::MainWindowHWND}).empty()) << "it is known by the external dispatch";
}

TEST_F(Exports, AMainWindowThatCannotBeReadIsNoFailure) {
    objects.Record().Fail(Call::MainWindowHWND, E_FAIL, 0);
    Export(1, [&](User&, HWND dialog) {
        EXPECT_EQ(nullptr, GetWindow(dialog, GW_OWNER));
        Cancel(dialog);
    });
}

TEST_F(Exports, AWindowThatIsNoWholeNumberIsNone) {
    Variant text;
    text.SetText(Bstr(L"5"));
    objects.Record().Answer(Call::MainWindowHWND, std::move(text));
    Export(1, [&](User&, HWND dialog) {
        EXPECT_EQ(nullptr, GetWindow(dialog, GW_OWNER));
        Cancel(dialog);
    });
    EXPECT_EQ(Texts{"MainWindowHWND"}, Asked({Call::MainWindowHWND}));
    objects.Record().Restore();
    Export(1, [&](User&, HWND dialog) {
        EXPECT_EQ(nullptr, GetWindow(dialog, GW_OWNER)) << "as at the first time";
        Cancel(dialog);
    });
    EXPECT_EQ(Texts{"MainWindowHWND"}, Asked({Call::MainWindowHWND})) << "it is asked for until it is known";
    Export(0, [&](User&, HWND dialog) {
        EXPECT_EQ(parent, GetWindow(dialog, GW_OWNER)) << "each dialog has a first time of its own";
        Cancel(dialog);
    });
}

TEST_F(Exports, AskThePlatformForAFileAsTold) {
    const ImportPatch patch(LoadedModule(), "COMDLG32.dll", "GetSaveFileNameA",
                            reinterpret_cast<void*>(Describe));
    ASSERT_TRUE(patch);
    for (int i = 0; i < 2; ++i) {
        Bstr path;
        EXPECT_EQ(S_OK, parts->TRNVExportDlg(1, path.Receive()));
        EXPECT_EQ(0x8806u | OFN_EXPLORER | OFN_ENABLESIZING | OFN_ENABLEHOOK, described.plain.Flags);
        EXPECT_EQ(std::string("IGES\0*.igs\0\0", 12), described.filter);
        EXPECT_EQ("Which file?|moldbase.igs|igs", described.texts);
        EXPECT_EQ(MAX_PATH, static_cast<int>(described.plain.nMaxFile));
    }
}

TEST_F(Exports, APathThatIsTooLongLeavesTheNameAsItWas) {
    const ImportPatch patch(LoadedModule(), "COMDLG32.dll", "GetSaveFileNameA",
                            reinterpret_cast<void*>(FailForALongPath));
    ASSERT_TRUE(patch);
    for (int i = 0; i < 2; ++i) {
        Bstr path;
        EXPECT_EQ(S_OK, parts->TRNVExportDlg(1, path.Receive()));
        EXPECT_EQ(L"", path.View());
        EXPECT_EQ("moldbase.igs", described.texts);
    }
}

constexpr int folderTree = 0x3741;  ///< of the platform's folder dialog
constexpr int folderTitle = 0x3742;

/// The tree of the folder dialog.
class FolderTree {
public:
    explicit FolderTree(HWND dialog) : tree_(driver::Item(dialog, folderTree)) {}

    std::string Selected() const { return Text(Next(TVGN_CARET, nullptr)); }

    /// Selects a folder by keys, from "C:" down.
    void Choose(const std::vector<std::string>& names) {
        const HTREEITEM desktop = Next(TVGN_ROOT, nullptr);
        HTREEITEM item = desktop;
        for (const std::string& name : names) {
            driver::Ask(tree_, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
            driver::PressKey(tree_, VK_RIGHT);
            item = driver::WaitFor("the folder " + name, [&] { return Child(item, name); });
        }
        driver::Ask(tree_, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
    }

    std::vector<std::string> Children(HTREEITEM parent) const {
        std::vector<std::string> texts;
        for (HTREEITEM item = Next(TVGN_CHILD, parent); item; item = Next(TVGN_NEXT, item))
            texts.push_back(Text(item));
        return texts;
    }

private:
    HTREEITEM Next(WPARAM which, HTREEITEM item) const {
        return reinterpret_cast<HTREEITEM>(
            driver::Ask(tree_, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
    }
    HTREEITEM Child(HTREEITEM parent, const std::string& name) const {
        HTREEITEM item = Next(TVGN_CHILD, parent);
        while (item && _stricmp(Text(item).c_str(), name.c_str()) != 0 &&
               Text(item).find(name) == std::string::npos)
            item = Next(TVGN_NEXT, item);
        return item;
    }
    std::string Text(HTREEITEM item) const {
        if (!item)
            return {};
        constexpr std::size_t longest = 260;
        driver::SharedBlock block(tree_, sizeof(TVITEMA) + longest);
        TVITEMA wanted{};
        wanted.mask = TVIF_TEXT;
        wanted.hItem = item;
        wanted.pszText = reinterpret_cast<char*>(block.Address(sizeof wanted));
        wanted.cchTextMax = longest;
        block.Write(0, &wanted, sizeof wanted);
        driver::Ask(tree_, TVM_GETITEMA, 0, block.Address());
        return block.ReadText(sizeof wanted);
    }

    HWND tree_;
};

/// The names on the way to a folder, from the drive's on.
std::vector<std::string> NamesOf(const std::string& path) {
    std::vector<std::string> names{"My Computer"};
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = path.find('\\', at);
        names.push_back(path.substr(at, end - at));
        at = end + 1;
    }
    return names;
}

TEST_F(Exports, AskForAFolderWithTheLastOneSelected) {
    Given given = Export(0, [&](User&, HWND dialog) {
        EXPECT_EQ("Which folder?", driver::ControlText(driver::Item(dialog, folderTitle)));
        EXPECT_EQ(parent, GetWindow(dialog, GW_OWNER));
        FolderTree(dialog).Choose(NamesOf(work));
        driver::Click(driver::Item(dialog, IDOK));
    });
    EXPECT_EQ(work + "Moldbase", given.text);
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(given.text.c_str())) << "nothing is made";

    given = Export(0, [&](User&, HWND dialog) {
        driver::WaitFor("the last choice", [&] { return FolderTree(dialog).Selected() == "work"; });
        Cancel(dialog);
    });
    EXPECT_FALSE(given.isNull);
    EXPECT_EQ("", given.text);

    TakeAnotherObject();
    given = Export(0, [&](User&, HWND dialog) {
        EXPECT_EQ(parent, GetWindow(dialog, GW_OWNER)) << "the one of the first time";
        driver::WaitFor("the last choice", [&] { return FolderTree(dialog).Selected() == "work"; });
        driver::Click(driver::Item(dialog, IDOK));
    });
    EXPECT_EQ(work + "Moldbase", given.text);
}

TEST_F(Exports, AreTitledInTheLanguageOfEachCall) {
    const auto titles = [&] {
        std::string both;
        Export(1, [&](User&, HWND dialog) {
            both = driver::TextOf(dialog);
            Cancel(dialog);
        });
        Export(0, [&](User&, HWND dialog) {
            both += "|" + driver::ControlText(driver::Item(dialog, folderTitle));
            Cancel(dialog);
        });
        return both;
    };
    ASSERT_EQ(S_OK, SetPaths(parts, catalogs, data, folder.MakeFolder("other\\gui"), custom));
    EXPECT_EQ("Choose a file to export the moldbase to|Choose a folder to export the moldbase to", titles())
        << "no language is installed there";
    ASSERT_EQ(S_OK, UseInstallation());
    EXPECT_EQ("Which file?|Which folder?", titles());
}

TEST_F(Exports, AFolderIsNotLeftForAnotherOneByCancel) {
    const auto look = [&](const char* expected) {
        Export(0, [&](User&, HWND dialog) {
            driver::WaitFor("the last choice", [&] { return FolderTree(dialog).Selected() == expected; });
            FolderTree(dialog).Choose({"My Computer", "C:"});
            Cancel(dialog);
        });
    };
    Export(0, [&](User&, HWND dialog) {
        FolderTree(dialog).Choose(NamesOf(work));
        driver::Click(driver::Item(dialog, IDOK));
    });
    look("work");
    look("work");
}

TEST_F(Exports, TheRootOfADriveGetsNoSecondSeparator) {
    const Given given = Export(0, [&](User&, HWND dialog) {
        FolderTree(dialog).Choose({"My Computer", "C:"});
        driver::Click(driver::Item(dialog, IDOK));
    });
    EXPECT_EQ("C:\\Moldbase", given.text);
}

UINT folderFlags = 0;

PIDLIST_ABSOLUTE WINAPI DescribeFolder(BROWSEINFOA* description) {
    folderFlags = description->ulFlags;
    return nullptr;
}

TEST_F(Exports, OfferFoldersOfTheFileSystemAlone) {
    const ImportPatch patch(LoadedModule(), "SHELL32.dll", "SHBrowseForFolderA",
                            reinterpret_cast<void*>(DescribeFolder));
    ASSERT_TRUE(patch);
    Bstr path;
    EXPECT_EQ(S_OK, parts->TRNVExportDlg(0, path.Receive()));
    EXPECT_EQ(static_cast<UINT>(BIF_RETURNONLYFSDIRS), folderFlags);
}

std::string chosenFolder;

PIDLIST_ABSOLUTE WINAPI ChooseFolder(BROWSEINFOA*) {
    PIDLIST_ABSOLUTE folder = nullptr;
    SHParseDisplayName(Widen(chosenFolder).c_str(), nullptr, &folder, 0, nullptr);
    return folder;
}

/// Runs with a Japanese locale: the second byte of the folder's last character is that of the backslash.
class DoubleByteExports : public FileDialogs {
protected:
    void SetUp() override {
        if (GetACP() != 932)
            GTEST_SKIP() << "needs a code page of double-byte characters";
        FileDialogs::SetUp();
    }
};

TEST_F(DoubleByteExports, AFolderThatEndsInTheByteOfASeparatorGetsOne) {
    const ImportPatch patch(LoadedModule(), "SHELL32.dll", "SHBrowseForFolderA",
                            reinterpret_cast<void*>(ChooseFolder));
    ASSERT_TRUE(patch);
    const std::string table = "\x95\x5C";
    folder.MakeFolder(table);
    chosenFolder = folder.Path() + table;
    Bstr path;
    EXPECT_EQ(S_OK, parts->TRNVExportDlg(0, path.Receive()));
    EXPECT_EQ(Widen(folder.Path()) + L"\u8868\\Moldbase", path.View());
}

}  // namespace
}  // namespace nux
