#include "control/FileDialogs.h"

#include <commdlg.h>
#include <shlobj.h>

#include <algorithm>
#include <utility>

#include "framework/Handles.h"
#include "framework/Module.h"

namespace nux {
namespace {

constexpr DWORD saveFlags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST |
                            OFN_NOREADONLYRETURN | OFN_EXPLORER | OFN_ENABLESIZING | OFN_ENABLEHOOK;

/// The hook makes the dialog one whose host sees its messages; nothing of it is changed.
UINT_PTR CALLBACK LeaveAlone(HWND, UINT, WPARAM, LPARAM) {
    return 0;
}

int CALLBACK SelectLast(HWND dialog, UINT message, LPARAM, LPARAM path) {
    if (message == BFFM_INITIALIZED)
        SendMessageA(dialog, BFFM_SETSELECTIONA, TRUE, path);
    return 0;
}

}  // namespace

SaveFileDialog::SaveFileDialog(HWND parent, std::string defaultExtension, const std::string& fileName)
    : parent_(parent), defaultExtension_(std::move(defaultExtension)) {
    fileName.copy(fileName_.data(), fileName_.size() - 1);
}

std::optional<std::string> SaveFileDialog::Run(const std::string& title, std::string filter) {
    std::replace(filter.begin(), filter.end(), '|', '\0');
    filter.append(2, '\0');
    // On a copy: for a path that is too long the platform fails and leaves its length in the place of the
    // name.
    auto fileName = fileName_;
    OPENFILENAMEA description{};
    description.lStructSize = sizeof description;
    description.hwndOwner = parent_;
    description.hInstance = ThisModule();
    description.lpstrFilter = filter.data();
    description.lpstrFile = fileName.data();
    description.nMaxFile = static_cast<DWORD>(fileName.size());
    description.lpstrTitle = title.c_str();
    description.Flags = saveFlags;
    description.lpstrDefExt = defaultExtension_.c_str();
    description.lpfnHook = &LeaveAlone;
    if (!GetSaveFileNameA(&description))
        return std::nullopt;
    fileName_ = fileName;
    return fileName_.data();
}

std::optional<std::string> FolderDialog::Run(const std::string& title) {
    char name[MAX_PATH] = "";
    BROWSEINFOA description{};
    description.hwndOwner = parent_;
    description.pszDisplayName = name;
    description.lpszTitle = title.c_str();
    description.ulFlags = BIF_RETURNONLYFSDIRS;
    description.lpfn = &SelectLast;
    description.lParam = reinterpret_cast<LPARAM>(chosen_.c_str());
    const UniqueHandle<TaskMemoryTraits<ITEMIDLIST>> folder(SHBrowseForFolderA(&description));
    char path[MAX_PATH] = "";
    if (!folder || !SHGetPathFromIDListA(folder.Get(), path))
        return std::nullopt;
    chosen_ = path;
    return chosen_;
}

}  // namespace nux
