// What a browser control costs in the platform's own host of controls: until its page is on the screen, until
// a change or a click is, after it was resized, and in memory. Each line is a median. There is no floor to
// compare with: what the browser takes is in it.

#include <windows.h>

#include <exdisp.h>
#include <ole2.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/Measurement.h"
#include "framework/ClassFactory.h"
#include "framework/Module.h"
#include "framework/Text.h"
#include "webbrowser/Browser.h"
#include "webbrowser/WebBrowser.h"

namespace {

using namespace nux;
using namespace nux::webbrowser;

void Await(const std::function<bool()>& isSo) {
    while (!isSo()) {
        MSG message;
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        else
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_ALLINPUT);
    }
}

/// A window of the platform's host with a control in it.
class Shown {
public:
    explicit Shown(const std::string& address)
        : window_(CreateWindowExA(0, "AtlAxWin", address.c_str(), WS_POPUP | WS_VISIBLE, 0, 0, 800, 600,
                                  nullptr, nullptr, nullptr, nullptr)) {
        const auto getControl = reinterpret_cast<HRESULT(WINAPI*)(HWND, IUnknown**)>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("atl.dll"), "AtlAxGetControl")));
        ComPtr<IUnknown> control;
        getControl(window_, control.Receive());
        browser = control.As<IWebBrowser2>();
        Await([&] { return Corner() == RGB(0, 0, 255); });
    }
    ~Shown() { DestroyWindow(window_); }

    HWND Control() const { return GetWindow(window_, GW_CHILD); }
    COLORREF Pixel(int x, int y) const {
        const HDC context = GetDC(Control());
        const COLORREF colour = GetPixel(context, x, y);
        ReleaseDC(Control(), context);
        return colour;
    }
    /// The page marks its bottom right corner.
    COLORREF Corner() const {
        RECT client{};
        GetClientRect(Control(), &client);
        return Pixel(client.right - 2, client.bottom - 2);
    }
    void Resize(int width) {
        SetWindowPos(window_, nullptr, 0, 0, width, 600, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    ComPtr<IWebBrowser2> browser;

private:
    HWND window_;
};

void Tell(const char* what, std::vector<double> seconds) {
    std::sort(seconds.begin(), seconds.end());
    std::printf("| %s | %zu | %.2f | %.2f |\n", what, seconds.size(), seconds[seconds.size() / 2] * 1000,
                seconds.back() * 1000);
    std::fflush(stdout);
}

std::vector<double> Rounds(int count, const std::function<void()>& work) {
    std::vector<double> seconds;
    for (int i = 0; i < count; ++i)
        seconds.push_back(bench::SecondsOf(work));
    return seconds;
}

/// Of all processes of the browser, shared memory in its part, in MB.
double MemoryOfTheBrowser() {
    const Json information =
        Browser::Running()->Wait({}, "SystemInfo.getProcessInfo", Json::object(), Inbox::OfThisThread());
    double kilobytes = 0;
    for (const Json& process : information["processInfo"]) {
        std::ifstream file("Z:\\proc\\" + std::to_string(process["id"].get<long>()) + "\\smaps_rollup");
        for (std::string word; file >> word;) {
            double number = 0;
            if (word == "Pss:" && file >> number)
                kilobytes += number;
        }
    }
    return kilobytes / 1024;
}

void Measure(const std::string& address) {
    std::printf("| Milliseconds | n | median | most |\n|---|---|---|---|\n");
    std::vector<std::unique_ptr<Shown>> all;
    const auto open = [&] { all.push_back(std::make_unique<Shown>(address)); };
    Tell("first control with its page on the screen, the browser's start included", Rounds(1, open));
    const double memoryOfOne = MemoryOfTheBrowser();
    Tell("each further control", Rounds(20, open));
    const double memory = (MemoryOfTheBrowser() - memoryOfOne) / 20;
    all.resize(1);
    Shown& shown = *all[0];

    int red = 0;
    Tell("a change of the page is on the screen", Rounds(50, [&] {
             const std::wstring script =
                 L"javascript:document.body.style.background='rgb(" + std::to_wstring(++red) + L",0,0)'";
             shown.browser->Navigate(Bstr(script).Get(), nullptr, nullptr, nullptr, nullptr);
             Await([&] { return shown.Pixel(300, 300) == RGB(red, 0, 0); });
         }));
    int green = 0;
    Tell("what a click changes is on the screen", Rounds(50, [&] {
             ++green;
             PostMessageW(shown.Control(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 20));
             PostMessageW(shown.Control(), WM_LBUTTONUP, 0, MAKELPARAM(20, 20));
             Await([&] { return shown.Pixel(300, 300) == RGB(0, green, 0); });
         }));
    int width = 600;
    for (int i = 0; i < 90; ++i) {
        shown.Resize(++width);
        const ULONGLONG until = GetTickCount64() + 33;
        Await([&] { return GetTickCount64() >= until; });
    }
    Tell("after the last of 90 sizes until it is on the screen",
         Rounds(1, [&] { Await([&] { return shown.Corner() == RGB(0, 0, 255); }); }));
    std::printf("\nMemory of the browser for each further control: %.1f MB\n", memory);
}

}  // namespace

int main(int, char** arguments) {
    SetThisModule(GetModuleHandleA(nullptr));
    OleInitialize(nullptr);
    DWORD cookie = 0;
    CoRegisterClassObject(CLSID_WebBrowser, MakeObject<ClassFactory<nux::webbrowser::WebBrowser>>().Get(),
                          CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
    const HMODULE host = LoadLibraryA("atl.dll");
    reinterpret_cast<BOOL(WINAPI*)()>(reinterpret_cast<void*>(GetProcAddress(host, "AtlAxWinInit")))();
    const std::string path = std::string(arguments[1]) + "bench_control.htm";
    std::ofstream(path)
        << "<body style='margin:0' onmousedown=\"var n = (window.n || 0) + 1; window.n = n; "
           "document.body.style.background = 'rgb(0,' + n + ',0)'\">"
           "<div style='position:fixed;right:0;bottom:0;width:8px;height:8px;background:#00f'>";
    Measure("file://" + path);
    CoRevokeClassObject(cookie);
    OleUninitialize();
    return 0;
}
