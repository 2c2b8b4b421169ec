#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace nux::webbrowser {

/// Which files a page may read. Its documents, and what its scripts request, lie in the folder of a document
/// that the host has opened, or below; pictures, styles, scripts, fonts and media in any folder of the
/// machine, if the file's name says that it is one. Nothing else: no device, no stream of a file, no share
/// but one that the host has opened a document of.
class Reach {
public:
    /// The host shows a document. @param path  as in PageUrl::path
    void Open(std::u16string_view path);

    /// @param path  as FileOfUrl gives it
    /// @param use   the browser's word for what the file is requested as: "Document", "Image", "XHR"
    bool MayRead(std::u16string_view path, std::string_view use) const;

private:
    std::vector<std::u16string> folders_;  ///< with a backslash at the end
};

}  // namespace nux::webbrowser
