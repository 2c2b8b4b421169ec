#include "environment/Paths.h"

#include <windows.h>

#include <string_view>

#include "framework/Handles.h"

namespace nux {
namespace {

constexpr std::string_view fileScheme = "file://";

}  // namespace

bool FileExists(const std::string& path) noexcept {
    const UniqueFile file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    return static_cast<bool>(file);
}

void CutClosingSeparator(std::string& path) noexcept {
    // The last byte may be the second half of a double-byte character.
    const char* const last = CharPrevA(path.c_str(), path.c_str() + path.size());
    if (*last == '/' || *last == '\\')
        path.pop_back();
}

bool DirectoryExists(std::string path) noexcept {
    CutClosingSeparator(path);
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    FindClose(search);
    return true;
}

bool URLTargetExists(const std::string& url) noexcept {
    if (_strnicmp(url.c_str(), fileScheme.data(), fileScheme.size()) != 0)
        return true;
    return FileExists(url.c_str() + fileScheme.size());
}

}  // namespace nux
