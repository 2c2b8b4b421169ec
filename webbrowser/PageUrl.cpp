#include "webbrowser/PageUrl.h"

#include <algorithm>
#include <vector>

#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

constexpr std::u16string_view slashes = u"/\\";

bool IsLetter(char16_t unit) noexcept {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}
char16_t Upper(char16_t unit) noexcept {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
}
bool IsSlash(char16_t unit) noexcept {
    return unit == u'/' || unit == u'\\';
}

bool BeginsWith(std::u16string_view text, std::u16string_view lower) noexcept {
    return text.size() >= lower.size() &&
           std::equal(lower.begin(), lower.end(), text.begin(),
                      [](char16_t expected, char16_t given) { return Upper(expected) == Upper(given); });
}
bool EndsWith(std::u16string_view text, std::u16string_view lower) noexcept {
    return text.size() >= lower.size() && BeginsWith(text.substr(text.size() - lower.size()), lower);
}

int HexDigit(char unit) noexcept {
    if (unit >= '0' && unit <= '9')
        return unit - '0';
    if (unit >= 'a' && unit <= 'f')
        return unit - 'a' + 10;
    if (unit >= 'A' && unit <= 'F')
        return unit - 'A' + 10;
    return -1;
}

/// Resolves %XX where `isMeant` says so of the byte; what isn't such a group stays.
template <class Predicate>
std::string DecodePercent(std::string_view text, Predicate&& isMeant) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '%' && at + 2 < text.size()) {
            const int high = HexDigit(text[at + 1]);
            const int low = HexDigit(text[at + 2]);
            if (high >= 0 && low >= 0 && isMeant(static_cast<unsigned char>(high * 16 + low))) {
                result += static_cast<char>(high * 16 + low);
                at += 2;
                continue;
            }
        }
        result += text[at];
    }
    return result;
}

std::u16string DecodeAll(std::u16string_view text) {
    return FromUtf8(DecodePercent(ToUtf8(text), [](unsigned char) { return true; }));
}

void AppendEncoded(std::string& url, std::string_view bytes, std::string_view kept) {
    constexpr char digits[] = "0123456789ABCDEF";
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        const bool plain = (value >= 'a' && value <= 'z') || (value >= 'A' && value <= 'Z') ||
                           (value >= '0' && value <= '9') || kept.find(byte) != std::string_view::npos;
        if (plain) {
            url += byte;
        } else {
            url += '%';
            url += digits[value >> 4];
            url += digits[value & 15];
        }
    }
}

/// A path in the platform's form, with a drive or a server; none for any other.
std::optional<std::u16string> NormalisedPath(std::u16string_view text) {
    std::u16string root;
    if (text.size() >= 2 && IsLetter(text[0]) && text[1] == u':') {
        if (text.size() > 2 && !IsSlash(text[2]))
            return std::nullopt;
        root = {Upper(text[0]), u':'};
        text.remove_prefix(2);
    } else if (text.size() > 2 && IsSlash(text[0]) && IsSlash(text[1]) && !IsSlash(text[2])) {
        text.remove_prefix(2);
        const std::size_t end = std::min(text.find_first_of(slashes), text.size());
        const std::u16string_view server = text.substr(0, end);
        // \\?\ and \\.\ name devices; a drive is no server.
        if (server.starts_with(u'.') || server.find_first_of(u"?:|*<>\"") != std::u16string_view::npos ||
            end == text.size())
            return std::nullopt;
        root = u"\\\\";
        root += server;
        text.remove_prefix(end);
    } else {
        return std::nullopt;
    }
    std::vector<std::u16string_view> steps;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(slashes), text.size());
        const std::u16string_view step = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (step == u"..") {
            if (!steps.empty())
                steps.pop_back();
        } else if (!step.empty() && step != u".") {
            steps.push_back(step);
        }
    }
    if (steps.empty())
        root += u'\\';
    for (const std::u16string_view step : steps) {
        root += u'\\';
        root += step;
    }
    return root;
}

std::string UrlOfPath(const std::u16string& path) {
    std::string url = path.starts_with(u"\\\\") ? "file:" : "file:///";
    std::string forward = ToUtf8(path);
    std::replace(forward.begin(), forward.end(), '\\', '/');
    AppendEncoded(url, forward, "/:@!$&'()*+,;=~-._");
    return url;
}

