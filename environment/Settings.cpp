#include "environment/Settings.h"

namespace nux {
namespace {

constexpr char left[] = "x";
constexpr char top[] = "y";
constexpr char widthAboveMinimum[] = "dx";
constexpr char heightAboveMinimum[] = "dy";

std::string& Version() noexcept {
    static std::string version;
    return version;
}

}  // namespace

const std::string& ProductVersion() noexcept {
    return Version();
}

void ReadProductVersion() {
    CRegistry(HKEY_LOCAL_MACHINE)
        .GetStringValue("Software\\Orvenna\\Exec\\Tarnvale", "CurrentVersion", &Version());
}

std::string GetRegistryRoot() {
    return "Software\\Orvenna\\Tarnvale\\" + ProductVersion();
}

DialogFrame ReadDialogFrame(CRegistry& registry, const std::string& key, const DialogFrame& initial) {
    const auto read = [&](const char* name, int fallback) {
        auto number = static_cast<DWORD>(fallback);
        registry.GetDWORDValue(key, name, &number);
        return static_cast<int>(number);
    };
    return {{read(left, initial.position.x), read(top, initial.position.y)},
            {read(widthAboveMinimum, initial.aboveMinimum.width),
             read(heightAboveMinimum, initial.aboveMinimum.height)}};
}

void WriteDialogFrame(CRegistry& registry, const std::string& key, const DialogFrame& frame) {
    const auto write = [&](const char* name, int number) {
        const auto stored = static_cast<DWORD>(number);
        registry.SetDWORDValue(key, name, &stored);
    };
    write(left, frame.position.x);
    write(top, frame.position.y);
    write(widthAboveMinimum, frame.aboveMinimum.width);
    write(heightAboveMinimum, frame.aboveMinimum.height);
}

}  // namespace nux
