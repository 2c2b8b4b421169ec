#include "webbrowser/Browser.h"

#include <utility>

#include "framework/HResult.h"
#include "framework/Lock.h"
#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

SRWLOCK runningLock = SRWLOCK_INIT;
std::shared_ptr<Browser> running;

}  // namespace

std::shared_ptr<Browser> Browser::Running() {
    std::shared_ptr<Browser> old;
    Lock lock(runningLock);
    if (!running || !running->IsRunning())
        old = std::exchange(running, std::make_shared<Browser>());
    return running;
}

void Browser::End() noexcept {
    std::shared_ptr<Browser> old;
    Lock lock(runningLock);
    if (running && running.use_count() == 1)
        old = std::move(running);
}

Browser::Browser() : process_([this](const std::string& text) { Received(text); }, [this] { Ended(); }) {}

bool Browser::IsRunning() noexcept {
    Lock lock(lock_);
    return isRunning_;
}

std::string Browser::Command(std::int64_t id, const std::string& session, const char* method,
                             const Json& arguments) {
    Json command = {{"id", id}, {"method", method}, {"params", arguments}};
    if (!session.empty())
        command["sessionId"] = session;
    return command.dump();
}

void Browser::Write(const std::string& message) noexcept {
    // What can't be written is answered by the reader's end.
    Lock lock(writing_);
    process_.Write(message);
}

void Browser::Send(const std::string& session, const char* method, const Json& arguments) {
    std::int64_t id = 0;
    {
        Lock lock(lock_);
        id = ++lastId_;
    }
    Write(Command(id, session, method, arguments));
}

void Browser::Pending::Answer(const std::shared_ptr<const ChannelMessage>& message) {
    inbox->Post({owner, isUrgent, [message, reply = std::move(reply)] { reply(*message); }});
}

void Browser::Ask(const std::string& session, const char* method, const Json& arguments,
                  const std::shared_ptr<Inbox>& inbox, const void* owner, bool isUrgent, Sink reply) {
    std::int64_t id = 0;
    bool isRunning = false;
    {
        Lock lock(lock_);
        id = ++lastId_;
        isRunning = isRunning_;
        if (isRunning)
            pending_[id] = {session, inbox->GetSlot(), owner, isUrgent, reply};
    }
    if (isRunning)
        Write(Command(id, session, method, arguments));
    else
        inbox->Post({owner, isUrgent, [reply = std::move(reply)] {
                         reply({0, ended, {}, Json::object(), true});
                     }});
}

Json Browser::Wait(const std::string& session, const char* method, const Json& arguments,
                   const std::shared_ptr<Inbox>& inbox) {
    const auto answer = std::make_shared<std::optional<ChannelMessage>>();
    Ask(session, method, arguments, inbox, nullptr, true,
        [answer](const ChannelMessage& message) { *answer = message; });
    // The browser's own commands take their time; whoever opens a page doesn't expect to be called meanwhile.
    inbox->ServeUntil(
        nullptr, [&] { return answer->has_value(); }, 5000);
    if ((*answer)->failed) {
        if ((*answer)->method == ended)
            throw HResultError(RPC_E_DISCONNECTED, L"The browser has ended");
        throw HResultError(E_FAIL, L"The browser refuses " + WideFromUtf8(method) + L": " +
                                       WideFromUtf8(TextMember((*answer)->content, "message")));
    }
    return std::move((*answer)->content);
}

void Browser::SetWatch(const std::string& session, Watch watch) {
    Lock lock(lock_);
    watches_[session] = std::make_shared<const Watch>(std::move(watch));
}

void Browser::EndWatch(const std::string& session) noexcept {
    // Let go of after the lock.
    std::shared_ptr<const Watch> watch;
    std::map<std::int64_t, Pending> unanswered;
    Lock lock(lock_);
    for (auto each = pending_.begin(); each != pending_.end();) {
        const auto next = std::next(each);
        if (each->second.session == session)
            unanswered.insert(pending_.extract(each));
        each = next;
    }
    const auto found = watches_.find(session);
    if (found == watches_.end())
        return;
    watch = std::move(found->second);
    watches_.erase(found);
}

void Browser::Received(const std::string& text) {
    std::optional<ChannelMessage> read = ReadChannelMessage(text);
    if (!read)
        return;
    const auto message = std::make_shared<const ChannelMessage>(*std::move(read));
    if (message->id != 0) {
        Pending pending;
        {
            Lock lock(lock_);
            const auto found = pending_.find(message->id);
            if (found == pending_.end())
                return;
            pending = std::move(found->second);
            pending_.erase(found);
        }
        pending.Answer(message);
        return;
    }
    std::shared_ptr<const Watch> watch;
    {
        Lock lock(lock_);
        const auto found = watches_.find(message->session);
        if (found == watches_.end())
            return;
        watch = found->second;
    }
    watch->inbox->Post(
        {watch->owner, watch->isUrgent(*message), [message, sink = watch->sink] { sink(*message); }});
}

void Browser::Ended() {
    std::map<std::int64_t, Pending> pending;
    std::map<std::string, std::shared_ptr<const Watch>> watches;
    {
        Lock lock(lock_);
        isRunning_ = false;
        pending.swap(pending_);
        watches = watches_;
    }
    const auto message =
        std::make_shared<const ChannelMessage>(ChannelMessage{0, ended, {}, Json::object(), true});
    for (auto& [id, each] : pending)
        each.Answer(message);
    for (const auto& [session, watch] : watches)
        watch->inbox->Post({watch->owner, true, [message, sink = watch->sink] { sink(*message); }});
}

}  // namespace nux::webbrowser
