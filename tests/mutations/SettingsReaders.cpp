// What the registry holds, and the choice of the language.

#include <algorithm>
#include <cmath>
#include <cstring>

#include "dimensions/Columns.h"
#include "dimensions/DimNumber.h"
#include "dimensions/DimensionKeys.h"
#include "dimensions/DimensionSettings.h"
#include "environment/InstallationFiles.h"
#include "environment/LanguageTable.h"
#include "environment/Registry.h"
#include "framework/Handles.h"
#include "tests/mutations/Reader.h"
#include "tests/mutations/StoredSettings.h"

namespace nux {
namespace {

class StoredFilters : public Reader {
public:
    explicit StoredFilters(const Samples& samples) : samples_(samples) {}

    bool Read(Random& random) override {
        const StoredSettings stored(DimensionsKey(GetRegistryRoot(), "m", "m"));
        DimensionSettings settings("m", "m");
        if (random.OneIn(4)) {
            stored.Mutate(random, "", StoredSettings::ofFrame);
            const DialogFrame frame = settings.Frame({{1, 2}, {3, 4}});
            settings.SetFrame(frame);
            const DialogFrame again = settings.Frame({});
            Require(again.position.x == frame.position.x &&
                        again.aboveMinimum.height == frame.aboveMinimum.height,
                    "a frame that is not found again");
            return true;
        }
        stored.Mutate(random, "Columns\\A", StoredSettings::ofColumn);
        const nuxDimFilter filter = settings.Filter("A");
        const std::vector<StoredColumn> columns{
            {true, 0},
            {false, settings.ColumnNumber("A", ColumnValues::order, ColumnValues::defaultOrder)},
            {false, 2}};
        if (const auto order = StoredColumnOrder(columns))
            Require(*order == std::vector<int>({0, 1, 2}), "an order that is none");
        const std::string text(Token(random));
        filter.PassesCell(text, ReadDimNumber(text).value, static_cast<std::uint32_t>(1 + random.Below(2)));
        if (random.OneIn(4)) {
            settings.SetFilter("A", filter);
            const nuxDimFilter again = settings.Filter("A");
            Require(again.Type() == filter.Type() && again.Database() == filter.Database(),
                    "a filter of another kind");
            Require(again.Text() == filter.Text(), "a filter of another text");
        }
        return filter.Type() <= FilterStringEqual;
    }

private:
    const Samples& samples_;
};

/// Values as such, and what the registry makes of them.
class RegistryValues : public Reader {
public:
    explicit RegistryValues(const Samples&) {}

    bool Read(Random& random) override {
        const RegistryValue value = AnyValue(random);
        const bool taken = Look(value, random);
        if (random.OneIn(16)) {
            const StoredSettings stored(key);
            CRegistry registry(HKEY_LOCAL_MACHINE);
            const std::string name = random.OneIn(4) ? std::string() : std::string(Token(random));
            if (registry.SetValue(key, name, value)) {
                RegistryValue read;
                if (registry.QueryValue(key, name, &read)) {
                    Require(read.Type() == value.Type(), "a value of another type");
                    Look(read, random);
                }
                CountingVisitor visitor;
                visitor.Enumerate(key, CRegistry::visitValues | CRegistry::visitKeys);
                Require(visitor.values >= 1, "a value that the walk misses");
                registry.Delete(key, name.c_str());
            }
        }
        return taken;
    }

private:
    static constexpr char key[] = "Software\\nux mutations";

    struct CountingVisitor : CRegistry {
        CountingVisitor() : CRegistry(HKEY_LOCAL_MACHINE) {}
        int OnValue(const std::string&, const std::string&, const RegistryValue&, int) override {
            return ++values;
        }
        int values = 0;
    };

    static bool Look(const RegistryValue& value, Random& random) {
        const char* text = nullptr;
        const bool isText = value.AsString(&text);
        if (isText)
            Require(std::strlen(text) <= value.Size(), "a text beyond its bytes");
        DWORD number = 0;
        const bool isNumber = value.AsNumber(&number);
        std::vector<char> bytes(random.OneIn(2) ? value.Size() : random.Below(64));
        const bool isBinary = value.AsBinary(bytes.data(), bytes.size());
        if (isBinary)
            Require(bytes.empty() || std::memcmp(bytes.data(), value.Data(), bytes.size()) == 0,
                    "other bytes");
        return isText || isNumber || isBinary;
    }
};

class Languages : public Reader {
public:
    explicit Languages(const Samples&) {
        for (const Language& language : LanguageTable())
            names_.emplace_back(language.name);
    }

    bool Read(Random& random) override {
        const auto id =
            random.OneIn(2) ? random.Pick(LanguageTable()).id : static_cast<std::uint16_t>(random.Next());
        Require(!LanguageName(id).empty(), "a language without a name");
        const std::string folder = MutatedText(random, names_);
        const std::string chosen =
            ChooseInterfaceLanguage(id, [&](std::string_view name) { return name == folder; });
        Require(chosen.empty() || chosen == folder, "a language that is not installed");
        const std::string name = MutatedText(random, names_);
        Require(name.starts_with(ShortLanguageName(name)), "a short name of another language");
        const std::string module = ResourceModulePath(LocaleFolder(folder), name);
        Require(module.ends_with(name + "\\resource.dll"), "another file");
        return !chosen.empty();
    }

private:
    std::vector<std::string> names_;
};

constexpr ReaderKind kinds[] = {
    {"filters", "stored filters, widths, orders and frames", 100, 0, Make<StoredFilters>},
    {"registry", "registry values of any type and content", 1000, 0, Make<RegistryValues>},
    {"languages", "language identifiers, folders and file names", 1640, 0, Make<Languages>}};

}  // namespace

RegistryValue AnyValue(Random& random) {
    RegistryValue value;
    switch (random.Below(8)) {
        case 0:
            value.SetNumber(static_cast<DWORD>(random.OneIn(2) ? random.Below(8) : random.Next()));
            break;
        case 1:
            value.SetString(std::string(Token(random)), random.OneIn(4));
            break;
        default: {
            std::string bytes = MutatedText(random, {"text", std::string(4, '\1'), "1.5"});
            if (random.OneIn(1'000))
                bytes.resize(100'000, 'x');
            const auto type = static_cast<DWORD>(random.OneIn(16) ? random.Next() : random.Below(12));
            BYTE* target = value.Allocate(type, static_cast<DWORD>(bytes.size()));
            std::copy(bytes.begin(), bytes.end(), target);
        }
    }
    return value;
}

void StoredSettings::Mutate(Random& random, const std::string& below,
                            std::span<const char* const> names) const {
    const std::string path = below.empty() ? key_ : key_ + "\\" + below;
    UniqueKey key;
    if (RegCreateKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, key.Receive(),
                        nullptr))
        return;
    for (const char* name : names) {
        if (random.OneIn(3))
            continue;
        const RegistryValue value = AnyValue(random);
        RegSetValueExA(key.Get(), name, 0, value.Type(), value.Data(), value.Size());
    }
}

std::span<const ReaderKind> SettingsReaders() noexcept {
    return kinds;
}

}  // namespace nux
