#include "environment/Localisation.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <list>
#include <optional>

#include "environment/DiagnosticLog.h"
#include "environment/InstallationPaths.h"
#include "environment/LanguageTable.h"
#include "environment/MessageTable.h"
#include "environment/Paths.h"
#include "environment/Registry.h"
#include "environment/Settings.h"
#include "environment/XMLAccess.h"
#include "framework/Module.h"

namespace nux {
namespace {

/// The message tables that were asked for so far. A table once built stays, also when the language changes or
/// its file has failed to load.
struct MessageCatalogue {
    struct Entry {
        std::string catalogId;
        std::optional<MessageTable> table;  ///< nothing if no file could be loaded
    };

    std::string language;
    std::list<Entry> entries;  ///< a list leaves its entries in place when it grows
};

MessageCatalogue& Catalogue() noexcept {
    static MessageCatalogue catalogue;
    return catalogue;
}

char decimalSeparator[5] = "";

std::optional<MessageTable> LoadMessageTable(const std::string& catalogId) {
    const std::string& language = Catalogue().language;
    const std::string file = (catalogId.empty() ? "COMMON" : catalogId) + "_Msgs.xml";
    ComPtr<IXMLDOMDocument> document;
    if (!LoadXMLDocument("file://" + GetLocaleFolder() + language + "\\" + file, document.Receive()) &&
        !LoadXMLDocument("file://" + GetCatalogFolder(catalogId) + "locale\\" + language + "\\" + file,
                         document.Receive()))
        return std::nullopt;
    return MessageTable::Read(document.Get());
}

const std::optional<MessageTable>& TableOf(const std::string& catalogId) {
    std::list<MessageCatalogue::Entry>& entries = Catalogue().entries;
    const auto known = std::find_if(entries.begin(), entries.end(),
                                    [&](const auto& entry) { return entry.catalogId == catalogId; });
    if (known != entries.end())
        return known->table;
    // The entry comes before its table: the host, asked for the catalogue's folder, may ask for a message.
    const auto added = entries.insert(entries.end(), {catalogId, std::nullopt});
    try {
        if (std::optional<MessageTable> table = LoadMessageTable(catalogId))
            added->table.emplace(std::move(*table));
    } catch (...) {
        entries.erase(added);  // not known to be missing: the next call tries again
        throw;
    }
    return added->table;
}

void SwitchResources(const std::string& language) {
    if (const HMODULE module = LoadLibraryA((GetLocaleFolder() + language + "\\resource.dll").c_str()))
        SetResourceModule(module);
}

}  // namespace

bool InitEnvironment() {
    ReadProductVersion();

    std::string& language = Catalogue().language;
    language = DetermineInterfaceLanguage();
    if (!language.empty())
        SwitchResources(language);

    // Not read in place: a separator that is too long would be written in part.
    char separator[sizeof decimalSeparator];
    const bool separatorRead =
        GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, sizeof separator) != 0;
    if (separatorRead)
        std::strcpy(decimalSeparator, separator);

    RegistryValue logFile;
    const char* path = nullptr;
    if (CRegistry(HKEY_LOCAL_MACHINE).QueryValue(GetRegistryRoot(), "DebugOutputFile", &logFile) &&
        logFile.AsString(&path))
        SetLogFile(path);
    return separatorRead;
}

std::string GetLocaleFolder() {
    return LocaleFolderOf(Installation().gui);
}

std::string DetermineInterfaceLanguage() {
    const std::string folder = GetLocaleFolder();
    return ChooseInterfaceLanguage(GetUserDefaultLangID(), [&](std::string_view name) {
        return DirectoryExists(folder + std::string(name));
    });
}

const std::string& InterfaceLanguage() noexcept {
    return Catalogue().language;
}

std::string GetLocalizedMessage(const std::string& catalogId, const std::string& messageId) {
    if (InterfaceLanguage().empty() || messageId.empty())
        return messageId;
    // These two share one message file.
    static const std::string autoFeatures = "AutoFeatures";
    const std::optional<MessageTable>& table = TableOf(catalogId == "Features" ? autoFeatures : catalogId);
    const std::string* text = table ? table->Find(messageId) : nullptr;
    return text ? *text : messageId;
}

const char* DecimalSeparator() noexcept {
    return decimalSeparator;
}

bool IsDecimalSeparator(char character) noexcept {
    return character != '\0' && std::strchr(decimalSeparator, character);
}

}  // namespace nux
