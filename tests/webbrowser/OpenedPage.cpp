#include "tests/webbrowser/OpenedPage.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "framework/HResult.h"
#include "framework/Text.h"
#include "webbrowser/Browser.h"

namespace nux::webbrowser {

OpenedPage::OpenedPage(PixelSize size) : page(Page::Open(*this, size)) {}

OpenedPage::~OpenedPage() {
    if (page)
        page->Close();
}

void OpenedPage::Show(const std::string& html, const std::string& name) {
    Load(Widen(folder.Write(name, html), CP_ACP));
}

void OpenedPage::Load(const std::wstring& address) {
    const int before = loads;
    page->Navigate(address);
    EXPECT_TRUE(Await([&] { return loads > before; })) << "nothing was loaded";
}

std::wstring OpenedPage::Text(const std::wstring& expression) {
    Variant value;
    try {
        value = page->Execute(L"String(" + expression + L")");
    } catch (const HResultError& error) {
        return L"failed: " + error.Words();
    }
    return value.IsString() ? std::wstring(value.Text(), SysStringLen(value.Text())) : L"(no text)";
}

std::int64_t OpenedPage::CollectGarbage() const {
    const std::shared_ptr<Browser> browser = Browser::Running();
    const std::shared_ptr<Inbox> inbox = Inbox::OfThisThread();
    const Json targets = browser->Wait({}, "Target.getTargets", Json::object(), inbox);
    std::int64_t used = 0;
    for (const Json& target : targets["targetInfos"]) {
        if (TextMember(target, "type") != "page")
            continue;
        const std::string session = TextMember(
            browser->Wait({}, "Target.attachToTarget",
                          {{"targetId", TextMember(target, "targetId")}, {"flatten", true}}, inbox),
            "sessionId");
        browser->Wait(session, "HeapProfiler.collectGarbage", Json::object(), inbox);
        used +=
            NumberMember(browser->Wait(session, "Runtime.getHeapUsage", Json::object(), inbox), "usedSize");
        browser->Send({}, "Target.detachFromTarget", {{"sessionId", session}});
    }
    page->Call("() => 1");
    Await([pumped = false]() mutable { return std::exchange(pumped, true); });
    return used;
}

bool OpenedPage::WasTold(const std::wstring& line) const {
    return std::find(told.begin(), told.end(), line) != told.end();
}

bool OpenedPage::Navigating(const std::wstring& address, bool isTop) {
    Tell((isTop ? L"navigating " : L"frame navigating ") + address);
    return !refuses;
}

void OpenedPage::Navigated(const std::wstring& address, bool isTop) {
    Tell((isTop ? L"navigated " : L"frame navigated ") + address);
}

void OpenedPage::Loaded(const std::wstring& address, bool isTop) {
    Tell((isTop ? L"loaded " : L"frame loaded ") + address);
    loads += isTop ? 1 : 0;
}

void OpenedPage::NavigationFailed(const std::wstring& address, bool, HRESULT status) {
    Tell(L"failed " + address + L" " + std::to_wstring(static_cast<unsigned>(status)));
}

void OpenedPage::ReadyStateChanged(ReadyState state) {
    Tell(L"state " + std::to_wstring(static_cast<int>(state)));
}

PageDialogAnswer OpenedPage::Asked(const PageDialog& question) {
    Tell(L"asked " + question.message);
    return answer ? answer(question) : PageDialogAnswer();
}

void OpenedPage::Painted(const std::shared_ptr<const Picture>& shown) {
    picture = shown;
    if (whenPainted)
        whenPainted();
}

void OpenedPage::ContextMenu(POINT at, const PageReference& element) {
    Tell(L"menu " + std::to_wstring(at.x) + L" " + std::to_wstring(at.y));
    menuElement = element;
}

void OpenedPage::Lost(PageLoss loss) {
    Tell(loss == PageLoss::browserEnded ? L"browser ended" : L"renderer ended");
}

}  // namespace nux::webbrowser
