// The host's status bar.

#include <gtest/gtest.h>

#include "tests/control/HostedComponent.h"

namespace nux {
namespace {

using host::Call;

/// An object that has a window and is no browser.
class WindowWithoutBrowser : public host::Browser {
public:
    using Browser::Browser;

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == IdOf<IWebBrowser2>() ? nullptr : Browser::FindInterface(iid);
    }
};

/// A status bar that writes down how it is called.
class StatusBarDouble : public HostDispatch {
public:
    HRESULT result = S_OK;
    int known = 4;  ///< how many names it knows, before it knows no further one
    std::string asked;
    std::function<void()> whenAsked;   ///< runs once, at the first name; may be empty
    std::function<void()> whenCalled;  ///< runs at each call; may be empty

    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        asked += Name(names[0]) + " " + std::to_string(count) + " " + std::to_string(locale) +
                 (iid == GUID_NULL ? "; " : " iid; ");
        if (const auto act = std::exchange(whenAsked, nullptr))
            act();
        if (known-- <= 0)
            return DISP_E_UNKNOWNNAME;
        *ids = ++last_;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* answer,
                        EXCEPINFO*, UINT*) override {
        asked += std::to_string(id) + " " + std::to_string(locale) + " " + std::to_string(flags) +
                 (answer ? " answer" : "");
        for (UINT i = 0; i < parameters->cArgs; ++i) {
            const VARIANT& argument = parameters->rgvarg[i];
            asked += " " + std::to_string(argument.vt) + "=" +
                     (argument.vt == VT_BSTR ? Narrow(argument.bstrVal) : std::to_string(argument.lVal));
        }
        asked += "; ";
        if (whenCalled)
            whenCalled();
        return result;
    }

private:
    DISPID last_ = 100;
};

class StatusBars : public HostedTest {
protected:
    /// The results of the four calls in the order of the bar's members, each of which is told to be tested.
    void ExpectResult(HRESULT result) {
        EXPECT_EQ(result, parts->SetStatusMessage(Bstr(L"Loading \u20ac").Get()));
        EXPECT_EQ(result, parts->UpdateProgressBar(-5));
        EXPECT_EQ(result, parts->CreateProgressBar());
        EXPECT_EQ(result, parts->DestroyProgressBar());
    }
};

TEST_F(StatusBars, WithoutOneNothingIsShown) {
    ExpectResult(S_FALSE);
    EXPECT_EQ(S_OK, parts->UnLoadStatusBar());
    EXPECT_EQ(S_OK, parts->put_StatusBar(objects.statusBar.Get()));
    EXPECT_EQ(2u, References(static_cast<IDispatch*>(objects.statusBar.Get())));
    EXPECT_EQ(S_OK, parts->UnLoadStatusBar());
    ExpectResult(S_FALSE);
    EXPECT_EQ(S_OK, parts->put_StatusBar(objects.statusBar.Get()));
    EXPECT_EQ(S_OK, parts->put_StatusBar(nullptr));
    ExpectResult(S_FALSE);
    EXPECT_TRUE(objects.Record().Lines().empty());
}

TEST_F(StatusBars, ShowWhatTheyAreTold) {
    EXPECT_EQ(S_OK, parts->put_StatusBar(objects.statusBar.Get()));
    ExpectResult(S_OK);
    EXPECT_EQ(
        (Texts{"SetMessage Loading \x80", "SetProgress -5", "CreateProgressBar", "DestroyProgressBar"}),
        Asked({Call::SetMessage, Call::SetProgress, Call::CreateProgressBar, Call::DestroyProgressBar}));
    EXPECT_EQ(S_OK, parts->SetStatusMessage(nullptr));
    EXPECT_EQ(Texts{"SetMessage"}, Asked({Call::SetMessage}));
}

TEST_F(StatusBars, AreAskedForTheirMembersOnceAndCalledByNumber) {
    const auto bar = MakeObject<StatusBarDouble>();
    EXPECT_EQ(S_OK, parts->put_StatusBar(bar.Get()));
    EXPECT_EQ("SetMessage 1 0; SetProgress 1 0; CreateProgressBar 1 0; DestroyProgressBar 1 0; ", bar->asked);
    bar->asked.clear();
    ExpectResult(S_OK);
    EXPECT_EQ("101 0 1 8=Loading \x80; 102 0 1 3=-5; 103 0 1; 104 0 1; ", bar->asked);
    for (const HRESULT result : {static_cast<HRESULT>(S_FALSE), E_ACCESSDENIED, DISP_E_EXCEPTION}) {
        bar->result = result;
        ExpectResult(result);
    }
    ReleaseParts();
    EXPECT_EQ(1u, References(static_cast<IDispatch*>(bar.Get())));
}

TEST_F(StatusBars, WithoutOneOfTheirMembersAreRefusedAndTheOldOneIsGone) {
    for (const Call member :
         {Call::SetMessage, Call::SetProgress, Call::CreateProgressBar, Call::DestroyProgressBar}) {
        SCOPED_TRACE(Name(host::NameOf(member)));
        const auto old = MakeObject<StatusBarDouble>();
        EXPECT_EQ(S_OK, parts->put_StatusBar(old.Get()));
        objects.Record().Hide(member);
        EXPECT_EQ(E_FAIL, parts->put_StatusBar(objects.statusBar.Get()));
        objects.Record().Restore();
        EXPECT_EQ(1u, References(static_cast<IDispatch*>(old.Get())));
        EXPECT_EQ(1u, References(static_cast<IDispatch*>(objects.statusBar.Get())));
        ExpectResult(S_FALSE);
    }
    EXPECT_EQ(E_FAIL, parts->put_StatusBar(objects.application.Get()));
    ExpectResult(S_FALSE);
}

