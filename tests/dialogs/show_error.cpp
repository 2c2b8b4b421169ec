// A program that shows an error while a log file is set, which ends its process:
//     show_error FILE KIND [TEXT]    KIND is "error" or "question"; without TEXT the standard one is meant

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "dialogs/nuxError.h"
#include "environment/DiagnosticLog.h"
#include "framework/Module.h"

int main(int count, char** arguments) {
    nux::SetThisModule(GetModuleHandleA(nullptr));
    if (count < 3)
        return 2;
    std::atexit([] {
        std::puts("exit handlers ran");
        std::fflush(stdout);
    });
    nux::SetLogFile(arguments[1]);
    const std::string text = count > 3 ? arguments[3] : "";
    if (std::string(arguments[2]) == "question")
        nux::nuxErrorWQ(0, text).Show(nullptr);
    else
        nux::nuxError(0, text).Show(nullptr);
    std::puts("still here");
    return 0;
}
