#pragma once

#include <string>

namespace nux {

/// Starts what depends on the installation paths: product version, interface language and its resource
/// module, decimal separator, log file. Called each time the paths are set.
/// @return false if the decimal separator could not be read: it stays as it was, and all the rest is done
/// Throws std::bad_alloc.
bool InitEnvironment();

/// Folder of the languages, with its closing separator: "locale" beside the folder of the wizard pages.
/// Throws std::bad_alloc, as does the next.
std::string GetLocaleFolder();

/// Folder name of the language of the user's account if it is installed, or its short form, or empty.
std::string DetermineInterfaceLanguage();

/// The language that InitEnvironment chose; empty means that nothing is translated.
const std::string& InterfaceLanguage() noexcept;

/// The text of a message in the interface language.
/// @param catalogId  catalogue whose messages are asked; empty for those that are common to all
/// @param messageId  the English text itself
/// @return the translation, or the ID if there is none
/// Throws std::bad_alloc.
std::string GetLocalizedMessage(const std::string& catalogId, const std::string& messageId);

/// The user's decimal separator: at most four bytes; empty until InitEnvironment has read it.
const char* DecimalSeparator() noexcept;

/// Whether the character is one of those of the user's decimal separator.
bool IsDecimalSeparator(char character) noexcept;

}  // namespace nux
