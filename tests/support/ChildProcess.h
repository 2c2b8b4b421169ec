#pragma once

#include <windows.h>

#include <string>

#include "driver/Application.h"

namespace nux {

/// How a program ended.
struct Ended {
    DWORD exitCode;
    std::string output;  ///< what it wrote to its standard output
};

/// A program that runs beside the test. It is ended with this object.
class ChildProcess {
public:
    explicit ChildProcess(std::string commandLine);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    driver::Application Windows() const { return driver::Application::OfProcess(process_.dwProcessId); }
    /// Waits for its end.
    Ended Wait();

private:
    PROCESS_INFORMATION process_{};
    HANDLE output_ = nullptr;
};

/// Runs a program that lies beside this one and waits for its end.
/// @param program    file name without folder and extension
/// @param arguments  the rest of the command line, quoted as need be
Ended RunProgram(const std::string& program, const std::string& arguments);

}  // namespace nux
