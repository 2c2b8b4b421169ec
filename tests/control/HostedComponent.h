#pragma once

#include <windows.h>

#include <cwchar>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "host/HostObjects.h"
#include "tests/support/ControlSite.h"
#include "tests/support/Installation.h"

namespace nux {

// What the component tells its user of pages.
inline constexpr char noPage[] = "Cannot find the html page!";
inline constexpr char noDefaultPage[] = "Cannot find the default html page!";
inline constexpr char noMemory[] = "Out of memory!";

/// A member's name, as a client of automation gives it.
inline std::string Name(const wchar_t* name) {
    return Narrow(name, std::wcslen(name));
}

/// A message box of the component.
struct Box {
    std::string text;
    HWND owner;
};

/// Does `work`, during which a user presses OK in each box that the component shows.
std::vector<Box> BoxesOf(const std::function<void()>& work);

/// Base of tests of a component that works with the sample host's objects, on an installation with a default
/// page, a wizard page and the catalogue BOLTS. At the end of each test all that the host has lent must have
/// come back.
class HostedTest : public InstallationTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// For the start of SetUp: the module is loaded anew, and has nothing left of earlier tests.
    static void UnloadModule();
    /// Hands over a browser. The reference on it that the component keeps for the life of the process goes at
    /// the end of the test.
    HRESULT Attach(IDispatch* browser);
    void AttachBrowser() { EXPECT_EQ(S_OK, Attach(objects.browser.Get())); }
    /// Makes the control's window, in a window that goes at the end of the test.
    HWND ShowControl();

    /// Does `work`. @return the texts of the boxes that were shown, joined with "|"
    static std::string Told(const std::function<void()>& work);
    /// What was asked of the host by these calls, in order; the record is empty afterwards.
    std::vector<std::string> Asked(std::initializer_list<host::Call> calls);
    /// The addresses that the browser was sent to, in order; the record is empty afterwards.
    std::vector<std::string> Opened();

    HRESULT Edit(IDispatch* component, long reload);
    /// The edited component, or null, whose result is tested.
    ComPtr<IDispatch> Edited();
    /// Makes a component the edited one, which the host has made. The record is empty afterwards.
    ComPtr<InuxEditedComponent> EditOne();
    HRESULT GetComponent(const std::string& catalogue, const std::string& component);
    /// CatalogID and ComponentID, joined with a blank.
    std::string Ids();

    using Texts = std::vector<std::string>;

    host::HostObjects objects;
    const std::string defaultPage = "file://" + data + "Tarnvale.htm";
    const std::string wizardPage = "file://" + data + "Wizard.htm";
    const std::string componentPage = "file://" + catalogs + "BOLTS\\M8.htm";

private:
    std::vector<ComPtr<IDispatch>> attached_;
    HWND frame_ = nullptr;
    ComPtr<ComObject<ControlSite>> site_;
};

}  // namespace nux
