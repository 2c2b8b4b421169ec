#pragma once

#include <string_view>

namespace nux::webbrowser {

/// What a file may be to a page.
enum class FileUse { document, style, script, picture, font, media, other };

struct ContentType {
    const char* name;  ///< of the Content-Type header
    FileUse use;
};

/// The type of a file by the extension of its name, in letters of either case.
/// @return application/octet-stream for others
ContentType ContentTypeOf(std::u16string_view path) noexcept;

}  // namespace nux::webbrowser
