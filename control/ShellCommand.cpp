#include "control/ShellCommand.h"

#include <cstddef>

namespace nux {
namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";
constexpr std::size_t longestPart = 255;

bool IsSeparator(char character) {
    return character == '\\' || character == '/';
}

/// "C:", or empty. No second half of a character looks like a colon.
std::string_view DriveOf(std::string_view path) {
    return path.substr(0, path.size() >= 2 && path[1] == ':' ? 2 : 0);
}

}  // namespace

std::optional<PathParts> SplitPath(std::string_view path, IsLeadByte isLeadByte) {
    PathParts parts;
    parts.drive = DriveOf(path);
    path.remove_prefix(parts.drive.size());
    std::size_t name = 0;
    std::size_t dot = std::string_view::npos;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (isLeadByte(static_cast<unsigned char>(path[i]))) {
            ++i;
        } else if (IsSeparator(path[i])) {
            name = i + 1;
            dot = std::string_view::npos;
        } else if (path[i] == '.') {
            dot = i;
        }
    }
    parts.folder = path.substr(0, name);
    parts.name = path.substr(name, dot == std::string_view::npos ? dot : dot - name);
    if (dot != std::string_view::npos)
        parts.extension = path.substr(dot);
    if (parts.folder.size() > longestPart || parts.extension.size() > longestPart)
        return std::nullopt;
    return parts;
}

std::optional<std::string> ProgramOfCommand(std::string_view command) {
    const std::size_t start = command.find_first_not_of(whiteSpace);
    if (start == std::string_view::npos)
        return std::nullopt;
    command = command.substr(start, command.find_last_not_of(whiteSpace) + 1 - start);
    const bool quoted = command.front() == '"';
    if (quoted)
        command.remove_prefix(1);
    const std::size_t end = command.find(quoted ? '"' : ' ');
    if (end == std::string_view::npos)
        return std::nullopt;
    return std::string(command.substr(0, end));
}

std::string PathForBrowser(const std::string& path, const PathParts& parts, const std::string& current) {
    if (!parts.drive.empty())
        return path;
    if (!parts.folder.empty() && IsSeparator(parts.folder.front()))
        return std::string(DriveOf(current)) + path;
    return current + "\\" + path;
}

}  // namespace nux
