#pragma once

#include <windows.h>

namespace nux::host {

/// How the user left the main window. Kept under HKEY_CURRENT_USER\Software\Orvenna\SampleHost.
struct WindowPlace {
    RECT bounds{};  ///< of the window that is not maximised; empty for a place of the system's choice
    bool maximised = false;
    bool showsCalls = true;

    /// What was saved last. A place that no screen shows any more is forgotten.
    static WindowPlace Load() noexcept;
    void Save() const noexcept;
};

}  // namespace nux::host