TEST_F(StatusBars, AreAskedUpToTheFirstMemberThatTheyLackAfterTheOldOneHasGone) {
    const auto old = MakeObject<StatusBarDouble>();
    EXPECT_EQ(S_OK, parts->put_StatusBar(old.Get()));
    const auto bar = MakeObject<StatusBarDouble>();
    bar->known = 2;
    bar->whenAsked = [&] { EXPECT_EQ(1u, References(static_cast<IDispatch*>(old.Get()))); };
    EXPECT_EQ(E_FAIL, parts->put_StatusBar(bar.Get()));
    EXPECT_EQ("SetMessage 1 0; SetProgress 1 0; CreateProgressBar 1 0; ", bar->asked);
    EXPECT_EQ(1u, References(static_cast<IDispatch*>(bar.Get())));
}

TEST_F(StatusBars, MayPutAnotherWhileTheyAreAsked) {
    for (const int known : {2, 4}) {
        const auto bar = MakeObject<StatusBarDouble>();
        bar->known = known;
        bar->whenAsked = [&] { EXPECT_EQ(S_OK, parts->put_StatusBar(objects.statusBar.Get())); };
        EXPECT_EQ(known == 4 ? S_OK : E_FAIL, parts->put_StatusBar(bar.Get()));
        bar->asked.clear();
        ExpectResult(known == 4 ? S_OK : S_FALSE);
        EXPECT_EQ(known == 4 ? "101 0 1 8=Loading \x80; 102 0 1 3=-5; 103 0 1; 104 0 1; " : "", bar->asked);
        EXPECT_TRUE(objects.Record().Lines().empty()) << "the other one is not called";
        EXPECT_EQ(1u, References(static_cast<IDispatch*>(objects.statusBar.Get())));
        EXPECT_EQ(S_OK, parts->UnLoadStatusBar());
    }
}

TEST_F(StatusBars, ThePageIsPaintedAnewWithEachCall) {
    const HWND page = CreateWindowExA(0, "STATIC", "page", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                      nullptr, nullptr, nullptr);
    const auto painted = [&](const std::function<void()>& work) {
        UpdateWindow(page);
        InvalidateRect(page, nullptr, FALSE);
        work();
        return !GetUpdateRect(page, nullptr, FALSE);
    };
    objects.browser->window = page;
    AttachBrowser();
    EXPECT_FALSE(painted([&] { EXPECT_EQ(S_FALSE, parts->CreateProgressBar()); })) << "without a status bar";
    const auto bar = MakeObject<StatusBarDouble>();
    parts->put_StatusBar(bar.Get());
    EXPECT_TRUE(painted([&] { parts->SetStatusMessage(nullptr); }));
    EXPECT_TRUE(painted([&] { parts->UpdateProgressBar(1); }));
    EXPECT_TRUE(painted([&] { parts->CreateProgressBar(); }));
    EXPECT_TRUE(painted([&] { parts->DestroyProgressBar(); }));
    bar->result = E_FAIL;
    EXPECT_TRUE(painted([&] { EXPECT_EQ(E_FAIL, parts->UpdateProgressBar(1)); })) << "also if it fails";
    Attach(objects.application.Get());
    EXPECT_FALSE(painted([&] { parts->UpdateProgressBar(1); })) << "the page is no longer known";
    const auto other = MakeObject<WindowWithoutBrowser>(std::make_shared<host::CallRecord>());
    other->window = page;
    EXPECT_EQ(E_NOINTERFACE, Attach(other.Get()));
    EXPECT_TRUE(painted([&] { parts->UpdateProgressBar(1); })) << "the window is known without its browser";
    DestroyWindow(page);
}

TEST_F(StatusBars, AreHeldUntilTheirCallIsOver) {
    const auto bar = MakeObject<StatusBarDouble>();
    EXPECT_EQ(S_OK, parts->put_StatusBar(bar.Get()));
    bar->whenCalled = [&] {
        EXPECT_EQ(S_OK, parts->UnLoadStatusBar());
        EXPECT_EQ(2u, References(static_cast<IDispatch*>(bar.Get())));
    };
    EXPECT_EQ(S_OK, parts->CreateProgressBar());
    EXPECT_EQ(1u, References(static_cast<IDispatch*>(bar.Get())));
}

TEST_F(StatusBars, MayLetGoOfTheObjectOrBeReplacedMeanwhile) {
    objects.statusBar->whenChanged = [&] { EXPECT_EQ(S_OK, parts->UnLoadStatusBar()); };
    EXPECT_EQ(S_OK, parts->put_StatusBar(objects.statusBar.Get()));
    EXPECT_EQ(S_OK, parts->UpdateProgressBar(1));
    EXPECT_EQ(S_FALSE, parts->UpdateProgressBar(2));
    EXPECT_EQ(S_OK, parts->put_StatusBar(objects.statusBar.Get()));
    InuxStdParts* const last = parts.Get();
    objects.statusBar->whenChanged = [&] { parts.Reset(); };
    EXPECT_EQ(S_OK, last->UpdateProgressBar(1));
    objects.statusBar->whenChanged = nullptr;
    EXPECT_EQ(S_OK, ModuleCanUnload());
}

}  // namespace
}  // namespace nux
