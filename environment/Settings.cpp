#include "environment/Settings.h"

#include "environment/Registry.h"

namespace nux {
namespace {

std::string& Version() noexcept {
    static std::string version;
    return version;
}

}  // namespace

const std::string& ProductVersion() noexcept {
    return Version();
}

void ReadProductVersion() {
    RegistryValue value;
    const char* text = nullptr;
    if (CRegistry(HKEY_LOCAL_MACHINE)
            .QueryValue("Software\\Orvenna\\Exec\\Tarnvale", "CurrentVersion", &value) &&
        value.AsString(&text))
        Version() = text;
}

std::string GetRegistryRoot() {
    return "Software\\Orvenna\\Tarnvale\\" + ProductVersion();
}

}  // namespace nux
