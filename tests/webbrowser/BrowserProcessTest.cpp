#include "webbrowser/BrowserProcess.h"

#include <gtest/gtest.h>

#include <fstream>

#include "framework/ComObject.h"
#include "framework/HResult.h"
#include "framework/Handles.h"
#include "tests/support/ChildProcess.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/OpenedPage.h"
#include "webbrowser/Browser.h"
#include "webbrowser/RandomName.h"
#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

constexpr char settings[] = "Software\\Tarnvale\\nuxWebBrowser";
constexpr char realBrowser[] = "exec /usr/lib/chromium/chromium-headless-shell \"$@\"\n";

/// The browser that the registry names: a script that notes its process and its folder before it becomes the
/// browser, or whatever a test likes.
class BrowserProcessTest : public testing::Test {
protected:
    BrowserProcessTest() { Browser::End(); }
    ~BrowserProcessTest() override {
        Browser::End();
        RegDeleteTreeA(HKEY_CURRENT_USER, settings);
        Shell("rm -rf " + folder);
    }

    static void Shell(const std::string& script) {
        std::string command = "sh -c \"" + script + "\"";
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        ASSERT_TRUE(CreateProcessA("Z:\\bin\\sh", command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                   nullptr, &startup, &process));
        // Wine 8.0 gives no handles of such a program: what `process` holds now isn't to be closed.
    }
    static bool Await(const std::function<bool()>& isSo) {
        const ULONGLONG deadline = GetTickCount64() + 20000;
        while (!isSo() && GetTickCount64() < deadline)
            Sleep(10);
        return isSo();
    }
    /// @param path  of the system below
    static bool IsThere(const std::string& path) {
        return GetFileAttributesA(("Z:" + path).c_str()) != INVALID_FILE_ATTRIBUTES;
    }
    static void Choose(const std::string& browser) {
        ASSERT_EQ(ERROR_SUCCESS, RegSetKeyValueA(HKEY_CURRENT_USER, settings, "Browser", REG_SZ,
                                                 browser.c_str(), static_cast<DWORD>(browser.size() + 1)));
    }
    /// Chooses a script. @param rest  what it does after it has noted what it is
    void ChooseScript(const std::string& rest) {
        Shell("mkdir " + folder);
        ASSERT_TRUE(Await([&] { return IsThere(folder); }));
        std::ofstream("Z:" + folder + "/script", std::ios::binary)
            << "#!/bin/sh\necho $$ >" << folder << "/process\necho $HOME >" << folder << "/home\n"
            << rest;
        Shell("cp " + folder + "/script " + folder + "/made; chmod +x " + folder + "/made; mv " + folder +
              "/made " + folder + "/browser");
        ASSERT_TRUE(Await([&] { return IsThere(folder + "/browser"); }));
        Choose(folder + "/browser");
    }
    /// What the script has noted.
    std::string Noted(const char* what) const {
        std::string line;
        EXPECT_TRUE(Await([&] {
            std::ifstream file("Z:" + folder + "/" + what);
            return std::getline(file, line) && !line.empty();
        }));
        return line;
    }
    void Kill() const { Shell("kill -9 " + Noted("process")); }
    void ExpectNothingLeft() const {
        EXPECT_TRUE(Await([&] { return !IsThere("/proc/" + Noted("process")); }));
        EXPECT_TRUE(Await([&] { return !IsThere(Noted("home")); }));
    }
    static std::wstring FailureOfOpen() {
        try {
            const OpenedPage page;
        } catch (const HResultError& error) {
            return error.Words();
        }
        return L"none";
    }
    /// @return what a call that can't end otherwise fails with
    template <class Call>
    static HRESULT Failure(const Call& call) {
        try {
            call();
        } catch (const HResultError& error) {
            return error.Code();
        }
        return S_OK;
    }

    const std::string folder = "/tmp/nuxWebBrowserTest-" + RandomName();
};

TEST_F(BrowserProcessTest, IsTheOneThatTheRegistryNames) {
    ChooseScript(realBrowser);
    OpenedPage page;
    page.Show("<p id=p>shown");
    EXPECT_EQ(L"shown", page.Text(L"p.innerText"));
    EXPECT_TRUE(IsThere("/proc/" + Noted("process")));
    EXPECT_TRUE(IsThere(Noted("home") + "/profile"));
}

TEST_F(BrowserProcessTest, EndsAndLeavesNothingWhenNobodyNeedsIt) {
    ChooseScript(realBrowser);
    { const OpenedPage page; }
    Browser::End();
    ExpectNothingLeft();
}

TEST_F(BrowserProcessTest, SaysThatTheChosenOneIsNotThere) {
    Choose("/nowhere/browser");
    EXPECT_EQ(L"The browser that the registry names isn't there: /nowhere/browser", FailureOfOpen());
    Choose("/tmp");
    EXPECT_EQ(L"The browser that the registry names isn't there: /tmp", FailureOfOpen());
}

