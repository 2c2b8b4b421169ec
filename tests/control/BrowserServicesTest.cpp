// The host's browser, and the pages that are opened in it.

#include <gtest/gtest.h>
#include <mshtml.h>

#include "driver/ScriptEngine.h"
#include "framework/Handles.h"
#include "tests/control/HostedComponent.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

using host::Call;

/// A browser that keeps the arguments behind the address.
class BrowserWithArguments : public host::Browser {
public:
    using Browser::Browser;

    std::string
        arguments;  ///< a letter each: "n" for a null pointer, "e" for an empty value, "?" for another

    STDMETHODIMP Navigate(BSTR url, VARIANT* flags, VARIANT* frame, VARIANT* data,
                          VARIANT* headers) override {
        arguments.clear();
        for (const VARIANT* argument : {flags, frame, data, headers})
            arguments += !argument ? 'n' : argument->vt == VT_EMPTY ? 'e' : '?';
        return Browser::Navigate(url, flags, frame, data, headers);
    }
};

/// A browser that writes down which interfaces it is asked for, and how many references are held on it then.
class AskedBrowser : public host::Browser {
public:
    using Browser::Browser;

    std::string asked;
    std::function<void()> whenAsked;  ///< runs once, at the first query; may be empty

protected:
    void* FindInterface(REFIID iid) noexcept {
        asked += iid == IdOf<IWebBrowser2>() ? "browser " : iid == IdOf<IOleWindow>() ? "window " : "other ";
        asked += std::to_string(References(static_cast<IWebBrowser2*>(this))) + "; ";
        if (const auto act = std::exchange(whenAsked, nullptr))
            act();
        return Browser::FindInterface(iid);
    }
};

/// An object that answers queries for a browser and its window with a code, and with a pointer that is no
/// object's.
class RefusingObject : public HostDispatch {
public:
    static constexpr HRESULT refusal = E_ACCESSDENIED;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = FindInterface(iid);
        if (*object) {
            AddRef();
            return S_OK;
        }
        *object = reinterpret_cast<void*>(1);
        return refusal;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }

    ULONG references = 1;
};

class Browsers : public HostedTest {
protected:
    HRESULT Navigate(const std::string& url) { return parts->Navigate(Bstr(url, CP_ACP).Get()); }
    ComPtr<IDispatch> Browser() {
        ComPtr<IDispatch> browser;
        EXPECT_EQ(S_OK, parts->get_WebBrowser(browser.Receive()));
        return browser;
    }
};

TEST_F(Browsers, AreTakenWithoutANavigation) {
    EXPECT_EQ(S_OK, Navigate(defaultPage));
    AttachBrowser();
    EXPECT_EQ(Query<IUnknown>(static_cast<IWebBrowser2*>(objects.browser.Get())).Get(),
              Query<IUnknown>(Browser().Get()).Get());
    EXPECT_EQ((Texts{"GetWindow"}), Asked({Call::Navigate, Call::GetWindow, Call::Document, Call::Refresh}));
}

TEST_F(Browsers, AreHeldOnceForTheObjectAndOnceForTheProcess) {
    const auto references = [&] { return References(static_cast<IWebBrowser2*>(objects.browser.Get())); };
    EXPECT_EQ(S_OK, parts->AttachBrowser(objects.browser.Get()));
    EXPECT_EQ(3u, references());
    EXPECT_EQ(S_OK, parts->AttachBrowser(objects.browser.Get()));
    EXPECT_EQ(4u, references()) << "the old one was let go of";
    ReleaseParts();
    EXPECT_EQ(3u, references());
    objects.browser->Release();
    objects.browser->Release();
}

TEST_F(Browsers, AreAskedForThemselvesThenForTheirWindowAndForNoEvents) {
    const auto browser = MakeObject<AskedBrowser>(std::make_shared<host::CallRecord>());
    EXPECT_EQ(S_OK, Attach(browser.Get()));
    EXPECT_EQ("browser 3; window 4; ", browser->asked)
        << "the test's two, the one of the process before the first query, the one of the object";
    EXPECT_EQ(S_OK, Navigate(defaultPage));
    EXPECT_EQ("browser 3; window 4; ", browser->asked) << "nothing is connected later either";
}

