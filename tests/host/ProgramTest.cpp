// The sample host as its user sees it.

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "driver/Application.h"
#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/ListView.h"
#include "driver/Waiting.h"
#include "host/resource.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

/// The program, which was told an installation of one catalogue.
class SampleHostProgramTest : public testing::Test {
protected:
    SampleHostProgramTest() {
        folder_.Write("catalogs\\BOLTS\\Catalog.xml",
                      "<Catalog><Part><ID>M8</ID><Geometry>page.htm</Geometry></Part></Catalog>");
        folder_.Write("catalogs\\BOLTS\\page.htm", "<p>Bolt</p>");
        folder_.Write("data\\Tarnvale.htm", "<p>Start</p>");
        folder_.Write("data\\Wizard.htm", "<p>Wizard</p>");
        for (const char* name : {"gui", "custom"})
            folder_.MakeFolder(name);
        RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Orvenna\\SampleHost");
    }
    void Start() {
        process_.emplace("\"" NUX_SAMPLE_HOST "\" \"" + folder_.Path() + "\\\"");
        window_ = Program().Window("SampleHost");
        WaitForCall("    Navigate " + DefaultPage());
    }
    /// Closes the program, and sees that it ends well.
    void End() {
        PostMessageA(window_, WM_CLOSE, 0, 0);
        EXPECT_EQ(0u, process_->Wait().exitCode);
        process_.reset();
    }

    driver::Application Program() const { return process_->Windows(); }
    driver::ListView Calls() const {
        return driver::ListView(FindWindowExA(window_, nullptr, "SysListView32", nullptr));
    }
    std::string DefaultPage() const { return folder_.Url("data\\Tarnvale.htm"); }
    std::string Address() const {
        char text[1024] = "";
        SendMessageTimeoutA(FindWindowExA(window_, nullptr, "EDIT", nullptr), WM_GETTEXT, sizeof text,
                            reinterpret_cast<LPARAM>(text), SMTO_NORMAL, driver::patience, nullptr);
        return text;
    }
    void WaitForCall(const std::string& call) const {
        driver::WaitFor(call.c_str(), [&] {
            const std::vector<std::string> calls = Calls().Column(1);
            return std::find(calls.begin(), calls.end(), call) != calls.end();
        });
    }
    /// Takes an item of the menu.
    void Choose(UINT command) const { PostMessageA(window_, WM_COMMAND, command, 0); }

    TempFolder folder_;
    HWND window_ = nullptr;

private:
    std::optional<ChildProcess> process_;
};

TEST_F(SampleHostProgramTest, TheComponentIsStartedAndItsDefaultPageOpened) {
    Start();
    EXPECT_EQ((std::vector<std::string>{"Start", "    Inux3DReady", "    AttachHost", "    MainWindowHWND",
                                        "    GetWindow"}),
              [&] {
                  std::vector<std::string> calls = Calls().Column(1);
                  calls.resize(5);
                  return calls;
              }());
    EXPECT_EQ(DefaultPage(), Address());
    End();
}

TEST_F(SampleHostProgramTest, CommandsReachTheEmbeddedControl) {
    Start();
    Choose(IDM_COMMAND_1 + 2);
    WaitForCall("    Navigate " + folder_.Url("data\\Wizard.htm"));
    Choose(IDM_COMMAND_4);
    WaitForCall("    SetCommandFlag 0");
    EXPECT_EQ(folder_.Url("data\\Wizard.htm"), Address());
    End();
}

TEST_F(SampleHostProgramTest, WizardsAreForwardedToTheHost) {
    Start();
    for (const auto& [item, call] :
         {std::pair{IDM_DIE_WIZARD, "    RunDieWizard 1"}, std::pair{IDM_DIE_BLOCK, "    CreateDieBlock"},
          std::pair{IDM_SLIDE_WIZARD, "    RunSlideWizard"}, std::pair{IDM_LIFTER_WIZARD, "    Run"}}) {
        Choose(item);
        WaitForCall(call);
    }
    End();
}

TEST_F(SampleHostProgramTest, AComponentIsTakenFromTheCatalogues) {
    Start();
    Choose(IDM_SET_EDITED);
    const HWND dialog = Program().Dialog("Set edited component");
    driver::Click(driver::Item(dialog, IDOK));
    WaitForCall("    Navigate " + folder_.Url("catalogs\\BOLTS\\page.htm"));
    Choose(IDM_DEFAULT_PAGE);
    WaitForCall("    Close");
    End();
}

TEST_F(SampleHostProgramTest, TheWindowComesBackWhereItWasLeft) {
    Start();
    SetWindowPos(window_, nullptr, 60, 70, 800, 600, SWP_NOZORDER);
    End();
    Start();
    RECT bounds{};
    GetWindowRect(window_, &bounds);
    EXPECT_EQ(60, bounds.left);
    EXPECT_EQ(70, bounds.top);
    EXPECT_EQ(860, bounds.right);
    EXPECT_EQ(670, bounds.bottom);
    End();
}

}  // namespace
}  // namespace nux
