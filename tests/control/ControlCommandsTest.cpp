// The commands of the control's window.

#include <gtest/gtest.h>
#include <mshtml.h>

#include "driver/ScriptEngine.h"
#include "tests/control/HostedComponent.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

using host::Call;

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

class Commands : public HostedTest {
protected:
    void SetUp() override {
        HostedTest::SetUp();
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

}  // namespace
}  // namespace nux
