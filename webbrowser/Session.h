#pragma once

#include <memory>
#include <string>

#include "webbrowser/Browser.h"

namespace nux::webbrowser {

/// The connection to one page of the browser, for its parts.
struct Session {
    std::shared_ptr<Browser> browser;
    std::shared_ptr<Inbox> inbox;
    std::string id;
    const void* owner = nullptr;  ///< of the items in the inbox
    bool isOpen = false;

    /// What is said to a page that is gone is lost.
    void Send(const char* method, const Json& arguments = Json::object()) const {
        if (isOpen)
            browser->Send(id, method, arguments);
    }
    void Ask(const char* method, const Json& arguments, Browser::Sink reply) const {
        browser->Ask(id, method, arguments, inbox, std::move(reply));
    }
};

}  // namespace nux::webbrowser
