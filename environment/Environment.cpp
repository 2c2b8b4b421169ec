#include "environment/Environment.h"

#include <windows.h>

#include <cstring>
#include <map>
#include <string>

#include "environment/DiagnosticLog.h"
#include "environment/InstallationFiles.h"
#include "environment/Localisation.h"
#include "environment/Settings.h"
#include "framework/DebugOutput.h"
#include "framework/Module.h"
#include "framework/Text.h"

namespace nux {
namespace {

char decimalSeparator[5] = "";

void SwitchResources(const std::string& language) {
    // What has been loaded is never freed, as windows may read it at any time. As data a module would be
    // mapped once more each time: those that are known are taken again.
    static std::map<std::string, HMODULE> known;
    const std::string path = ResourceModulePath(GetLocaleFolder(), language);
    HMODULE& module = known[path];
    // As data: no code of a language's module runs, and one of either word size serves.
    if (!module)
        module =
            LoadLibraryExA(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    if (module)
        SetResourceModule(module);
}

bool ReadDecimalSeparator() noexcept {
    // Not read in place: a separator that is too long would be written in part.
    char separator[sizeof decimalSeparator];
    if (!GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, sizeof separator))
        return false;
    std::strcpy(decimalSeparator, separator);
    return true;
}

}  // namespace

bool InitEnvironment() {
    ReadProductVersion();
    SetInterfaceLanguage(DetermineInterfaceLanguage());
    if (!InterfaceLanguage().empty())
        SwitchResources(InterfaceLanguage());
    else
        TellDebugger(L"no folder of the user's language in " + Widen(GetLocaleFolder()) + L".");
    const bool separatorRead = ReadDecimalSeparator();
    std::string logFile;
    if (CRegistry(HKEY_LOCAL_MACHINE).GetStringValue(GetRegistryRoot(), "DebugOutputFile", &logFile))
        SetLogFile(logFile);
    return separatorRead;
}

const char* DecimalSeparator() noexcept {
    return decimalSeparator;
}

bool IsDecimalSeparator(char character) noexcept {
    return character != '\0' && std::strchr(decimalSeparator, character);
}

}  // namespace nux
