// The host's browser, the commands of the control's window, the status bar.

#include <gtest/gtest.h>
#include <mshtml.h>

#include "driver/ScriptEngine.h"
#include "framework/Handles.h"
#include "tests/control/HostedComponent.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

using host::Call;

constexpr char noPage[] = "Cannot find the html page!";
constexpr char noDefaultPage[] = "Cannot find the default html page!";
constexpr char noMemory[] = "Out of memory!";

std::string Name(const wchar_t* name) {
    return Narrow(name, std::wcslen(name));
}

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

/// An object that has a window and is no browser.
class WindowWithoutBrowser : public host::Browser {
public:
    using Browser::Browser;

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == IdOf<IWebBrowser2>() ? nullptr : Browser::FindInterface(iid);
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

/// A page's script that has one function, which answers a code; it writes down how it is called.
class ScriptDouble : public HostDispatch {
public:
    HRESULT found = S_OK;
    HRESULT result = S_OK;
    std::string asked;

    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        asked += Name(names[0]) + " " + std::to_string(count) + " " + std::to_string(locale) +
                 (iid == GUID_NULL ? "" : " iid");
        *ids = 77;
        return found;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* answer,
                        EXCEPINFO*, UINT*) override {
        asked += ", " + std::to_string(id) + " " + std::to_string(locale) + " " + std::to_string(flags) +
                 " " + std::to_string(parameters->cArgs);
        if (answer) {
            answer->vt = VT_I4;
            answer->lVal = 5;
        }
        return result;
    }
};

class Commands : public Browsers {
protected:
    void SetUp() override {
        Browsers::SetUp();
        window = ShowControl();
        AttachBrowser();
        objects.Record().ClearLines();
    }

    LRESULT Send(WORD command, WORD notification = 0) {
        return SendMessageA(window, WM_COMMAND, MAKEWPARAM(command, notification), 0);
    }

    HWND window = nullptr;
};

TEST_F(Commands, OneAndUnknownOnesDoNothing) {
    const auto component = EditOne();
    for (const WORD command : {0, 1, 5, 99, 0xffff})
        EXPECT_EQ("", Told([&] { EXPECT_EQ(0, Send(command)); }));
    EXPECT_TRUE(Edited());
    EXPECT_TRUE(objects.Record().Lines().empty());
}

TEST_F(Commands, TwoCallsTheFunctionOfThePage) {
    ScriptEngine engine;
    ASSERT_EQ(S_OK,
              engine.Run(L"var calls = 0, given = 0;"
                         L"function OnChooseDimensions() { ++calls; given += arguments.length; return 5; }"));
    objects.browser->script = engine.Object(L"this");
    EXPECT_EQ(0, Send(2));
    EXPECT_EQ(0, Send(2, 7)) << "whatever the other half of wParam says";
    RawVariant calls;
    EXPECT_EQ(S_OK, engine.Evaluate(L"calls + 10 * given", &calls));
    EXPECT_EQ(2, calls.lVal);
    objects.browser->script.Reset();
}

TEST_F(Commands, TwoAsksForTheNameAloneAndGivesNothing) {
    const auto script = MakeObject<ScriptDouble>();
    objects.browser->script = script.Get();
    for (const HRESULT result : {S_OK, E_FAIL}) {
        script->asked.clear();
        script->result = result;
        EXPECT_EQ("", Told([&] { EXPECT_EQ(0, Send(2)); }));
        EXPECT_EQ("OnChooseDimensions 1 0, 77 2048 1 0", script->asked);
    }
    script->asked.clear();
    script->found = DISP_E_UNKNOWNNAME;
    EXPECT_EQ(0, Send(2));
    EXPECT_EQ("OnChooseDimensions 1 0", script->asked) << "what isn't found is not called";
    objects.browser->script.Reset();
    EXPECT_EQ(1u, References(static_cast<IDispatch*>(script.Get())));
}

TEST_F(Commands, TwoPassesOverPagesThatCannotAnswer) {
    ScriptEngine engine;
    ASSERT_EQ(S_OK, engine.Run(L"function Other() {}"));
    const auto send = [&] { EXPECT_EQ("", Told([&] { EXPECT_EQ(0, Send(2)); })); };
    send();  // no page
    objects.browser->script = engine.Object(L"this");
    send();  // no such function
    for (const Call call : {Call::Document, Call::Script}) {
        objects.Record().Fail(call, E_FAIL, 0);
        send();
        objects.Record().Restore();
    }
    Variant foreign;
    foreign.SetObject(objects.application);
    objects.Record().Answer(Call::Document, std::move(foreign));
    send();  // a document of another kind
    objects.Record().Restore();
    Variant null;
    null.SetObject(nullptr);
    objects.Record().Answer(Call::Script, std::move(null));
    send();
    objects.Record().Restore();
    ASSERT_EQ(S_OK, engine.Run(L"function OnChooseDimensions() { throw new Error('no'); }"));
    send();
    objects.browser->script.Reset();
    Attach(nullptr);
    send();
}

