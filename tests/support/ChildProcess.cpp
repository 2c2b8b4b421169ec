#include "tests/support/ChildProcess.h"

#include <gtest/gtest.h>

namespace nux {

ChildProcess::ChildProcess(std::string commandLine) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE write = nullptr;
    EXPECT_TRUE(CreatePipe(&output_, &write, &inherited, 0));
    SetHandleInformation(output_, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = write;
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &process_))
        ADD_FAILURE() << "can't start " << commandLine;
    CloseHandle(write);
}

ChildProcess::~ChildProcess() {
    TerminateProcess(process_.hProcess, 1);  // does nothing to one that has ended
    CloseHandle(process_.hProcess);
    CloseHandle(process_.hThread);
    CloseHandle(output_);
}

Ended ChildProcess::Wait() {
    Ended ended{};
    char part[4096];
    DWORD length = 0;
    while (ReadFile(output_, part, sizeof part, &length, nullptr) && length > 0)
        ended.output.append(part, length);
    WaitForSingleObject(process_.hProcess, INFINITE);
    GetExitCodeProcess(process_.hProcess, &ended.exitCode);
    return ended;
}

Ended RunProgram(const std::string& program, const std::string& arguments) {
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string own = path;
    return ChildProcess("\"" + own.substr(0, own.rfind('\\') + 1) + program + ".exe\" " + arguments).Wait();
}

}  // namespace nux
