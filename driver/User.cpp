#include "driver/User.h"

#include <atomic>
#include <string>
#include <thread>

#include "driver/Messages.h"
#include "driver/Waiting.h"

namespace driver {
namespace {

constexpr UINT passBarrier = WM_APP;

/// A message-only window; the event whose handle comes with the message is set when its thread dispatches it.
class BarrierWindow {
public:
    BarrierWindow() {
        WNDCLASSA description{};
        description.lpfnWndProc = Procedure;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = "driver.Barrier";
        RegisterClassA(&description);  // fails if it is there already, which is fine
        window_ = CreateWindowExA(0, description.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  description.hInstance, nullptr);
    }
    BarrierWindow(const BarrierWindow&) = delete;
    BarrierWindow& operator=(const BarrierWindow&) = delete;
    ~BarrierWindow() { DestroyWindow(window_); }
    HWND Handle() const { return window_; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != passBarrier)
            return DefWindowProcA(window, message, wParam, lParam);
        SetEvent(reinterpret_cast<HANDLE>(wParam));
        return 0;
    }

    HWND window_;
};

/// One attempt to end what is open: a mouse gesture, a menu, then the topmost dialog that takes input.
void DismissOnce(const User& user, DWORD thread) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    if (GetGUIThreadInfo(thread, &state) && state.hwndCapture && !(state.flags & GUI_INMENUMODE)) {
        PostMessageA(state.hwndCapture, WM_RBUTTONUP, 0, MAKELPARAM(0, 0));
        PostMessageA(state.hwndCapture, WM_LBUTTONUP, 0, MAKELPARAM(0, 0));
    }
    for (const HWND window : user.Windows()) {
        if (!IsWindowEnabled(window))
            continue;
        if (ClassOf(window) == "#32768")
            PostMessageA(window, WM_KEYDOWN, VK_ESCAPE, 0);
        else
            PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
        return;
    }
}

}  // namespace

void User::Settle() {
    const HANDLE passed = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    Post(barrier_, passBarrier, reinterpret_cast<WPARAM>(passed));
    const bool reached = WaitForSingleObject(passed, patience) == WAIT_OBJECT_0;
    if (!reached)
        throw NotSeen("the tested thread to take its messages");  // it may still set the event: it stays open
    CloseHandle(passed);
}

std::vector<std::string> Play(const std::function<void()>& work, const std::function<void(User&)>& user) {
    std::vector<std::string> ofUser;
    std::vector<std::string> ofWork;
    const DWORD thread = GetCurrentThreadId();
    const BarrierWindow barrier;
    std::atomic<bool> done = false;
    std::thread second([&] {
        User person(thread, barrier.Handle(), done);
        ULONGLONG grace = patience / 4;  // a window that was told to close needs its time
        try {
            user(person);
        } catch (const std::exception& failure) {
            ofUser.push_back(failure.what());
            grace = 0;
        }
        const ULONGLONG end = GetTickCount64() + grace;
        while (!done && GetTickCount64() < end)
            Sleep(2);
        if (!done && grace)
            ofUser.push_back("the user has left windows open");
        while (!done) {
            DismissOnce(person, thread);
            Sleep(20);
        }
    });
    try {
        work();
    } catch (const std::exception& failure) {
        ofWork.push_back(std::string("the call threw: ") + failure.what());
    }
    done = true;
    second.join();
    ofUser.insert(ofUser.end(), ofWork.begin(), ofWork.end());
    return ofUser;
}

}  // namespace driver
