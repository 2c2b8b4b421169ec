// The choice of the interface language and of the locale folder is held against what it is in plain words.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <set>
#include <string>

#include "environment/InstallationFiles.h"
#include "environment/LanguageTable.h"

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

/// The name, unless its row is missing: British English.
std::string PlainName(std::uint16_t id) {
    std::string name = "English_United_Kingdom";
    for (const nux::Language& language : nux::LanguageTable()) {
        if (language.id == id)
            name = language.name;
    }
    return name;
}

std::string PlainChoice(std::uint16_t id, const std::set<std::string>& folders) {
    std::string name = PlainName(id);
    if (folders.count(name) != 0)
        return name;
    std::string shortened;
    while (shortened.size() < name.size() && name[shortened.size()] != '_')
        shortened += name[shortened.size()];
    if (shortened.size() == name.size() || folders.count(shortened) == 0)
        return "";
    return shortened;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    const auto table = nux::LanguageTable();
    const std::uint16_t id = data.ConsumeBool()
                                 ? table[data.ConsumeIntegralInRange<std::size_t>(0, table.size() - 1)].id
                                 : data.ConsumeIntegral<std::uint16_t>();
    std::set<std::string> folders;
    for (int count = data.ConsumeIntegralInRange(0, 4); count > 0; --count) {
        const std::string other =
            PlainName(table[data.ConsumeIntegralInRange<std::size_t>(0, table.size() - 1)].id);
        folders.insert(data.ConsumeBool() ? other : other.substr(0, other.find('_')));
    }
    if (data.ConsumeBool())
        folders.insert(PlainName(id));
    if (data.ConsumeBool())
        folders.insert(PlainName(id).substr(0, PlainName(id).find('_')));
    const auto exists = [&](std::string_view name) {
        Require(!name.empty());  // an empty name would find the locale folder itself
        return folders.count(std::string(name)) != 0;
    };
    Require(nux::ChooseInterfaceLanguage(id, exists) == PlainChoice(id, folders));

    const std::string guiPath = data.ConsumeRemainingBytesAsString();
    std::string beside = guiPath;
    for (int cut = 0; cut < 4 && !beside.empty(); ++cut)
        beside.pop_back();
    Require(nux::LocaleFolder(guiPath) == beside + "locale\\");
    return 0;
}
