#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace nux {

/// Stands before the procedure of a window of another thread and writes down which messages come.
class MessageRecorder {
public:
    /// Words for a message, empty for one that doesn't matter. Called by the window's thread.
    using Words = std::function<std::string(UINT message, WPARAM wParam, LPARAM lParam)>;

    MessageRecorder(HWND window, Words words) : window_(window), words_(std::move(words)) {
        original = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_WNDPROC));
        current = this;
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
    }
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;
    ~MessageRecorder() {
        SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original.load()));
        current = nullptr;
    }

    /// What has come, and is forgotten with that. The window's thread must be waiting for input.
    std::vector<std::string> Take() { return std::exchange(seen_, {}); }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (MessageRecorder* const self = current) {
            std::string words = self->words_(message, wParam, lParam);
            if (!words.empty())
                self->seen_.push_back(std::move(words));
        }
        return CallWindowProcA(original, window, message, wParam, lParam);
    }

    // A message may be under way when the recorder goes.
    static inline std::atomic<WNDPROC> original = nullptr;
    static inline std::atomic<MessageRecorder*> current = nullptr;

    HWND window_;
    Words words_;
    std::vector<std::string> seen_;
};

}  // namespace nux
