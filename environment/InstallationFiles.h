#pragma once

#include <string>
#include <string_view>

namespace nux {

// The names of all files of an installation. Folders carry their closing separator and everything is joined
// as it stands; nothing is escaped or tested. All throw std::bad_alloc.

/// How a URL of a file starts. What follows directly is a Windows path, without a third slash.
inline constexpr std::string_view fileScheme = "file://";

/// The URL of a file.
std::string FileURL(std::string_view path);

/// A catalogue's document in the catalogue's own folder.
std::string CatalogURL(std::string_view catalogFolder);
/// The same below the root of all catalogues.
std::string CatalogURL(std::string_view catalogRoot, std::string_view catalogId);

/// A component's own page, a file of the catalogue's folder.
std::string ComponentPageURL(std::string_view catalogRoot, std::string_view catalogId, std::string_view file);

/// A component's dimension file as the catalogue brings it.
std::string StdDimensionsURL(std::string_view catalogRoot, std::string_view catalogId,
                             std::string_view componentId);
/// The one of the user.
/// @param customDims  root of the user's dimension files
std::string UsrDimensionsURL(std::string_view customDims, std::string_view catalogId,
                             std::string_view componentId);

/// The locale folder that lies beside the folder of the wizard pages: the last four characters of `guiPath`,
/// whatever they are, give way to "locale\". A shorter path gives "locale\" alone.
std::string LocaleFolder(std::string_view guiPath);
/// The locale folder that a catalogue brings along.
std::string CatalogLocaleFolder(std::string_view catalogFolder);

/// The module with the dialogs and icons of a language.
std::string ResourceModulePath(std::string_view localeFolder, std::string_view language);
/// The messages of a catalogue in a language; an empty ID asks for those that are common to all.
std::string MessagesURL(std::string_view localeFolder, std::string_view language, std::string_view catalogId);

/// The page that is shown when there is nothing else to show.
std::string DefaultPageURL(std::string_view dataPath);
/// The page with which a wizard starts.
std::string WizardPageURL(std::string_view dataPath);

/// The log that a debug session writes unless it names another: four levels above the folder of the wizard
/// pages.
std::string DefaultLogPath(std::string_view guiPath);

}  // namespace nux
