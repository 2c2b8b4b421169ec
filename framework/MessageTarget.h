#pragma once

#include <windows.h>

#include <exception>

#include "framework/PixelGeometry.h"

namespace nux {

/// What windows, dialogs and subclassed controls share: the handle, and the way of an exception through the
/// platform's code. No exception leaves a message procedure. The first one is kept by the outermost owner,
/// which raises it again once the platform has returned to it: who has an owner has nothing to remember.
class MessageTarget {
public:
    MessageTarget(const MessageTarget&) = delete;
    MessageTarget& operator=(const MessageTarget&) = delete;

    /// The window, or null while there is none.
    HWND Handle() const noexcept { return handle_; }

protected:
    /// @param owner  whose run this belongs to and which lives longer; null for one that runs or is made by
    /// itself
    explicit MessageTarget(MessageTarget* owner = nullptr) noexcept : owner_(owner) {}
    virtual ~MessageTarget() = default;

    /// Told after a handler of this, or of one that it owns, threw: to end its run. The exception is kept
    /// already.
    virtual void OnFailure() noexcept {}

    /// Raises the exception that is kept, if there is one.
    void RethrowFailure();

    /// Runs a handler. An exception is kept, and `fallback` is the answer.
    template <class Handler>
    LRESULT Contain(LRESULT fallback, Handler&& handler) noexcept {
        try {
            return handler();
        } catch (...) {
            Keep(std::current_exception());
            return fallback;
        }
    }

    HWND handle_ = nullptr;

private:
    MessageTarget& Outermost() noexcept { return owner_ ? owner_->Outermost() : *this; }
    void Keep(std::exception_ptr failure) noexcept;

    MessageTarget* owner_;
    std::exception_ptr failure_;
};

/// The screen pixels of a window with its frame; empty without a window.
inline RECT WindowRectangle(HWND window) noexcept {
    RECT rectangle{};
    GetWindowRect(window, &rectangle);
    return rectangle;
}

inline PixelRectangle ToPixels(const RECT& rectangle) noexcept {
    return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

}  // namespace nux