/// What follows "file:", without the slashes that don't belong to the path.
std::u16string_view PathOfFileUrl(std::u16string_view rest) noexcept {
    const std::size_t count = std::min(rest.find_first_not_of(slashes), rest.size());
    std::u16string_view path = rest.substr(count);
    constexpr std::u16string_view thisMachine = u"localhost";
    if (count == 2 && BeginsWith(path, thisMachine) && path.size() > thisMachine.size() &&
        IsSlash(path[thisMachine.size()])) {
        path.remove_prefix(thisMachine.size() + 1);
        return path;
    }
    if (path.size() >= 2 && IsLetter(path[0]) && (path[1] == u':' || path[1] == u'|'))
        return path;
    // The server of a share: two slashes, or the path's own two behind those of the URL. With three the path
    // begins at the root of no drive.
    return count == 2 || count >= 4 ? rest.substr(count - 2) : std::u16string_view();
}

}  // namespace

PageUrl ReadHostAddress(std::u16string_view address) {
    while (!address.empty() && address.front() <= u' ')
        address.remove_prefix(1);
    while (!address.empty() && address.back() <= u' ')
        address.remove_suffix(1);
    PageUrl result;
    if (address.empty()) {
        result.kind = PageUrl::Kind::about;
        result.url = "about:blank";
        return result;
    }
    const auto otherKind = [&](PageUrl::Kind kind) {
        result.kind = kind;
        AppendEncoded(result.url, ToUtf8(address), "/:@!$&'()*+,;=~-._?#[]%{}|\\^`\"<> ");
        return result;
    };
    if (BeginsWith(address, u"about:"))
        return otherKind(PageUrl::Kind::about);
    if (BeginsWith(address, u"javascript:"))
        return otherKind(PageUrl::Kind::script);

    const bool isUrl = BeginsWith(address, u"file:");
    std::u16string_view rest = isUrl ? PathOfFileUrl(address.substr(5)) : address;
    const bool isPath = !isUrl || rest.find(u'\\') != std::u16string_view::npos;

    std::size_t end = rest.size();
    const std::size_t query = rest.find(u'?');
    const std::size_t part = rest.find(u'#');
    if (part != std::u16string_view::npos &&
        (!isPath || EndsWith(rest.substr(0, part), u".htm") || EndsWith(rest.substr(0, part), u".html")))
        end = part;
    end = std::min(end, query);
    const std::u16string_view tail = rest.substr(end);
    rest = rest.substr(0, end);

    std::u16string named = isPath ? std::u16string(rest) : DecodeAll(rest);
    if (named.size() >= 2 && named[1] == u'|')
        named[1] = u':';
    std::optional<std::u16string> path = NormalisedPath(named);
    // A name can hold none of these; a text that was cut by its null isn't what was meant.
    if (!path || path->find(u'\0') != std::u16string::npos)
        return otherKind(PageUrl::Kind::other);
    result.kind = PageUrl::Kind::file;
    result.url = UrlOfPath(*path);
    result.path = std::move(*path);
    AppendEncoded(result.url, ToUtf8(tail), "/:@!$&'()*+,;=~-._?#[]%");
    return result;
}

std::optional<std::u16string> FileOfUrl(std::string_view url) {
    url = url.substr(0, url.find_first_of("?#"));
    const std::u16string text = DecodeAll(FromUtf8(url));
    std::u16string_view path = text;
    if (BeginsWith(path, u"file:"))
        path = PathOfFileUrl(path.substr(5));
    if (path.find(u'\0') != std::u16string_view::npos)
        return std::nullopt;
    return NormalisedPath(path);
}

std::u16string ShownAddress(std::string_view url) {
    std::u16string shown = FromUtf8(DecodePercent(url, [](unsigned char byte) { return byte >= 0x80; }));
    if (BeginsWith(shown, u"file:///") && shown.size() > 9 && shown[9] == u':')
        shown[8] = Upper(shown[8]);
    return shown;
}

}  // namespace nux::webbrowser
