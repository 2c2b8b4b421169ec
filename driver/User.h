#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <string>
#include <vector>

#include "driver/Application.h"

namespace driver {

/// Who works the windows of the tested thread, from a thread of its own.
class User : public Application {
public:
    /// `barrier` is a window of the tested thread that belongs to the test; `ended` tells that the tested
    /// call has returned.
    User(DWORD thread, HWND barrier, const std::atomic<bool>& ended)
        : Application(thread, ended), barrier_(barrier) {}

    /// Waits until the tested thread has taken whatever was posted to its windows before this call: it is
    /// back in a message loop, be it the same one or that of a window that has opened meanwhile. Real input
    /// (PointerInput.h) comes by another way, and only its effect can be waited for. Throws NotSeen.
    void Settle();

private:
    HWND barrier_;
};

/// Does `work` on this thread, which opens modal windows and returns when the last one is gone, while `user`
/// works these windows from a second thread. Windows that are still open when `user` has ended are dismissed,
/// so that `work` returns.
/// @return what went wrong: what `user` or `work` threw, and windows that `user` left open without a failure
std::vector<std::string> Play(const std::function<void()>& work, const std::function<void(User&)>& user);

}  // namespace driver
