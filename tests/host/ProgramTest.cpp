// The sample host as its user sees it, on a system without an HTML engine.

#include "tests/host/SampleHostProgram.h"

#include "driver/Controls.h"
#include "driver/Input.h"

namespace nux {
namespace {

class SampleHostProgramTest : public SampleHostProgram {
protected:
    void Start() {
        SampleHostProgram::Start();
        WaitForCall("    Navigate " + DefaultPage());
    }
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
