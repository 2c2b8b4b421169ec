#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "framework/Handles.h"

namespace nux::webbrowser {

/// What was started and how one speaks to it: the one place that knows. Here a Chromium of the system below
/// Wine, through its remote debugging pipe.
///
/// Its folder, with the profile, is its user's alone and goes when it ends; it ends with this object, and
/// with this process however that ends.
class BrowserProcess {
public:
    /// Starts it and returns when it answers.
    /// @param onMessage  gets each message, on a thread of this object, which calls no COM
    /// @param onEnd      is called there once, when nothing comes any more
    /// Throws HResultError, with words for the user.
    BrowserProcess(std::function<void(std::string)> onMessage, std::function<void()> onEnd);
    BrowserProcess(const BrowserProcess&) = delete;
    BrowserProcess& operator=(const BrowserProcess&) = delete;
    /// Ends it and waits for the thread: not to be called on that.
    ~BrowserProcess();

    /// Writes a message. From any thread, one at a time. @return false if nobody reads any more
    bool Write(const std::string& message) noexcept;

private:
    static DWORD WINAPI ReaderThread(void* self) noexcept;
    void Read() noexcept;
    void ReadMessages();
    void End() noexcept;

    std::function<void(std::string)> onMessage_;
    std::function<void()> onEnd_;
    UniqueFile in_;
    UniqueFile out_;
    std::string folder_;
    UniqueKernelHandle started_;  ///< an event: the first answer, or the end
    bool isThere_ = false;        ///< what is to be started; written before `started_` is set
    bool answers_ = false;        ///< likewise
    UniqueKernelHandle thread_;
};

}  // namespace nux::webbrowser
