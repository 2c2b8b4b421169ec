#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "driver/Application.h"
#include "driver/ListView.h"
#include "driver/Waiting.h"
#include "host/resource.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TempFolder.h"

namespace nux {

/// The program, which was told an installation of one catalogue.
class SampleHostProgram : public testing::Test {
protected:
    SampleHostProgram() {
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

}  // namespace nux
