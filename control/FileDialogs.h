#pragma once

#include <windows.h>

#include <array>
#include <optional>
#include <string>

namespace nux {

// The platform's dialogs that ask for a file or a folder. One that is run again starts with what was chosen
// last. All throw std::bad_alloc.

/// Asks for the name of a file to save.
class SaveFileDialog {
public:
    /// @param parent            owner window, or null
    /// @param defaultExtension  added to a name without one; without a dot; may be empty
    /// @param fileName          the name that stands there first; cut to what the platform's dialog takes
    SaveFileDialog(HWND parent, std::string defaultExtension, const std::string& fileName);

    /// @param filter  pairs of a description and patterns, all joined with "|": "IGES|*.igs"; may be empty
    /// @return the path, or nothing if the user cancels
    std::optional<std::string> Run(const std::string& title, std::string filter);

private:
    HWND parent_;
    std::string defaultExtension_;
    std::array<char, MAX_PATH> fileName_{};  ///< keeps what was chosen
};

/// Asks for a folder of the file system.
class FolderDialog {
public:
    explicit FolderDialog(HWND parent) noexcept : parent_(parent) {}

    /// @return the path as the platform gives it, or nothing if the user cancels
    std::optional<std::string> Run(const std::string& title);

private:
    HWND parent_;
    std::string chosen_;
};

}  // namespace nux
