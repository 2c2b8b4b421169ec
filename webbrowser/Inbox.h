#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>

#include "framework/Handles.h"
#include "framework/Window.h"

namespace nux::webbrowser {

/// What other threads leave for one thread to do, when it serves its messages or waits here.
class Inbox : public Window, public std::enable_shared_from_this<Inbox> {
public:
    struct Item {
        const void* owner;  ///< whom it is about; null for nobody
        bool isUrgent;      ///< its owner's waiting calls may need it to come to an end
        std::function<void()> run;
    };

    /// Where others put items. It may be let go of by any thread; the inbox itself, with its window, only by
    /// its own.
    class Slot {
    public:
        /// From any thread. Once there is no inbox any more, nothing happens.
        void Post(Item item);

    private:
        friend class Inbox;
        SRWLOCK lock_ = SRWLOCK_INIT;
        std::deque<Item> items_;
        HWND window_ = nullptr;
        bool isPosted_ = false;  ///< a message for the window is under way
        UniqueKernelHandle arrived_;
    };

    /// Waits serve nothing but what they need for so long; then all messages of the thread.
    static constexpr DWORD exclusiveMilliseconds = 50;

    /// The one of this thread, made if there is none. Throws HResultError.
    static std::shared_ptr<Inbox> OfThisThread();

    Inbox();
    ~Inbox() override;

    const std::shared_ptr<Inbox::Slot>& GetSlot() const noexcept { return slot_; }
    void Post(Item item) { slot_->Post(std::move(item)); }

    /// Serves until `isDone`. On the inbox's thread.
    /// @param owner      whose urgent items are served from the begin; those of nobody are served always
    /// @param exclusive  milliseconds after which all other messages are served too
    /// Throws HResultError with RPC_E_CALL_CANCELED when the thread is to end: WM_QUIT stays for its own
    /// loop.
    void ServeUntil(const void* owner, const std::function<bool()>& isDone,
                    DWORD exclusive = exclusiveMilliseconds);

private:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool ServeOne(const void* onlyOwner, bool all);
    bool ServeMessage();

    std::shared_ptr<Slot> slot_ = std::make_shared<Slot>();
    DWORD thread_ = GetCurrentThreadId();
};

}  // namespace nux::webbrowser
