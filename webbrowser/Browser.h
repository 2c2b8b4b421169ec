#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "webbrowser/BrowserProcess.h"
#include "webbrowser/ChannelMessage.h"
#include "webbrowser/Inbox.h"

namespace nux::webbrowser {

/// The one browser of this process, for all its threads: numbers its commands, and brings each answer and
/// each event to the thread that it is for.
class Browser : public std::enable_shared_from_this<Browser> {
public:
    using Sink = std::function<void(const ChannelMessage&)>;
    /// The event after which nothing comes any more.
    static constexpr char ended[] = "browserEnded";

    /// The one that runs, started if there is none or if it has ended. Throws HResultError, with words.
    static std::shared_ptr<Browser> Running();
    /// Ends the one that runs, if nobody else holds it.
    static void End() noexcept;

    Browser();
    bool IsRunning() noexcept;

    /// Sends a command whose answer nobody wants.
    /// @param session  of a page, or empty
    void Send(const std::string& session, const char* method, const Json& arguments);
    /// Sends a command.
    /// @param owner     of the reply in the inbox
    /// @param isUrgent  whether a waiting call of the owner may need the reply
    /// @param reply     runs in the inbox, also if the browser ends before it answers
    void Ask(const std::string& session, const char* method, const Json& arguments,
             const std::shared_ptr<Inbox>& inbox, const void* owner, bool isUrgent, Sink reply);
    /// Sends a command and waits. Throws HResultError if it fails.
    Json Wait(const std::string& session, const char* method, const Json& arguments,
              const std::shared_ptr<Inbox>& inbox);

    struct Watch {
        std::shared_ptr<Inbox::Slot> inbox;
        const void* owner;                                  ///< of the items in the inbox
        bool (*isUrgent)(const ChannelMessage&) = nullptr;  ///< called by the browser's thread
        Sink sink;
    };
    /// Brings a session's events to a watcher, until its end.
    void SetWatch(const std::string& session, Watch watch);
    /// Nothing of the session is wanted any more, no answer either.
    void EndWatch(const std::string& session) noexcept;

private:
    struct Pending {
        std::string session;
        std::shared_ptr<Inbox::Slot> inbox;
        const void* owner;
        bool isUrgent;
        Sink reply;

        void Answer(const std::shared_ptr<const ChannelMessage>& message);
    };
    std::string Command(std::int64_t id, const std::string& session, const char* method,
                        const Json& arguments);
    void Received(const std::string& text);
    void Ended();
    void Write(const std::string& message) noexcept;

    SRWLOCK lock_ = SRWLOCK_INIT;
    SRWLOCK writing_ = SRWLOCK_INIT;
    bool isRunning_ = true;
    std::int64_t lastId_ = 0;
    std::map<std::int64_t, Pending> pending_;
    std::map<std::string, std::shared_ptr<const Watch>> watches_;
    BrowserProcess process_;  ///< the last: its thread uses the others
};

}  // namespace nux::webbrowser
