#pragma once

#include <cstdint>
#include <string>

namespace nux {

/// How a program ended.
struct Ended {
    std::uint32_t exitCode;
    std::string output;  ///< what it wrote to its standard output
};

/// Runs a program that lies beside this one and waits for its end.
/// @param program    file name without folder and extension
/// @param arguments  the rest of the command line, quoted as need be
Ended RunProgram(const std::string& program, const std::string& arguments);

}  // namespace nux
