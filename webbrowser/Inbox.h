#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>

#include "framework/Handles.h"
#include "framework/Window.h"

namespace nux::webbrowser {

/// What other threads leave for one thread to do, when it serves its messages or waits here. It is held by
/// shared pointers: whoever does something of it may let go of it.
class Inbox : public Window, public std::enable_shared_from_this<Inbox> {
public:
    struct Item {
        const void* owner;  ///< whom it is about; null for nobody
        bool isUrgent;      ///< its owner's waiting calls may need it to come to an end
        std::function<void()> run;
    };

    /// Waits serve nothing but what they need for so long; then all messages of the thread.
    static constexpr DWORD exclusiveMilliseconds = 50;

    /// The one of this thread, made if there is none. Throws HResultError.
    static std::shared_ptr<Inbox> OfThisThread();

    Inbox();
    ~Inbox() override;

    /// From any thread.
    void Post(Item item);

    /// Serves until `isDone`. On the inbox's thread.
    /// @param owner      whose urgent items are served from the begin; those of nobody are served always
    /// @param exclusive  milliseconds after which all other messages are served too
    void ServeUntil(const void* owner, const std::function<bool()>& isDone,
                    DWORD exclusive = exclusiveMilliseconds);

private:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool ServeOne(const void* onlyOwner, bool all);
    void ServeMessages();

    SRWLOCK lock_ = SRWLOCK_INIT;
    std::deque<Item> items_;
    bool isPosted_ = false;  ///< a message for the window is under way
    UniqueKernelHandle arrived_;
    DWORD thread_ = GetCurrentThreadId();
};

}  // namespace nux::webbrowser
