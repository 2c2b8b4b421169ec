#pragma once

#include <windows.h>

#include <functional>

namespace nux {

/// A top-level window of the tested thread: the host's window, and the way to have the tested thread do
/// something while it is in a modal loop.
class TestedThreadWindow {
public:
    TestedThreadWindow();
    TestedThreadWindow(const TestedThreadWindow&) = delete;
    TestedThreadWindow& operator=(const TestedThreadWindow&) = delete;
    ~TestedThreadWindow();

    HWND Handle() const { return window_; }
    void Show() const;

    /// From any thread: the tested thread does it as soon as it takes the message. `deed` must live until
    /// then.
    void Do(const std::function<void()>& deed) const;

private:
    HWND window_;
};

}  // namespace nux
