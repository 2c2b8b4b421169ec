#pragma once

#include <windows.h>

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "environment/RegistryValue.h"
#include "tests/mutations/Mutation.h"

namespace nux {

/// A registry value of any type, with bytes that mostly don't fit it.
RegistryValue AnyValue(Random& random);

/// A key below HKEY_LOCAL_MACHINE whose values are made up; it goes with all that is below it.
class StoredSettings {
public:
    explicit StoredSettings(std::string key) : key_(std::move(key)) {}
    StoredSettings(const StoredSettings&) = delete;
    StoredSettings& operator=(const StoredSettings&) = delete;
    ~StoredSettings() { RegDeleteTreeA(HKEY_LOCAL_MACHINE, key_.c_str()); }

    static constexpr const char* ofFrame[] = {"x", "y", "dx", "dy"};
    static constexpr const char* ofColumn[] = {"Width",        "Order",      "FilterType", "Database",
                                               "FilterString", "LowerLimit", "UpperLimit"};

    /// Writes some of the values of a key below: some as the component itself would, others of any kind.
    void Mutate(Random& random, const std::string& below, std::span<const char* const> names) const;

private:
    std::string key_;
};

}  // namespace nux
