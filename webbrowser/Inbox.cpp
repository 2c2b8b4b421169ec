#include "webbrowser/Inbox.h"

#include <algorithm>
#include <map>

#include "framework/DebugOutput.h"
#include "framework/HResult.h"
#include "framework/Lock.h"

namespace nux::webbrowser {
namespace {

constexpr UINT itemsArrived = WM_APP;

/// Made at first use: before, the module doesn't know itself.
const WindowClass& InboxClass() noexcept {
    static const WindowClass windowClass("nuxWebBrowserInbox", 0, nullptr);
    return windowClass;
}

SRWLOCK inboxesLock = SRWLOCK_INIT;
std::map<DWORD, std::weak_ptr<Inbox>> inboxes;

void Run(const std::function<void()>& task) noexcept {
    try {
        task();
    } catch (const HResultError& error) {
        OutputDebugStringW((L"nuxWebBrowser: " + error.Words() + L"\n").c_str());
    } catch (const std::exception& error) {
        OutputDebugStringA(error.what());
    }
}

}  // namespace

std::shared_ptr<Inbox> Inbox::OfThisThread() {
    const DWORD thread = GetCurrentThreadId();
    Lock lock(inboxesLock);
    std::weak_ptr<Inbox>& known = inboxes[thread];
    std::shared_ptr<Inbox> inbox = known.lock();
    if (!inbox) {
        inbox = std::make_shared<Inbox>();
        known = inbox;
    }
    return inbox;
}

Inbox::Inbox() {
    slot_->arrived_ = UniqueKernelHandle(CreateEventA(nullptr, FALSE, FALSE, nullptr));
    if (!slot_->arrived_)
        throw HResultError(LastFailure());
    Create(InboxClass(), HWND_MESSAGE, RECT{}, 0);
    slot_->window_ = handle_;
}

Inbox::~Inbox() {
    {
        std::deque<Item> left;  // let go of after the lock
        Lock lock(slot_->lock_);
        slot_->window_ = nullptr;
        left.swap(slot_->items_);
    }
    Lock lock(inboxesLock);
    const auto known = inboxes.find(thread_);
    if (known != inboxes.end() && known->second.expired())
        inboxes.erase(known);
}

void Inbox::Slot::Post(Item item) {
    Lock lock(lock_);
    if (!window_)
        return;
    items_.push_back(std::move(item));
    // One message for all: a queue of messages holds ten thousand.
    if (!isPosted_)
        isPosted_ = PostMessageA(window_, itemsArrived, 0, 0) != FALSE;
    SetEvent(arrived_.Get());
}

LRESULT Inbox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != itemsArrived)
        return Default(message, wParam, lParam);
    const std::shared_ptr<Inbox> self = shared_from_this();
    {
        // Before the item runs, which may serve messages itself.
        Lock lock(slot_->lock_);
        slot_->isPosted_ = slot_->items_.size() > 1 && PostMessageA(handle_, itemsArrived, 0, 0);
    }
    ServeOne(nullptr, true);
    return 0;
}

bool Inbox::ServeOne(const void* onlyOwner, bool all) {
    Item item;
    {
        Lock lock(slot_->lock_);
        std::deque<Item>& items = slot_->items_;
        const auto found = std::find_if(items.begin(), items.end(), [&](const Item& each) {
            return all || !each.owner || (each.owner == onlyOwner && each.isUrgent);
        });
        if (found == items.end())
            return false;
        item = std::move(*found);
        items.erase(found);
    }
    Run(item.run);
    return true;
}

bool Inbox::ServeMessage() {
    MSG message;
    if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        return false;
    if (message.message == WM_QUIT) {
        // For the loop below, which can't end before this wait.
        PostQuitMessage(static_cast<int>(message.wParam));
        throw HResultError(RPC_E_CALL_CANCELED, L"The program ends");
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

void Inbox::ServeUntil(const void* owner, const std::function<bool()>& isDone, DWORD exclusive) {
    const std::shared_ptr<Inbox> self = shared_from_this();
    const ULONGLONG begin = GetTickCount64();
    const HANDLE arrived = slot_->arrived_.Get();
    while (!isDone()) {
        const ULONGLONG waited = GetTickCount64() - begin;
        const bool isExclusive = waited < exclusive;
        if (ServeOne(owner, !isExclusive))
            continue;
        if (isExclusive) {
            MsgWaitForMultipleObjects(1, &arrived, FALSE, exclusive - static_cast<DWORD>(waited),
                                      QS_SENDMESSAGE);
            // Messages that other threads wait for.
            MSG message;
            PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
        } else {
            // What other programs of this thread put into its queue counts as well: wake up now and then.
            if (!ServeMessage())
                MsgWaitForMultipleObjects(1, &arrived, FALSE, 100, QS_ALLINPUT);
        }
    }
}

}  // namespace nux::webbrowser
