#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace nux::webbrowser {

/// An address as a host gives it, understood.
struct PageUrl {
    enum class Kind {
        file,    ///< of the machine or of a share
        about,   ///< "about:blank" and its like
        script,  ///< "javascript:..."
        other,   ///< whatever else; nothing of it is reachable
    };
    Kind kind = Kind::other;
    std::string url;      ///< in the browser's form, ASCII: "file:///C:/dir/x%20y.htm?query#part"
    std::u16string path;  ///< of a file: "C:\dir\x y.htm", "\\server\share\x.htm"

    bool operator==(const PageUrl&) const = default;
};

/// Reads an address that a host gives: "file://C:\dir\x.htm", "file:///C:/dir/x.htm", "C:\dir\x.htm",
/// "\\server\share\x.htm", slashes of both kinds, blanks, characters of any language, "about:blank". An empty
/// one is about:blank.
///
/// A text with a backslash is a path, in which % stands for itself; in others %20 is a blank. What follows ?
/// is a query. # begins a part of the page, in a path only behind ".htm" or ".html": elsewhere it belongs to
/// a name.
PageUrl ReadHostAddress(std::u16string_view address);

/// The file that a browser's request is for: "C:\dir\x.htm" for file:///c:/dir/x.htm?query, c:\dir\x.htm and
/// z:/x.htm, "\\server\share\x" for file://server/share/x. Without "." and ".." steps.
/// @return none if the URL names no file with a drive or a server
std::optional<std::u16string> FileOfUrl(std::string_view url);

/// A browser's URL as location shows it on the platform: "file:///C:/dir/x%20y.htm" with characters beyond
/// ASCII spelled out; others as they are.
std::u16string ShownAddress(std::string_view url);

}  // namespace nux::webbrowser
