// Pages in the sample host, drawn by the project's own browser control.

#include "driver/Picture.h"
#include "driver/PointerInput.h"
#include "tests/host/SampleHostProgram.h"

namespace nux {
namespace {

constexpr COLORREF buttonColour = RGB(0, 128, 0);

/// The control has the place of the platform's for the time of a test.
class PagesOfTheSampleHost : public SampleHostProgram {
protected:
    void SetUp() override {
        ASSERT_EQ(S_OK, Call("DllRegisterServer"));
        folder_.Write("data\\Tarnvale.htm",
                      "<!DOCTYPE html><html><head><title>Start</title><style>\n"
                      "body { margin: 0; } div { width: 200px; height: 100px; background: rgb(0, 128, 0); }\n"
                      "</style></head><body><div onclick=\"pressed()\"></div><script>\n"
                      "function pressed() { window.external.StdParts.SetStatusMessage('pressed'); }\n"
                      "function OnChooseDimensions() {\n"
                      "    window.external.StdParts.SetStatusMessage(document.title + ' chooses');\n"
                      "}\n"
                      "</script></body></html>");
    }
    void TearDown() override { EXPECT_EQ(S_OK, Call("DllUnregisterServer")); }

    HRESULT Call(const char* function) const {
        const auto called = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
            reinterpret_cast<void*>(GetProcAddress(module_, function)));
        return called ? called() : E_FAIL;
    }

    /// Where the page's button is drawn, in pixels of the screen. Throws NotSeen.
    POINT WaitForButton() const {
        RECT bounds{};
        GetWindowRect(window_, &bounds);
        return *driver::WaitFor("the button of the page", [&]() -> std::optional<POINT> {
            const driver::Picture picture = driver::TakePicture(bounds);
            for (int y = 0; y < picture.height; y += 4) {
                for (int x = 0; x < picture.width; x += 4) {
                    if (picture.At(x, y) == buttonColour)
                        return POINT{bounds.left + x + 40, bounds.top + y + 40};
                }
            }
            return std::nullopt;
        });
    }

private:
    const HMODULE module_ = LoadLibraryA(NUX_WEB_BROWSER);
};

TEST_F(PagesOfTheSampleHost, ReachTheComponentByAClick) {
    Start();
    driver::MovePointer(WaitForButton());
    driver::PressPointer(driver::PointerButton::Left);
    driver::ReleasePointer(driver::PointerButton::Left);
    WaitForCall("    SetMessage pressed");
    driver::WaitFor("the page's address", [&] { return Address().ends_with("data/Tarnvale.htm"); });
    End();
}

TEST_F(PagesOfTheSampleHost, AreCalledByACommandOfTheControl) {
    Start();
    WaitForButton();
    Choose(IDM_COMMAND_1 + 1);
    WaitForCall("    SetMessage Start chooses");
    End();
}

}  // namespace
}  // namespace nux
