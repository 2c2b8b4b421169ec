#include <gtest/gtest.h>

#include "tests/support/HandleCount.h"
#include "tests/support/PrivateMemory.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/ShownBrowser.h"
#include "webbrowser/Browser.h"

namespace nux::webbrowser {
namespace {

std::size_t ProcessesOfTheBrowser() {
    return Browser::Running()
        ->Wait({}, "SystemInfo.getProcessInfo", Json::object(), Inbox::OfThisThread())["processInfo"]
        .size();
}

/// Entries of the folder in which the browsers of all programs have theirs.
int ProfileFolders() {
    WIN32_FIND_DATAW entry{};
    int count = 0;
    const HANDLE search = FindFirstFileW(L"Z:\\tmp\\nuxWebBrowser*", &entry);
    if (search == INVALID_HANDLE_VALUE)
        return 0;
    do
        ++count;
    while (FindNextFileW(search, &entry));
    FindClose(search);
    return count;
}

class ControlEndurance : public testing::Test {
protected:
    ControlEndurance()
        : frame_(CreateWindowExA(0, "STATIC", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 640, 480,
                                 nullptr, nullptr, nullptr, nullptr)),
          page_(Widen(folder_.Write("page.htm", "<p>text<script>external.Say('hello')</script>"), CP_ACP)) {}
    ~ControlEndurance() override { DestroyWindow(frame_); }

    /// A control made, loaded, called by its page and released.
    void UseOne() {
        const auto site = MakeObject<BrowserSite>(frame_);
        site->position = {0, 0, 400, 300};
        const auto external = MakeObject<ExternalDouble>();
        int calls = 0;
        external->methods[L"Say"] = [&](const ExternalDouble::Arguments&) { return Number(++calls); };
        site->external = external;
        const auto control = MakeObject<WebBrowser>();
        control->SetClientSite(static_cast<IOleClientSite*>(site.Get()));
        control->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, frame_, nullptr);
        control->Navigate(Bstr(page_).Get(), nullptr, nullptr, nullptr, nullptr);
        EXPECT_TRUE(Await([&] { return StateOf(control.Get()) == READYSTATE_COMPLETE; }));
        ComPtr<IDispatch> document;
        EXPECT_EQ(S_OK, control->get_Document(document.Receive()));
        EXPECT_EQ(1, calls);
        control->SetClientSite(nullptr);
        site->external.Reset();
    }
    void Use(int controls) {
        // What the first ones leave is kept for all.
        for (int i = 0; i < 30; ++i)
            UseOne();
        const std::size_t processes = ProcessesOfTheBrowser();
        const unsigned handles = HandleCount();
        const long objects = LiveObjects();
        const int folders = ProfileFolders();
        const long long memory = PrivateMemory();
        for (int i = 0; i < controls; ++i)
            UseOne();
        EXPECT_TRUE(Await([&] { return ProcessesOfTheBrowser() <= processes; })) << ProcessesOfTheBrowser();
        EXPECT_LE(HandleCount(), handles + 3);
        EXPECT_EQ(objects, LiveObjects());
        EXPECT_LE(ProfileFolders(), folders);
        constexpr long long allowed = 2 << 20;
        EXPECT_LE(PrivateMemory(), memory + allowed) << "more by " << PrivateMemory() - memory;
    }

private:
    TempFolder folder_;
    HWND frame_;
    std::wstring page_;
};

TEST_F(ControlEndurance, FiftyControlsLeaveNothing) {
    Use(50);
}

// Takes a minute; --gtest_also_run_disabled_tests runs it.
TEST_F(ControlEndurance, DISABLED_FiveHundredControlsLeaveNothing) {
    Use(500);
}

}  // namespace
}  // namespace nux::webbrowser
