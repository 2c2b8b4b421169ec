#pragma once

#include <windows.h>

#include <exdisp.h>
#include <gtest/gtest.h>
#include <ocidl.h>

#include "framework/ComObject.h"
#include "tests/webbrowser/BrowserSink.h"
#include "tests/webbrowser/BrowserSite.h"
#include "tests/webbrowser/FakePage.h"
#include "webbrowser/WebBrowser.h"

namespace nux::webbrowser {

/// A browser control in a plain container of the test's own.
class ContainedBrowser : public testing::Test {
protected:
    ContainedBrowser() : ContainedBrowser(&FakePage::Open) {}
    explicit ContainedBrowser(WebBrowser::PageOpener opener) {
        FakePage::failure = S_OK;
        FakePage::opened = 0;
        frame = CreateWindowExA(0, "STATIC", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 640, 480,
                                nullptr, nullptr, nullptr, nullptr);
        site = MakeObject<BrowserSite>(frame);
        site->position = {0, 0, 400, 300};
        sink = MakeObject<BrowserSink>();
        control = MakeObject<WebBrowser>(opener);
        browser = ComPtr<IWebBrowser2>(control.Get());
        object = browser.As<IOleObject>();
        connection = Connect(IdOf<DWebBrowserEvents2>(), sink.Get());
    }
    ~ContainedBrowser() override {
        sink->during = nullptr;
        sink->window.Reset();
        sink->source.Reset();
        if (object)
            object->SetClientSite(nullptr);
        object.Reset();
        browser.Reset();
        control.Reset();
        DestroyWindow(frame);
    }

    DWORD Connect(REFIID iid, IUnknown* to) {
        ComPtr<IConnectionPoint> point;
        EXPECT_EQ(S_OK, browser.As<IConnectionPointContainer>()->FindConnectionPoint(iid, point.Receive()));
        DWORD cookie = 0;
        EXPECT_EQ(S_OK, point->Advise(to, &cookie));
        return cookie;
    }
    void Activate() {
        EXPECT_EQ(S_OK, object->SetClientSite(static_cast<IOleClientSite*>(site.Get())));
        EXPECT_EQ(S_OK, object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, frame, nullptr));
    }
    HRESULT Navigate(const wchar_t* address) {
        return browser->Navigate(Bstr(address).Get(), nullptr, nullptr, nullptr, nullptr);
    }
    HWND Window() {
        HWND window = nullptr;
        browser.As<IOleWindow>()->GetWindow(&window);
        return window;
    }
    static std::shared_ptr<FakePage> Page() { return FakePage::last.lock(); }

    HWND frame = nullptr;
    ComPtr<ComObject<BrowserSite>> site;
    ComPtr<ComObject<BrowserSink>> sink;
    ComPtr<ComObject<WebBrowser>> control;
    ComPtr<IWebBrowser2> browser;
    ComPtr<IOleObject> object;
    DWORD connection = 0;
};

}  // namespace nux::webbrowser
