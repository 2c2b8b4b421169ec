#include "environment/Paths.h"

#include <windows.h>

#include "environment/InstallationFiles.h"
#include "framework/Handles.h"

namespace nux {
namespace {

bool CanBeRead(const char* path) noexcept {
    const UniqueFile file(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    return static_cast<bool>(file);
}

}  // namespace

bool FileExists(const std::string& path) noexcept {
    return CanBeRead(path.c_str());
}

bool EndsInSeparator(const std::string& path) noexcept {
    // The last byte may be the second half of a double-byte character.
    const char* const last = CharPrevA(path.c_str(), path.c_str() + path.size());
    return *last == '/' || *last == '\\';
}

void CutClosingSeparator(std::string& path) noexcept {
    if (EndsInSeparator(path))
        path.pop_back();
}

bool DirectoryExists(std::string path) noexcept {
    CutClosingSeparator(path);
    WIN32_FIND_DATAA found;
    const UniqueSearch search(FindFirstFileA(path.c_str(), &found));
    return static_cast<bool>(search);
}

bool URLTargetExists(const std::string& url) noexcept {
    if (_strnicmp(url.c_str(), fileScheme.data(), fileScheme.size()) != 0)
        return true;
    return CanBeRead(url.c_str() + fileScheme.size());
}

}  // namespace nux
