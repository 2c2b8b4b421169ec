// A program that uses the environment from the start of its process, or until its end. The tests run it where
// they need a process of their own:
//     fresh_process log FILE KIND TEXT...    writes entries; KIND is "plain", "stamped", "fatal" or "none"
//     fresh_process unstarted                tells what holds before the environment was started
//     fresh_process separators               tells how many characters count as decimal separators then
//     fresh_process started GUIPATH          starts the environment and tells what holds then

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "environment/DiagnosticLog.h"
#include "environment/Environment.h"
#include "environment/InstallationPaths.h"
#include "environment/Localisation.h"
#include "environment/Settings.h"
#include "framework/Module.h"

namespace {

using namespace nux;

int WriteEntries(const std::string& file, const std::string& kind, char** texts) {
    std::atexit([] {
        std::puts("exit handlers ran");
        std::fflush(stdout);
    });
    SetLogFile(file);
    for (; *texts && kind != "none"; ++texts) {
        if (kind == "stamped")
            WriteStampedLogEntry(*texts);
        else
            WriteLogEntry(kind == "fatal", 0, 0, 0, *texts);
        std::puts("entry written");
        std::fflush(stdout);
    }
    return 0;
}

void Tell() {
    std::printf("version:%s\nroot:%s\nlanguage:%s\nlogging:%d\nseparator:%s\nOK is:%s\n",
                ProductVersion().c_str(), GetRegistryRoot().c_str(), InterfaceLanguage().c_str(),
                IsLoggingEnabled(), DecimalSeparator(), GetLocalizedMessage("", "OK").c_str());
}

}  // namespace

int main(int count, char** arguments) {
    const std::string command = count > 1 ? arguments[1] : "";
    SetThisModule(GetModuleHandleA(nullptr));
    if (command == "log" && count > 3)
        return WriteEntries(arguments[2], arguments[3], arguments + 4);
    if (command == "separators") {
        int separators = 0;
        for (int character = -128; character < 128; ++character)
            separators += IsDecimalSeparator(static_cast<char>(character));
        std::printf("separators: %d\n", separators);
        return 0;
    }
    if (command == "started" && count > 2) {
        Installation().gui = arguments[2];
        std::printf("start:%d\n", InitEnvironment());
    } else if (command != "unstarted") {
        return 2;
    }
    Tell();
    return 0;
}
