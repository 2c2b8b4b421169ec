#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace nux {

/// A language that the interface can have.
struct Language {
    std::string_view name;  ///< name of its folder below the locale folder
    std::uint16_t id;       ///< Windows language identifier
};

/// All languages, in the order in which they are compared.
std::span<const Language> LanguageTable() noexcept;

/// Folder name of a language; "English_United_Kingdom" for an identifier that the table lacks.
std::string_view LanguageName(std::uint16_t languageId) noexcept;

/// The name up to its first "_", or empty if it has none.
std::string_view ShortLanguageName(std::string_view name) noexcept;

/// The interface language of a user.
/// @param folderExists  tells whether the folder of a name exists
/// @return the exact name if it has a folder, else the short name if that has one, else empty: no translation
template <class FolderExists>
std::string ChooseInterfaceLanguage(std::uint16_t languageId, FolderExists&& folderExists) {
    const std::string_view name = LanguageName(languageId);
    if (folderExists(name))
        return std::string(name);
    const std::string_view shortName = ShortLanguageName(name);
    if (!shortName.empty() && folderExists(shortName))
        return std::string(shortName);
    return {};
}

}  // namespace nux
