#include "webbrowser/Reach.h"

#include <algorithm>

#include "webbrowser/ContentType.h"

namespace nux::webbrowser {
namespace {

char16_t Lower(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

bool IsSame(std::u16string_view one, std::u16string_view other) noexcept {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char16_t a, char16_t b) { return Lower(a) == Lower(b); });
}

/// Names that mean a device in each folder, with whatever extension.
bool IsDevice(std::u16string_view step) noexcept {
    std::u16string_view name = step.substr(0, step.find(u'.'));
    while (name.ends_with(u' '))
        name.remove_suffix(1);
    constexpr std::u16string_view devices[] = {u"con", u"prn", u"aux", u"nul", u"conin$", u"conout$"};
    for (const std::u16string_view device : devices) {
        if (IsSame(name, device))
            return true;
    }
    return name.size() == 4 && (IsSame(name.substr(0, 3), u"com") || IsSame(name.substr(0, 3), u"lpt"));
}

/// Whether each step of the path is a plain name.
bool IsPlain(std::u16string_view path) noexcept {
    path.remove_prefix(std::min<std::size_t>(2, path.size()));  // the drive, or the begin of a server
    while (!path.empty()) {
        const std::size_t end = std::min(path.find(u'\\'), path.size());
        const std::u16string_view step = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (step.find_first_of(u":*?\"<>|/") != std::u16string_view::npos || IsDevice(step) ||
            step.ends_with(u'.') || step.ends_with(u' '))
            return false;
        if (std::any_of(step.begin(), step.end(), [](char16_t unit) { return unit < u' '; }))
            return false;
    }
    return true;
}

bool MayLieAnywhere(std::u16string_view path, std::string_view use) noexcept {
    const FileUse is = ContentTypeOf(path).use;
    return (use == "Image" && is == FileUse::picture) || (use == "Stylesheet" && is == FileUse::style) ||
           (use == "Script" && is == FileUse::script) || (use == "Font" && is == FileUse::font) ||
           (use == "Media" && is == FileUse::media);
}

}  // namespace

void Reach::Open(std::u16string_view path) {
    const std::size_t end = path.find_last_of(u'\\');
    if (end == std::u16string_view::npos)
        return;
    std::u16string folder(path.substr(0, end + 1));
    if (std::none_of(folders_.begin(), folders_.end(),
                     [&](const std::u16string& known) { return IsSame(known, folder); }))
        folders_.push_back(std::move(folder));
}

bool Reach::MayRead(std::u16string_view path, std::string_view use) const {
    if (!IsPlain(path))
        return false;
    const bool isOpened = std::any_of(folders_.begin(), folders_.end(), [&](const std::u16string& folder) {
        return path.size() >= folder.size() && IsSame(folder, path.substr(0, folder.size()));
    });
    return isOpened || (!path.starts_with(u"\\\\") && MayLieAnywhere(path, use));
}

}  // namespace nux::webbrowser
