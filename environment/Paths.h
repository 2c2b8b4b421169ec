#pragma once

#include <string>

namespace nux {

/// Whether `path` can be opened for reading while others may read it. A folder, and a file that another
/// process holds without read sharing, count as missing.
bool FileExists(const std::string& path) noexcept;

/// Whether the last character of a path is a slash or a backslash.
bool EndsInSeparator(const std::string& path) noexcept;

/// Takes one closing separator, a slash or a backslash, off the end of a path.
void CutClosingSeparator(std::string& path) noexcept;

/// Whether anything of that name exists, a plain file included. One separator at the end is taken off first.
bool DirectoryExists(std::string path) noexcept;

/// For a "file://" URL (whatever its case) whether its file exists. Any other URL counts as present.
bool URLTargetExists(const std::string& url) noexcept;

}  // namespace nux
