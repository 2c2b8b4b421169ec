// What a page costs: until it is there, a call between it and C++ in both directions, until a change or a
// click has come through. Each line is a median. There is no floor to compare with: what the browser takes is
// in it.

#include <windows.h>

#include <ole2.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/Measurement.h"
#include "framework/ComObject.h"
#include "framework/Implements.h"
#include "framework/Module.h"
#include "framework/Text.h"
#include "webbrowser/Browser.h"
#include "webbrowser/Page.h"

namespace {

using namespace nux;
using namespace nux::webbrowser;

/// window.external with the one method that is measured.
class Counter : public Implements<IDispatch> {
public:
    virtual ~Counter() = default;
    int calls = 0;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
        *ids = 1;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (!(flags & DISPATCH_METHOD))
            return DISP_E_MEMBERNOTFOUND;
        ++calls;
        if (result) {
            result->vt = VT_I4;
            result->lVal = calls;
        }
        return S_OK;
    }
};

class Shown : public PageListener {
public:
    explicit Shown(const std::wstring& address) : page(Page::Open(*this, {800, 600})) {
        page->Navigate(address);
        Await([&] { return isLoaded && picture; });
    }
    ~Shown() { page->Close(); }

    void Await(const std::function<bool()>& isSo) {
        while (!isSo()) {
            MSG message;
            if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageW(&message);
            else
                MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
        }
    }

    bool Navigating(const std::wstring&, bool) override { return true; }
    void Navigated(const std::wstring&, bool) override {}
    void Loaded(const std::wstring&, bool) override { isLoaded = true; }
    void NavigationFailed(const std::wstring&, bool, HRESULT) override {}
    void ReadyStateChanged(ReadyState) override {}
    void TitleChanged(const std::wstring&) override {}
    void StatusChanged(const std::wstring&) override {}
    void HistoryChanged() override {}
    void NewWindow(const std::wstring&) override {}
    void CloseRequested() override {}
    PageDialogAnswer Asked(const PageDialog&) override { return {}; }
    ComPtr<IDispatch> External() override { return counter; }
    bool MayMakeObjects(const std::wstring&) override { return false; }
    ComPtr<IDispatch> MakeObject(const PageReference&) override { return nullptr; }
    void Painted(const std::shared_ptr<const Picture>& painted) override {
        picture = painted;
        ++pictures;
    }
    void CursorChanged(HCURSOR) override {}
    void ToolTipChanged(const std::wstring&) override {}
    void TabbedOut(bool) override {}
    void ContextMenu(POINT, const PageReference&) override {}
    void Lost(PageLoss) override {}

    bool isLoaded = false;
    int pictures = 0;
    std::shared_ptr<const Picture> picture;
    ComPtr<ComObject<Counter>> counter = nux::MakeObject<Counter>();
    std::shared_ptr<Page> page;
};

void Tell(const char* what, std::vector<double> seconds) {
    std::sort(seconds.begin(), seconds.end());
    std::printf("| %s | %zu | %.2f | %.2f |\n", what, seconds.size(), seconds[seconds.size() / 2] * 1000,
                seconds.back() * 1000);
    std::fflush(stdout);
}

/// Kilobytes of the browser's processes, with their part of what they share.
double BrowserMemory() {
    const Json system =
        Browser::Running()->Wait({}, "SystemInfo.getProcessInfo", Json::object(), Inbox::OfThisThread());
    double kilobytes = 0;
    for (const Json& process : system["processInfo"]) {
        std::ifstream sizes("Z:/proc/" + std::to_string(NumberMember(process, "id")) + "/smaps_rollup");
        for (std::string line; std::getline(sizes, line);) {
            if (line.starts_with("Pss:"))
                kilobytes += std::stod(line.substr(4));
        }
    }
    return kilobytes;
}

std::vector<double> Rounds(int count, const std::function<void()>& work) {
    std::vector<double> seconds;
    for (int i = 0; i < count; ++i)
        seconds.push_back(bench::SecondsOf(work));
    return seconds;
}

void Measure(const std::wstring& address) {
    std::printf("| Milliseconds | n | median | most |\n|---|---|---|---|\n");
    std::unique_ptr<Shown> first;
    Tell("first page with its picture, the browser's start included",
         Rounds(1, [&] { first = std::make_unique<Shown>(address); }));
    std::vector<std::unique_ptr<Shown>> others;
    const double withFirst = BrowserMemory();
    Tell("each further page", Rounds(20, [&] { others.push_back(std::make_unique<Shown>(address)); }));
    const double perPage = (BrowserMemory() - withFirst) / static_cast<double>(others.size());
    others.clear();
    Shown& shown = *first;

    Tell("C++ calls a function of the page", Rounds(1000, [&] { shown.page->Call("() => 1"); }));
    Variant milliseconds = shown.page->Call(R"(() => {
        const taken = [];
        for (let i = 0; i < 1000; ++i) {
            const begin = performance.now();
            external.Count();
            taken.push(performance.now() - begin);
        }
        return taken.sort((a, b) => a - b)[500] * 1000;
    })");
    VARIANT number{};
    VariantChangeType(&number, const_cast<VARIANT*>(&milliseconds.Get()), 0, VT_R8);
    Tell("a script calls an object of C++ (median of 1000)", {number.dblVal / 1e6});

    int colour = 0;
    Tell("a change of the page is painted", Rounds(50, [&] {
             Variant value;
             value.SetNumber(++colour);
             shown.page->Call("n => { document.body.style.background = 'rgb(' + n + ',0,0)'; }", {&value, 1});
             shown.Await([&] {
                 return (shown.picture->pixels.back() & 0xffffff) == static_cast<std::uint32_t>(colour) << 16;
             });
         }));
    Tell("a click reaches an object of C++", Rounds(50, [&] {
             const int calls = shown.counter->calls;
             shown.page->Mouse(WM_LBUTTONDOWN, MK_LBUTTON, {20, 20});
             shown.page->Mouse(WM_LBUTTONUP, 0, {20, 20});
             shown.Await([&] { return shown.counter->calls > calls; });
         }));

    const int before = shown.pictures;
    int width = 800;
    const double resizing = bench::SecondsOf([&] {
        for (int i = 0; i < 90; ++i) {
            shown.page->Resize({++width, 600});
            const ULONGLONG until = GetTickCount64() + 33;
            shown.Await([&] { return GetTickCount64() >= until; });
        }
    });
    const int pictures = shown.pictures - before;
    Tell("after the last of 90 sizes until it is painted",
         Rounds(1, [&] { shown.Await([&] { return shown.picture->size.width == width; }); }));
    std::printf("\nMemory of the browser: %.0f MB with the first page, %.1f MB for each further one\n",
                withFirst / 1024, perPage / 1024);
    std::printf("\nPictures in a second while resized 30 times a second: %.0f\n", pictures / resizing);
    std::fflush(stdout);
}

}  // namespace

int main(int, char** arguments) {
    SetThisModule(GetModuleHandleA(nullptr));
    OleInitialize(nullptr);
    const std::string path = std::string(arguments[1]) + "bench_page.htm";
    std::ofstream(path) << "<body style='margin:0'><button style='width:100px;height:40px' "
                           "onclick='external.Count()'>x</button>";
    Measure(Widen(path));
    OleUninitialize();
    return 0;
}
