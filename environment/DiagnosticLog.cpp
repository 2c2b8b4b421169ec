#include "environment/DiagnosticLog.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "framework/Handles.h"

namespace nux {
namespace {

std::string& LogFile() noexcept {
    static std::string path;
    return path;
}

}  // namespace

bool IsLoggingEnabled() noexcept {
    return !LogFile().empty();
}

void SetLogFile(const std::string& path) {
    LogFile() = path;
}

void ClearLogFile() noexcept {
    std::string().swap(LogFile());
}

int WriteLogEntry(bool fatal, int, int, int, std::string text, ...) {
    if (fatal)
        text += '\n';
    if (!IsLoggingEnabled())
        return 0;
    {
        const UniqueFile file(CreateFileA(LogFile().c_str(), GENERIC_READ | GENERIC_WRITE,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file)
            std::exit(-1);
        LONG high = 0;  // without it the end of a log beyond 4 GB is not found
        SetFilePointer(file.Get(), 0, &high, FILE_END);
        DWORD written = 0;
        WriteFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    }
    if (fatal)
        TerminateProcess(GetCurrentProcess(), static_cast<UINT>(-1));
    return 0;
}

void WriteStampedLogEntry(const std::string& text) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    char stamp[64];
    std::snprintf(stamp, sizeof stamp, "%02u/%02u/%02u %02u:%02u:%02u ", now.wMonth, now.wDay,
                  now.wYear % 100u, now.wHour, now.wMinute, now.wSecond);
    WriteLogEntry(false, 0, 0, 0, stamp + text);
}

}  // namespace nux
