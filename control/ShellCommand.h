#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace nux {

// The decisions of opening a file with its application. `isLeadByte` tells which bytes start a double-byte
// character, whose second byte may look like a separator.

using IsLeadByte = bool (*)(unsigned char byte);

/// The parts of a path. A folder or an extension that is longer than the platform's buffers (255 bytes) makes
/// the whole path one that can't be split.
struct PathParts {
    std::string drive;      ///< "C:", or empty
    std::string folder;     ///< with its closing separator, or empty
    std::string name;       ///< without its extension
    std::string extension;  ///< with its dot, or empty
};
std::optional<PathParts> SplitPath(std::string_view path, IsLeadByte isLeadByte);

/// The program of a class's open command: what stands in quotes at its start, or else what stands before its
/// first blank. White space around the command is cut off before.
/// @return nothing for a command that is empty, lacks the closing quote, or has neither a quote nor a blank
std::optional<std::string> ProgramOfCommand(std::string_view command);

/// The path that a browser gets, which would take a relative one for an address.
/// @param path     the file as the caller names it
/// @param current  the current folder, without a closing separator unless it is a root
std::string PathForBrowser(const std::string& path, const PathParts& parts, const std::string& current);

}  // namespace nux