TEST_F(Browsers, MayAttachAnotherWhileTheyAreAsked) {
    const auto browser = MakeObject<AskedBrowser>(std::make_shared<host::CallRecord>());
    browser->whenAsked = [&] { AttachBrowser(); };
    EXPECT_EQ(S_OK, Attach(browser.Get()));
    EXPECT_EQ(2u, References(static_cast<IWebBrowser2*>(objects.browser.Get())) - 1)
        << "the test's and the one of the process: the object has let go of it";
    EXPECT_EQ(Query<IUnknown>(static_cast<IWebBrowser2*>(browser.Get())).Get(),
              Query<IUnknown>(Browser().Get()).Get());
}

TEST_F(Browsers, AForeignObjectIsRefusedAndTheOldOneIsGone) {
    AttachBrowser();
    EXPECT_EQ(E_NOINTERFACE, Attach(objects.application.Get()));
    EXPECT_EQ(2u, References(static_cast<IWebBrowser2*>(objects.browser.Get())) - 1)
        << "ours, the test's, and the one of the process";
    IDispatch* out = objects.application.Get();
    EXPECT_EQ(S_FALSE, parts->get_WebBrowser(&out));
    EXPECT_EQ(nullptr, out);
    EXPECT_EQ(E_INVALIDARG, parts->get_WebBrowser(nullptr));
}

TEST_F(Browsers, NullIsRefusedAndTheOldOneIsGone) {
    AttachBrowser();
    EXPECT_EQ(E_INVALIDARG, Attach(nullptr));
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, Navigate(defaultPage)); }));
    EXPECT_TRUE(Opened().empty());
}

TEST_F(Browsers, TheAnswerOfARefusalIsPassedOnAndItsPointerIsNotUsed) {
    RefusingObject object;
    EXPECT_EQ(RefusingObject::refusal, parts->AttachBrowser(&object));
    EXPECT_EQ(2u, object.references) << "held for the life of the process all the same";
    ComPtr<IDispatch> browser;
    EXPECT_EQ(S_FALSE, parts->get_WebBrowser(browser.Receive()));
    ReleaseParts();
    EXPECT_EQ(2u, object.references);
}

TEST_F(Browsers, OneThatHasDiedFailsSilentlyOrIsTold) {
    AttachBrowser();
    objects.browser->dead = true;
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, Navigate(defaultPage)); }));
    EXPECT_EQ(noMemory, Told([&] { EXPECT_EQ(S_OK, Edit(nullptr, 0)); }));
    EXPECT_EQ(S_OK, Attach(objects.browser.Get()));
}

TEST_F(Browsers, OpenPagesThatExist) {
    AttachBrowser();
    for (const std::string& url :
         {defaultPage, "FILE://" + data + "Tarnvale.htm", "file://" + data + "/sub\\../Tarnvale.htm"}) {
        folder.MakeFolder("data\\sub");
        EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, Navigate(url)); })) << url;
        EXPECT_EQ(Texts{url}, Opened());
    }
    const std::string name =
        "gro\xdf und \xfc"
        "bel #1 %20.htm";
    folder.Write("data\\" + name, "");
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, Navigate("file://" + data + name)); }));
    EXPECT_EQ(Texts{"file://" + data + name}, Opened());
}

TEST_F(Browsers, OpenAnyOtherSchemeWithoutALook) {
    AttachBrowser();
    for (const char* url :
         {"http://host/missing.htm", "about:blank", "file:/c:/missing.htm", "missing.htm", ""}) {
        EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, Navigate(url)); })) << url;
        EXPECT_EQ(Texts{url}, Opened());
    }
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, parts->Navigate(nullptr)); }));
    EXPECT_EQ(Texts{""}, Opened());
}

