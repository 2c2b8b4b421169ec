#pragma once

#include <algorithm>
#include <atomic>
#include <functional>
#include <string>

#include "framework/DispatchClient.h"
#include "tests/support/Await.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WithUser.h"
#include "tests/webbrowser/ContainedBrowser.h"

namespace nux::webbrowser {

inline READYSTATE StateOf(IWebBrowser2* browser) {
    READYSTATE state = READYSTATE_UNINITIALIZED;
    browser->get_ReadyState(&state);
    return state;
}

/// The same with real pages.
class ShownBrowser : public ContainedBrowser {
protected:
    ShownBrowser() : ContainedBrowser(&Page::Open) {}

    std::wstring Write(const std::string& name, const std::string& html) const {
        return Widen(folder.Write(name, html), CP_ACP);
    }
    bool Happened(const std::wstring& start) const {
        return std::any_of(sink->events.begin(), sink->events.end(),
                           [&](const std::wstring& event) { return event.starts_with(start); });
    }
    void Show(const std::string& html, const std::string& name = "page.htm") {
        sink->events.clear();
        ASSERT_EQ(S_OK, Navigate(Write(name, html).c_str()));
        ASSERT_TRUE(Await([&] { return Happened(L"DocumentComplete"); }));
    }
    /// A property of the document, by name, as text; while another takes its place there may be none.
    std::wstring OfDocument(const wchar_t* name) {
        ComPtr<IDispatch> document;
        EXPECT_EQ(S_OK, browser->get_Document(document.Receive()));
        Variant value;
        if (!document || FAILED(GetDispatchProperty(document.Get(), name, &value)))
            return L"(none)";
        return value.IsString() ? std::wstring(value.Text(), SysStringLen(value.Text())) : L"(no text)";
    }

    /// Serves messages while a user works the windows from another thread.
    static void ByUser(const std::function<void(driver::User&)>& user) {
        std::atomic<bool> isDone = false;
        WithUser([&] { EXPECT_TRUE(Await([&] { return isDone.load(); })); },
                 [&](driver::User& person) {
                     const EndOf end{isDone};
                     user(person);
                 });
    }

    TempFolder folder;

private:
    struct EndOf {
        std::atomic<bool>& isDone;
        ~EndOf() { isDone = true; }
    };
};

}  // namespace nux::webbrowser
