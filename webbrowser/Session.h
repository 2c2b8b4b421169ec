#pragma once

#include <memory>
#include <string>

#include "webbrowser/Browser.h"

namespace nux::webbrowser {

/// The connection to one page of the browser, for its parts. Tests speak to them through one of their own.
struct Session {
    Session() = default;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    virtual ~Session() = default;

    std::shared_ptr<Browser> browser;
    std::shared_ptr<Inbox> inbox;
    std::string id;
    const void* owner = nullptr;  ///< of the items in the inbox
    bool isOpen = false;

    /// What is said to a page that is gone is lost.
    virtual void Send(const char* method, const Json& arguments = Json::object()) const {
        if (isOpen)
            browser->Send(id, method, arguments);
    }
    /// @param isUrgent  whether a call that waits for the page may need the reply; others run when the thread
    ///                  serves its messages
    virtual void Ask(const char* method, const Json& arguments, Browser::Sink reply,
                     bool isUrgent = false) const {
        browser->Ask(id, method, arguments, inbox, owner, isUrgent, std::move(reply));
    }
};

}  // namespace nux::webbrowser