TEST_F(Browsers, TellOfAPageThatIsMissing) {
    AttachBrowser();
    const UniqueFile held(CreateFileA((data + "Wizard.htm").c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    for (const std::string& url :
         {"file://" + data + "missing.htm", "file://" + data, "file://" + data.substr(0, data.size() - 1),
          wizardPage, std::string("file://")}) {
        EXPECT_EQ(noPage, Told([&] { EXPECT_EQ(S_OK, Navigate(url)); })) << url;
        EXPECT_TRUE(Opened().empty()) << "not even the default page";
    }
}

TEST_F(Browsers, AFailureOfTheirsToOpenAPageIsNoMatter) {
    AttachBrowser();
    objects.Record().Fail(Call::Navigate, E_ACCESSDENIED, 0);
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, Navigate(defaultPage)); }));
    EXPECT_EQ(Texts{defaultPage}, Opened());
}

TEST_F(Browsers, ANavigationClosesTheEditedComponent) {
    for (const bool attached : {false, true}) {
        if (attached)
            AttachBrowser();
        for (const std::string& url : {defaultPage, "file://" + data + "missing.htm"}) {
            const auto component = EditOne();
            Told([&] { EXPECT_EQ(S_OK, Navigate(url)); });
            EXPECT_FALSE(Edited());
            EXPECT_EQ(1u, References(component.Get()));
            Texts expected{"Close"};  // before the page opens
            if (attached && url == defaultPage)
                expected.push_back("Navigate " + url);
            EXPECT_EQ(expected, Asked({Call::Close, Call::Navigate}));
        }
    }
}

TEST_F(Browsers, TheEditedComponentMayBeDroppedWhileItCloses) {
    const auto component = EditOne();
    objects.Record().whenCalled = [&](const auto&) {
        EXPECT_EQ(S_OK, Edit(nullptr, 0));
        EXPECT_EQ(2u, References(component.Get())) << "it is held until Close is over";
    };
    EXPECT_EQ(S_OK, Navigate(defaultPage));
    objects.Record().whenCalled = nullptr;
    EXPECT_EQ(Texts{"Close"}, Asked({Call::Close}));
    EXPECT_EQ(1u, References(component.Get()));
}

TEST_F(Browsers, WithoutOneNothingIsToldAndNothingOpens) {
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, Navigate("file://" + data + "missing.htm")); }));
    EXPECT_TRUE(objects.Record().Lines().empty());
}

TEST_F(Browsers, GetNullsWithAnAddressAndEmptyValuesWithTheComponentsPage) {
    const auto browser = MakeObject<BrowserWithArguments>(std::make_shared<host::CallRecord>());
    EXPECT_EQ(S_OK, Attach(browser.Get()));
    EXPECT_EQ(S_OK, Navigate(defaultPage));
    EXPECT_EQ("nnnn", browser->arguments);
    EXPECT_EQ(S_OK, Edit(objects.Edit(L"BOLTS", L"M8").Get(), 1));
    EXPECT_EQ("eeee", browser->arguments);
}

TEST_F(Browsers, MayLetGoOfTheObjectWhileTheyOpenAPage) {
    AttachBrowser();
    InuxStdParts* const last = parts.Get();
    objects.browser->whenNavigated = [&] { parts.Reset(); };
    EXPECT_EQ(S_OK, last->Navigate(Bstr(defaultPage, CP_ACP).Get()));
    objects.browser->whenNavigated = nullptr;
    EXPECT_EQ(S_OK, ModuleCanUnload());
}

TEST_F(Browsers, MayBeReplacedWhileTheyOpenAPage) {
    AttachBrowser();
    objects.browser->whenNavigated = [&] { EXPECT_EQ(E_INVALIDARG, Attach(nullptr)); };
    EXPECT_EQ(S_OK, Edit(objects.Edit(L"BOLTS", L"M8").Get(), 1));
    objects.browser->whenNavigated = nullptr;
}

}  // namespace
}  // namespace nux
