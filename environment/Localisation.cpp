#include "environment/Localisation.h"

#include <windows.h>

#include <algorithm>
#include <list>
#include <optional>

#include "environment/InstallationFiles.h"
#include "environment/InstallationPaths.h"
#include "environment/LanguageTable.h"
#include "environment/MessageTable.h"
#include "environment/Paths.h"
#include "environment/XMLAccess.h"

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

std::optional<MessageTable> LoadMessageTable(const std::string& catalogId) {
    const std::string& language = Catalogue().language;
    ComPtr<IXMLDOMDocument> document;
    if (!LoadXMLDocument(MessagesURL(GetLocaleFolder(), language, catalogId), document.Receive()) &&
        !LoadXMLDocument(MessagesURL(CatalogLocaleFolder(GetCatalogFolder(catalogId)), language, catalogId),
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

}  // namespace

std::string GetLocaleFolder() {
    return LocaleFolder(Installation().gui);
}

std::string DetermineInterfaceLanguage() {
    const std::string folder = GetLocaleFolder();
    return ChooseInterfaceLanguage(GetUserDefaultLangID(), [&](std::string_view name) {
        return DirectoryExists(folder + std::string(name));
    });
}

void SetInterfaceLanguage(std::string language) noexcept {
    Catalogue().language = std::move(language);
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

}  // namespace nux
