#pragma once

#include <windows.h>

#include <algorithm>
#include <array>

namespace nux {

/// Looks at the messages of a loop before they are dispatched.
class MessageFilter {
public:
    virtual ~MessageFilter() = default;
    /// @return true to keep the message from its window
    virtual bool PreTranslateMessage(const MSG& message) = 0;
};

/// Keeps the messages from all windows but the three of a quick filter: its frame, pager and list. The run of
/// the quick filter does without it, so that the host keeps on working meanwhile.
class nuxQFWindowMessageFilter : public MessageFilter {
public:
    explicit nuxQFWindowMessageFilter(const std::array<HWND, 3>& windows) noexcept : windows_(windows) {}

    bool PreTranslateMessage(const MSG& message) override {
        return message.hwnd && std::find(windows_.begin(), windows_.end(), message.hwnd) == windows_.end();
    }

private:
    std::array<HWND, 3> windows_;
};

}  // namespace nux
