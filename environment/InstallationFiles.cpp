#include "environment/InstallationFiles.h"

#include <initializer_list>

namespace nux {
namespace {

std::string Joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts)
        text.append(part);
    return text;
}

}  // namespace

std::string FileURL(std::string_view path) {
    return Joined({fileScheme, path});
}

std::string CatalogURL(std::string_view catalogFolder) {
    return Joined({fileScheme, catalogFolder, "Catalog.xml"});
}

std::string CatalogURL(std::string_view catalogRoot, std::string_view catalogId) {
    return Joined({fileScheme, catalogRoot, catalogId, "\\Catalog.xml"});
}

std::string ComponentPageURL(std::string_view catalogRoot, std::string_view catalogId,
                             std::string_view file) {
    return Joined({fileScheme, catalogRoot, catalogId, "\\", file});
}

std::string StdDimensionsURL(std::string_view catalogRoot, std::string_view catalogId,
                             std::string_view componentId) {
    return Joined({fileScheme, catalogRoot, catalogId, "\\StdDimensions\\", componentId, ".xml"});
}

std::string UsrDimensionsURL(std::string_view customDims, std::string_view catalogId,
                             std::string_view componentId) {
    return Joined(
        {fileScheme, customDims, "catalogs\\", catalogId, "\\UsrDimensions\\", componentId, ".xml"});
}

std::string LocaleFolder(std::string_view guiPath) {
    constexpr std::size_t guiFolder = 4;  // three letters and the separator
    const std::size_t kept = guiPath.size() < guiFolder ? 0 : guiPath.size() - guiFolder;
    return Joined({guiPath.substr(0, kept), "locale\\"});
}

std::string CatalogLocaleFolder(std::string_view catalogFolder) {
    return Joined({catalogFolder, "locale\\"});
}

std::string ResourceModulePath(std::string_view localeFolder, std::string_view language) {
    return Joined({localeFolder, language, "\\resource.dll"});
}

std::string MessagesURL(std::string_view localeFolder, std::string_view language,
                        std::string_view catalogId) {
    return Joined(
        {fileScheme, localeFolder, language, "\\", catalogId.empty() ? "COMMON" : catalogId, "_Msgs.xml"});
}

std::string DefaultPageURL(std::string_view dataPath) {
    return Joined({fileScheme, dataPath, "Tarnvale.htm"});
}

std::string WizardPageURL(std::string_view dataPath) {
    return Joined({fileScheme, dataPath, "Wizard.htm"});
}

std::string DefaultLogPath(std::string_view guiPath) {
    return Joined({guiPath, "../../../../brask_log"});
}

}  // namespace nux
