#pragma once

#include <string>

namespace nux {

/// Folder of the languages, with its closing separator: "locale" beside the folder of the wizard pages.
/// Throws std::bad_alloc, as does the next.
std::string GetLocaleFolder();

/// Folder name of the language of the user's account if it is installed, or its short form, or empty.
std::string DetermineInterfaceLanguage();

/// The language of all messages from here on; empty means that nothing is translated. Message tables that are
/// built already stay in the language that they were built in.
void SetInterfaceLanguage(std::string language) noexcept;
const std::string& InterfaceLanguage() noexcept;

/// The text of a message in the interface language.
/// @param catalogId  catalogue whose messages are asked; empty for those that are common to all
/// @param messageId  the English text itself
/// @return the translation, or the ID if there is none
/// Throws std::bad_alloc.
std::string GetLocalizedMessage(const std::string& catalogId, const std::string& messageId);

}  // namespace nux
