#pragma once

#include <windows.h>

#include <atomic>
#include <string>
#include <vector>

namespace driver {

/// Text of a window as the system holds it, in the ANSI code page; sends no message.
std::string TextOf(HWND window);

/// Class name of a window.
std::string ClassOf(HWND window);

/// The windows of one thread or one process, as its user sees them.
class Application {
public:
    static Application OfThread(DWORD thread) { return Application(0, thread); }
    static Application OfProcess(DWORD process) { return Application(process, 0); }

    /// The visible top-level windows, topmost first.
    std::vector<HWND> Windows() const;

    /// Waits for a visible window that takes input, and returns it. A window below an open modal dialog takes
    /// none and is not found. `caption` null stands for any. All three throw NotSeen.
    HWND Window(const char* windowClass, const char* caption = nullptr) const;
    /// The same for a dialog, or a message box.
    HWND Dialog(const char* caption) const { return Window("#32770", caption); }
    /// Waits for the window of a popup menu.
    HWND MenuWindow() const { return Window("#32768"); }

    /// Whether there is such a window at this moment.
    bool Shows(const char* windowClass, const char* caption = nullptr) const;

protected:
    /// The windows of a thread that shows none any more as soon as `ended` is true, so that waiting makes no
    /// sense.
    Application(DWORD thread, const std::atomic<bool>& ended) : thread_(thread), ended_(&ended) {}

private:
    Application(DWORD process, DWORD thread) : process_(process), thread_(thread) {}
    HWND Find(const char* windowClass, const char* caption) const;

    DWORD process_ = 0;
    DWORD thread_ = 0;
    const std::atomic<bool>* ended_ = nullptr;
};

/// Waits until a window is destroyed. Throws NotSeen.
void WaitUntilGone(HWND window);

}  // namespace driver