/// Fails and leaves what nobody may use or release.
HRESULT FailWithWildPointer(IDispatch** out) noexcept {
    *out = reinterpret_cast<IDispatch*>(1);
    return E_FAIL;
}

class BrowserWithWildPage : public host::Browser {
public:
    using Browser::Browser;
    STDMETHODIMP get_Document(IDispatch** document) override { return FailWithWildPointer(document); }
};

class PageWithWildScript : public Implements<AlsoAs<IHTMLDocument, IDispatch>> {
public:
    virtual ~PageWithWildScript() = default;
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP get_Script(IDispatch** script) override { return FailWithWildPointer(script); }
};

TEST_F(Commands, TwoUsesNothingThatAFailedCallHasLeft) {
    const auto page = MakeObject<PageWithWildScript>();
    Variant document;
    document.SetObject(static_cast<IHTMLDocument*>(page.Get()));
    objects.Record().Answer(Call::Document, std::move(document));
    EXPECT_EQ(0, Send(2));
    EXPECT_EQ(Texts{"Document"}, Asked({Call::Document}));
    objects.Record().Restore();
    const auto browser = MakeObject<BrowserWithWildPage>(std::make_shared<host::CallRecord>());
    EXPECT_EQ(S_OK, Attach(browser.Get()));
    EXPECT_EQ(0, Send(2));
}

TEST_F(Commands, ThreeOpensTheWizardPage) {
    const auto component = EditOne();
    EXPECT_EQ("", Told([&] { EXPECT_EQ(0, Send(3)); }));
    EXPECT_FALSE(Edited());
    EXPECT_EQ((Texts{"Close", "Navigate " + wizardPage}), Asked({Call::Close, Call::Navigate}));
}

TEST_F(Commands, ThreeTellsOfAMissingWizardPageAndOpensTheDefaultPage) {
    folder.Remove("data\\Wizard.htm");
    EXPECT_EQ(noPage, Told([&] { EXPECT_EQ(0, Send(3)); }));
    EXPECT_EQ(Texts{defaultPage}, Opened());
    folder.Remove("data\\Tarnvale.htm");
    EXPECT_EQ(std::string(noPage) + "|" + noDefaultPage, Told([&] { Send(3); }));
    EXPECT_TRUE(Opened().empty());
}

TEST_F(Commands, ThreeTellsOfABrowserThatFailsAndOpensNoOtherPage) {
    objects.Record().Fail(Call::Navigate, E_FAIL, 0);
    EXPECT_EQ(noMemory, Told([&] { EXPECT_EQ(0, Send(3)); }));
    EXPECT_EQ(Texts{wizardPage}, Opened());
}

TEST_F(Commands, ThreeWithoutABrowserOnlyClosesTheEditedComponent) {
    Attach(nullptr);
    folder.Remove("data\\Wizard.htm");
    EditOne();
    EXPECT_EQ("", Told([&] { EXPECT_EQ(0, Send(3)); }));
    EXPECT_FALSE(Edited());
    EXPECT_EQ(Texts{"Close"}, Asked({Call::Close, Call::Navigate}));
}

TEST_F(Commands, ThreeGoesByThePathsOfTheProcessAndTheDefaultPageByThoseOfTheObject) {
    const std::string others = folder.MakeFolder("others");
    folder.Write("others\\Wizard.htm", "");
    const ComPtr<InuxStdParts> other = CreateParts();
    ASSERT_EQ(S_OK, SetPaths(other, catalogs, others, gui, custom));
    EXPECT_EQ("", Told([&] { Send(3); }));
    EXPECT_EQ(Texts{"file://" + others + "Wizard.htm"}, Opened());
    EXPECT_EQ("", Told([&] { EXPECT_EQ(S_OK, Edit(nullptr, 0)); }));
    EXPECT_EQ(Texts{defaultPage}, Opened());
}

TEST_F(Commands, FourTellsThe3DSideTheFlag) {
    EXPECT_EQ(0, Send(4));
    EXPECT_EQ(Texts{"SetCommandFlag 0"}, Asked({Call::SetCommandFlag}));
    parts->put_nux3D(objects.application.Get());
    EXPECT_EQ(0, Send(4));
    parts->put_nux3D(nullptr);
    EXPECT_EQ(0, Send(4));
    EXPECT_TRUE(objects.Record().Lines().empty());
}

TEST_F(Commands, MayLetGoOfTheObject) {
    objects.Record().whenCalled = [&](const auto&) {
        parts.Reset();
        EXPECT_EQ(S_FALSE, ModuleCanUnload()) << "it is held until the command is done";
    };
    EXPECT_EQ(0, Send(4));
    objects.Record().whenCalled = nullptr;
    EXPECT_EQ(S_OK, ModuleCanUnload());
    EXPECT_FALSE(IsWindow(window));
}

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