TEST_F(BrowserProcessTest, SaysThatTheChosenOneIsNone) {
    for (const std::string program : {"/bin/true", "/bin/cat", "/bin/sh"}) {
        Choose(program);
        EXPECT_EQ(L"This is no browser: " + WideFromUtf8(program), FailureOfOpen());
    }
}

TEST_F(BrowserProcessTest, SaysThatTheChosenOneDoesNotAnswerAndEndsIt) {
    ChooseScript("sleep 1000\n");
    EXPECT_EQ(L"This is no browser: " + WideFromUtf8(folder + "/browser"), FailureOfOpen());
    ExpectNothingLeft();
}

TEST_F(BrowserProcessTest, SaysThatTheChosenOneAnswersSomethingElse) {
    ChooseScript("cat <&3 >&4\n");
    EXPECT_EQ(L"This is no browser: " + WideFromUtf8(folder + "/browser"), FailureOfOpen());
    ExpectNothingLeft();
}

/// Each test kills the browser in another state; then a page says so, its calls fail, and another one works.
class KilledBrowser : public BrowserProcessTest {
protected:
    void SetUp() override {
        ChooseScript(realBrowser);
        page = std::make_unique<OpenedPage>();
        page->external = external;
        page->Show("<p>");
    }
    void TearDown() override {
        ASSERT_TRUE(page);
        EXPECT_TRUE(page->Await([&] { return page->WasTold(L"browser ended"); }));
        EXPECT_FALSE((*page)->IsOpen());
        EXPECT_EQ(RPC_E_DISCONNECTED, Failure([&] { (*page)->Call("() => 1"); }));
        ExpectNothingLeft();
        OpenedPage next;
        next.Show("<p id=p>next");
        EXPECT_EQ(L"next", next.Text(L"p.innerText"));
        page.reset();
    }
    /// Kills it a moment later, while the test waits.
    void KillSoon() { Shell("sleep 0.3; kill -9 " + Noted("process")); }

    ComPtr<ComObject<ExternalDouble>> external = MakeObject<ExternalDouble>();
    std::unique_ptr<OpenedPage> page;
};

TEST_F(KilledBrowser, IsToldAtRest) {
    Kill();
}

TEST_F(KilledBrowser, IsToldWhileADocumentIsLoaded) {
    (*page)->Navigate(WideFromUtf8(page->folder.Write("next.htm", "<script>for (;;) {}</script>")));
    EXPECT_TRUE(page->Await([&] { return (*page)->State() == ReadyState::loaded; }));
    Kill();
}

TEST_F(KilledBrowser, FailsACallThatWaitsForThePage) {
    KillSoon();
    EXPECT_EQ(RPC_E_DISCONNECTED, Failure([&] { (*page)->Call("() => { for (;;) {} }"); }));
}

TEST_F(KilledBrowser, FailsACallOfAPageThatWaitsForTheProgram) {
    HRESULT inner = S_OK;
    external->methods[L"Wait"] = [&](const ExternalDouble::Arguments&) {
        Kill();
        EXPECT_TRUE(page->Await([&] { return page->WasTold(L"browser ended"); }));
        inner = Failure([&] { (*page)->Call("() => 1"); });
        return Number(1);
    };
    EXPECT_EQ(RPC_E_DISCONNECTED, Failure([&] { (*page)->Execute(L"external.Wait()"); }));
    EXPECT_EQ(RPC_E_DISCONNECTED, inner);
}

TEST_F(KilledBrowser, FailsACallOfTheProgramWithinOneOfThePage) {
    HRESULT inner = S_OK;
    external->methods[L"Call"] = [&](const ExternalDouble::Arguments&) {
        KillSoon();
        inner = Failure([&] { (*page)->Call("() => { for (;;) {} }"); });
        return Number(1);
    };
    EXPECT_EQ(RPC_E_DISCONNECTED, Failure([&] { (*page)->Execute(L"external.Call()"); }));
    EXPECT_EQ(RPC_E_DISCONNECTED, inner);
}

constexpr char shownEvent[] = "nuxWebBrowserTest shows a page";

/// No test: the program that the next one ends.
TEST(Program, DISABLED_ShowsAPageWithAScriptThatDoesNotEnd) {
    OpenedPage page;
    page.Show("<p>");
    page->Post("() => { window.status = 'begun'; for (;;) {} }");
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"status begun"); }));
    SetEvent(OpenEventA(EVENT_MODIFY_STATE, FALSE, shownEvent));
    Sleep(INFINITE);
}

TEST_F(BrowserProcessTest, EndsAndLeavesNothingWhenTheProgramIsKilled) {
    ChooseScript(realBrowser);
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const UniqueKernelHandle shown(CreateEventA(nullptr, TRUE, FALSE, shownEvent));
    {
        const ChildProcess program(std::string("\"") + path +
                                   "\" --gtest_filter=Program.* --gtest_also_run_disabled_tests");
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(shown.Get(), 20000));
        EXPECT_TRUE(IsThere("/proc/" + Noted("process")));
    }
    ExpectNothingLeft();
}

}  // namespace
}  // namespace nux::webbrowser
