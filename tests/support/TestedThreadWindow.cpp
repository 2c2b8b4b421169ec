#include "tests/support/TestedThreadWindow.h"

namespace nux {
namespace {

constexpr char className[] = "tests.TestedThreadWindow";
constexpr UINT doDeed = WM_APP;

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != doDeed)
        return DefWindowProcA(window, message, wParam, lParam);
    (*reinterpret_cast<const std::function<void()>*>(lParam))();
    return 0;
}

}  // namespace

TestedThreadWindow::TestedThreadWindow() {
    WNDCLASSA description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1);
    description.lpszClassName = className;
    RegisterClassA(&description);  // fails if it is there already, which is fine
    window_ = CreateWindowExA(0, className, "Host", WS_OVERLAPPEDWINDOW, 20, 20, 600, 400, nullptr, nullptr,
                              description.hInstance, nullptr);
}

TestedThreadWindow::~TestedThreadWindow() {
    if (IsWindow(window_))
        DestroyWindow(window_);
}

void TestedThreadWindow::Show() const {
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
}

void TestedThreadWindow::Do(const std::function<void()>& deed) const {
    PostMessageA(window_, doDeed, 0, reinterpret_cast<LPARAM>(&deed));
}

}  // namespace nux
