#include "tests/support/ChildProcess.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "framework/Handles.h"

namespace nux {
namespace {

struct PlainHandleTraits {
    using Type = HANDLE;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { CloseHandle(handle); }
};
using PlainHandle = UniqueHandle<PlainHandleTraits>;

std::string OwnFolder() {
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string text = path;
    return text.substr(0, text.rfind('\\') + 1);
}

}  // namespace

Ended RunProgram(const std::string& program, const std::string& arguments) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    PlainHandle read;
    PlainHandle write;
    EXPECT_TRUE(CreatePipe(read.Receive(), write.Receive(), &inherited, 0));
    SetHandleInformation(read.Get(), HANDLE_FLAG_INHERIT, 0);

    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = write.Get();
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    std::string commandLine = "\"" + OwnFolder() + program + ".exe\" " + arguments;
    if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &process)) {
        ADD_FAILURE() << "can't start " << commandLine;
        return {};
    }
    const PlainHandle running(process.hProcess);
    const PlainHandle thread(process.hThread);
    write.Reset();

    Ended ended{};
    char buffer[4096];
    DWORD size = 0;
    while (ReadFile(read.Get(), buffer, sizeof buffer, &size, nullptr) && size > 0)
        ended.output.append(buffer, size);
    WaitForSingleObject(running.Get(), INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(running.Get(), &code);
    ended.exitCode = code;
    return ended;
}

}  // namespace nux
