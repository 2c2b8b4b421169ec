#pragma once

#include <string>
#include <string_view>

namespace nux {

/// A new folder below the folder of temporary files. It goes with all that is in it.
class TempFolder {
public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    /// Full path, with its closing separator.
    const std::string& Path() const noexcept { return path_; }
    /// "file://" and the path of `name` in the folder.
    std::string Url(const std::string& name) const { return "file://" + path_ + name; }

    /// Makes a folder, and those on the way to it. `name` is relative, without a closing separator.
    /// @return its full path, with a closing separator
    std::string MakeFolder(const std::string& name) const;
    /// Makes or replaces a file, and the folders on the way to it. @return its full path
    std::string Write(const std::string& name, std::string_view content) const;
    std::string Read(const std::string& name) const;
    void Remove(const std::string& name) const;

private:
    std::string path_;
};

}  // namespace nux
