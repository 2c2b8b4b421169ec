#include "webbrowser/Clipboard.h"

#include <cwchar>

namespace nux::webbrowser {
namespace {

/// Open for as long as it lives. Another program that has it open lets go of it soon.
class OpenedClipboard {
public:
    explicit OpenedClipboard(HWND window) noexcept {
        constexpr int attempts = 20;
        constexpr DWORD pause = 10;  // milliseconds
        for (int i = 0; i < attempts && !isOpen_; ++i) {
            if (i > 0)
                Sleep(pause);
            isOpen_ = OpenClipboard(window) != FALSE;
        }
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard() {
        if (isOpen_)
            CloseClipboard();
    }
    explicit operator bool() const noexcept { return isOpen_; }

private:
    bool isOpen_ = false;
};

std::wstring WithPlatformsLines(std::wstring_view text) {
    std::wstring lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\n' && (i == 0 || text[i - 1] != L'\r'))
            lines += L'\r';
        lines += text[i];
    }
    return lines;
}

}  // namespace

std::wstring ClipboardText(HWND window) {
    const OpenedClipboard clipboard(window);
    const HANDLE memory = clipboard ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* const text = memory ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
    if (!text)
        return {};
    std::wstring copy(text, wcsnlen(text, GlobalSize(memory) / sizeof(wchar_t)));
    GlobalUnlock(memory);
    std::erase(copy, L'\r');
    return copy;
}

bool SetClipboardText(HWND window, std::wstring_view text) {
    const std::wstring lines = WithPlatformsLines(text);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (lines.size() + 1) * sizeof(wchar_t));
    auto* const copy = memory ? static_cast<wchar_t*>(GlobalLock(memory)) : nullptr;
    if (copy) {
        std::wmemcpy(copy, lines.c_str(), lines.size() + 1);
        GlobalUnlock(memory);
        const OpenedClipboard clipboard(window);
        if (clipboard && EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory))
            return true;  // which owns it now
    }
    GlobalFree(memory);
    return false;
}

}  // namespace nux::webbrowser
