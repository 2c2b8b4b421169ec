#include "driver/Application.h"

#include "driver/Waiting.h"

namespace driver {
namespace {

BOOL CALLBACK AddVisible(HWND window, LPARAM list) {
    if (IsWindowVisible(window))
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

}  // namespace

std::string TextOf(HWND window) {
    wchar_t wide[1024];
    const int length = InternalGetWindowText(window, wide, 1024);
    char narrow[3 * 1024];
    return std::string(narrow,
                       WideCharToMultiByte(CP_ACP, 0, wide, length, narrow, sizeof narrow, nullptr, nullptr));
}

std::string ClassOf(HWND window) {
    char name[256];
    return std::string(name, GetClassNameA(window, name, sizeof name));
}

std::vector<HWND> Application::Windows() const {
    std::vector<HWND> all;
    EnumWindows(AddVisible, reinterpret_cast<LPARAM>(&all));
    std::erase_if(all, [this](HWND window) {
        DWORD process = 0;
        const DWORD thread = GetWindowThreadProcessId(window, &process);
        return thread_ ? thread != thread_ : process != process_;
    });
    return all;
}

HWND Application::Find(const char* windowClass, const char* caption) const {
    for (const HWND window : Windows())
        if (IsWindowEnabled(window) && ClassOf(window) == windowClass &&
            (!caption || TextOf(window) == caption))
            return window;
    return nullptr;
}

HWND Application::Window(const char* windowClass, const char* caption) const {
    const std::string sought = std::string("a window of class ") + windowClass + (caption ? " called " : "") +
                               (caption ? caption : "");
    return WaitFor(sought, [&] {
        const bool ended = ended_ && *ended_;
        const HWND found = Find(windowClass, caption);
        if (!found && ended)
            throw NotSeen(sought + ": the tested call has returned");
        return found;
    });
}

bool Application::Shows(const char* windowClass, const char* caption) const {
    return Find(windowClass, caption) != nullptr;
}

void WaitUntilGone(HWND window) {
    WaitFor("the end of a window", [&] { return !IsWindow(window); });
}

}  // namespace driver
