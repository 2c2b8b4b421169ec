#pragma once

#include <windows.h>

#include <commdlg.h>

#include <functional>
#include <string>

#include "driver/User.h"
#include "framework/Text.h"
#include "tests/control/HostedComponent.h"
#include "tests/support/WithUser.h"

namespace nux {

/// The field of the name in a save dialog. Throws NotSeen.
HWND NameField(HWND dialog);
/// Gives a name to a save dialog and closes it.
void Save(HWND dialog, const std::string& name);
/// Closes a dialog without a choice.
void Cancel(HWND dialog);

/// What the component has asked the platform's save dialog for.
struct Description {
    OPENFILENAMEA plain;
    std::string filter;  ///< with both of its NULs at the end
    std::string texts;   ///< title, name and extension, joined with "|"
};
/// The last description that Describe was given.
extern Description described;
/// Stands for the platform's GetSaveFileNameA: keeps what it is asked for, and is cancelled.
BOOL WINAPI Describe(OPENFILENAMEA* description);

/// A text that the component gave, and whether it is null.
struct Given {
    bool isNull;
    std::string text;
};

/// Base of tests of the dialogs for names of files and folders.
class FileDialogs : public HostedTest {
protected:
    /// GetSaveFileName, during which a user works its dialog.
    Given Ask(const std::wstring& title, const std::wstring& filter, const std::string& name,
              const std::wstring& extension, const std::function<void(driver::User&, HWND)>& user) {
        BSTR path = SysAllocString(L"something before");
        WithUser(
            [&] {
                EXPECT_EQ(S_OK,
                          parts->GetSaveFileName(Bstr(title).Get(), Bstr(filter).Get(),
                                                 Bstr(name, CP_ACP).Get(), Bstr(extension).Get(), &path));
            },
            [&](driver::User& person) { user(person, person.Dialog(nullptr)); });
        return Take(path);
    }

    /// TRNVExportDlg, in the same way.
    Given Export(long singleFile, const std::function<void(driver::User&, HWND)>& user) {
        BSTR path = nullptr;
        WithUser([&] { EXPECT_EQ(S_OK, parts->TRNVExportDlg(singleFile, &path)); },
                 [&](driver::User& person) { user(person, person.Dialog(nullptr)); });
        return Take(path);
    }

    static Given Take(BSTR path) {
        const Given given{path == nullptr, Narrow(path, CP_ACP)};
        SysFreeString(path);
        return given;
    }

    const std::string work = folder.MakeFolder("work");
};

}  // namespace nux
