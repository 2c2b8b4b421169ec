// Addresses of hosts and pages: whatever is given, a file is found again by the URL that is made of it, and
// no path leaves its root.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "webbrowser/PageUrl.h"
#include "webbrowser/Reach.h"
#include "webbrowser/Utf.h"

using namespace nux::webbrowser;

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

void RequirePlain(const std::u16string& path) {
    Require(path.find(u'/') == std::u16string::npos);
    Require(path.find(u"\\..\\") == std::u16string::npos && !path.ends_with(u"\\.."));
    Require(path.find(u'\0') == std::u16string::npos);
    Require(path.starts_with(u"\\\\") || (path.size() >= 3 && path[1] == u':' && path[2] == u'\\'));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::u16string address = FromUtf8(bytes);
    const PageUrl url = ReadHostAddress(address);
    for (const char letter : url.url)
        Require(static_cast<unsigned char>(letter) >= 0x20 && static_cast<unsigned char>(letter) < 0x80);
    if (url.kind == PageUrl::Kind::file) {
        RequirePlain(url.path);
        // A name can't be told from its URL if it isn't well formed.
        if (IsWellFormed(url.path))
            Require(FileOfUrl(url.url) == url.path);
        Reach reach;
        Require(!reach.MayRead(url.path, "XHR"));
        reach.Open(url.path);
    }
    if (const auto file = FileOfUrl(bytes)) {
        RequirePlain(*file);
        Reach reach;
        reach.Open(u"C:\\gui\\a.htm");
        if (reach.MayRead(*file, "XHR"))
            Require(file->size() > 7 && (*file)[1] == u':' && FromUtf8(ToUtf8(*file)) == *file);
    }
    ShownAddress(bytes);
    return 0;
}
