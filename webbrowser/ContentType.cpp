#include "webbrowser/ContentType.h"

#include <algorithm>

namespace nux::webbrowser {
namespace {

struct Row {
    std::u16string_view extension;
    ContentType type;
};

constexpr Row rows[] = {
    {u"htm", {"text/html", FileUse::document}},      {u"html", {"text/html", FileUse::document}},
    {u"hta", {"text/html", FileUse::document}},      {u"xhtml", {"application/xhtml+xml", FileUse::document}},
    {u"xml", {"text/xml", FileUse::document}},       {u"xsl", {"text/xml", FileUse::document}},
    {u"txt", {"text/plain", FileUse::document}},     {u"css", {"text/css", FileUse::style}},
    {u"js", {"text/javascript", FileUse::script}},   {u"mjs", {"text/javascript", FileUse::script}},
    {u"json", {"application/json", FileUse::other}}, {u"bmp", {"image/bmp", FileUse::picture}},
    {u"gif", {"image/gif", FileUse::picture}},       {u"ico", {"image/x-icon", FileUse::picture}},
    {u"cur", {"image/x-icon", FileUse::picture}},    {u"jpg", {"image/jpeg", FileUse::picture}},
    {u"jpeg", {"image/jpeg", FileUse::picture}},     {u"png", {"image/png", FileUse::picture}},
    {u"svg", {"image/svg+xml", FileUse::picture}},   {u"webp", {"image/webp", FileUse::picture}},
    {u"otf", {"font/otf", FileUse::font}},           {u"ttf", {"font/ttf", FileUse::font}},
    {u"woff", {"font/woff", FileUse::font}},         {u"woff2", {"font/woff2", FileUse::font}},
    {u"mp3", {"audio/mpeg", FileUse::media}},        {u"mp4", {"video/mp4", FileUse::media}},
    {u"ogg", {"audio/ogg", FileUse::media}},         {u"wav", {"audio/wav", FileUse::media}},
    {u"webm", {"video/webm", FileUse::media}},
};

}  // namespace

ContentType ContentTypeOf(std::u16string_view path) noexcept {
    const std::size_t name = path.find_last_of(u"\\/") + 1;  // 0 without one
    const std::size_t dot = path.find_last_of(u'.');
    if (dot != std::u16string_view::npos && dot >= name) {
        const std::u16string_view extension = path.substr(dot + 1);
        for (const Row& row : rows) {
            if (std::equal(extension.begin(), extension.end(), row.extension.begin(), row.extension.end(),
                           [](char16_t given, char16_t lower) {
                               return (given >= u'A' && given <= u'Z' ? given + 32 : given) == lower;
                           }))
                return row.type;
        }
    }
    return {"application/octet-stream", FileUse::other};
}

}  // namespace nux::webbrowser
