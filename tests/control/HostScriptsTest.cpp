// What scripts can call only beside objects of the host, in JScript and in VBScript.

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "driver/ScriptEngine.h"
#include "tests/control/LifterWizardClass.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Installation.h"

namespace nux {
namespace {

/// Scripts know the object as `parts`, and the host's objects as `side` and `host`.
class HostScripts : public InstallationTest, public testing::WithParamInterface<const wchar_t*> {
protected:
    void SetUp() override {
        InstallationTest::SetUp();
        host->SetNumber(L"MainWindowHWND", 0x1234);
        engine.emplace(GetParam(),
                       ScriptEngine::Objects{{L"parts", parts.As<IDispatch>(IID_IDispatch)},
                                             {L"side", ComPtr<IDispatch>(static_cast<Inux3D*>(side.Get()))},
                                             {L"host", ComPtr<IDispatch>(host.Get())}});
        EXPECT_EQ(S_OK, parts->put_nux3D(static_cast<Inux3D*>(side.Get())));
    }
    void TearDown() override {
        engine.reset();
        InstallationTest::TearDown();
    }

    const wchar_t* InLanguage(const wchar_t* jscript, const wchar_t* vbscript) const {
        return GetParam() == std::wstring(L"JScript") ? jscript : vbscript;
    }
    /// Runs a statement in the language of the test.
    HRESULT Run(const wchar_t* jscript, const wchar_t* vbscript) {
        return engine->Run(InLanguage(jscript, vbscript));
    }
    /// Whether a condition, in the language of the test, holds.
    bool Holds(const wchar_t* jscript, const wchar_t* vbscript) {
        Variant value;
        EXPECT_EQ(S_OK, engine->Evaluate(InLanguage(jscript, vbscript), value));
        EXPECT_EQ(VT_BOOL, value.vt);
        return value.vt == VT_BOOL && value.boolVal != VARIANT_FALSE;
    }
    /// The code that a call raises; `vbscript` is the call as a statement.
    long Raised(const std::wstring& jscript, const std::wstring& vbscript) {
        const bool isJScript = GetParam() == std::wstring(L"JScript");
        const std::wstring statements =
            isJScript ? L"var code = 0; try { " + jscript + L" } catch (error) { code = error.number; }"
                      : L"On Error Resume Next\n" + vbscript + L"\ncode = Err.Number";
        EXPECT_EQ(S_OK, engine->Run(statements));
        Variant code;
        EXPECT_EQ(S_OK, engine->Evaluate(L"code", code));
        EXPECT_EQ(S_OK, VariantChangeType(&code, &code, 0, VT_I4));
        return code.lVal;
    }

    ComPtr<ComObject<NamedProperties>> host = MakeObject<NamedProperties>();
    ComPtr<ComObject<Host3D>> side = MakeObject<Host3D>();
    std::optional<ScriptEngine> engine;
};

TEST_P(HostScripts, GetThe3DSide) {
    EXPECT_TRUE(Holds(L"parts.nux3D == side", L"parts.nux3D Is side"));
    EXPECT_FALSE(Holds(L"parts.nux3D == host", L"parts.nux3D Is host"));
}

TEST_P(HostScripts, GiveAnother3DSide) {
    EXPECT_EQ(0, Raised(L"parts.nux3D = host;", L"Set parts.nux3D = host"));
    EXPECT_TRUE(Holds(L"parts.nux3D == host", L"parts.nux3D Is host"));
}

TEST_P(HostScripts, GiveTheHostToA3DSideThatIsReady) {
    EXPECT_EQ(S_OK, Run(L"parts.SetExternalDispatch(host);", L"parts.SetExternalDispatch host"));
    EXPECT_EQ((Journal{"AttachHost"}), side->calls);
    EXPECT_EQ(host.Get(), side->attached.Get());
    EXPECT_EQ(DISPATCH_PROPERTYGET, host->lastRead.flags) << "its window is read";
    EXPECT_TRUE(Holds(L"parts.Initialised == 1", L"parts.Initialised = 1"));
    side->attached.Reset();
    side->ready = false;
    EXPECT_EQ(E_FAIL, Raised(L"parts.SetExternalDispatch(host);", L"parts.SetExternalDispatch host"));
}

TEST_P(HostScripts, RunTheWizardsOfThe3DSide) {
    EXPECT_EQ(0, Raised(L"parts.RunDieWizard(7);", L"parts.RunDieWizard 7"));
    EXPECT_EQ(0, Raised(L"parts.CreateDieBlock();", L"parts.CreateDieBlock"));
    EXPECT_EQ(0, Raised(L"parts.RunSlideWizard();", L"parts.RunSlideWizard"));
    EXPECT_EQ((Journal{"RunDieWizard 7", "CreateDieBlock", "RunSlideWizard"}), side->calls);
    side->wizardResult = E_FAIL;
    EXPECT_EQ(E_FAIL, Raised(L"parts.RunDieWizard(7);", L"parts.RunDieWizard 7"));
    EXPECT_EQ(E_FAIL, Raised(L"parts.CreateDieBlock();", L"parts.CreateDieBlock"));
    EXPECT_EQ(0, Raised(L"parts.RunSlideWizard();", L"parts.RunSlideWizard"));
}

TEST_P(HostScripts, GetTheLifterWizard) {
    EXPECT_TRUE(Holds(L"parts.LifterWizard == null", L"parts.LifterWizard Is Nothing"));
    const LifterWizardClass wizards;
    EXPECT_FALSE(Holds(L"parts.LifterWizard == null", L"parts.LifterWizard Is Nothing"));
    EXPECT_TRUE(
        Holds(L"parts.LifterWizard == parts.LifterWizard", L"parts.LifterWizard Is parts.LifterWizard"));
    EXPECT_EQ(1, wizards.Made());
}

int WINAPI TellNothing(LCID, LCTYPE, char*, int) {
    return 0;
}

TEST_P(HostScripts, AreToldOfAnEnvironmentThatDoesNotStart) {
    const std::wstring jscript = L"parts.SetTRNVPaths('', '', '', '');";
    const std::wstring vbscript = L"parts.SetTRNVPaths \"\", \"\", \"\", \"\"";
    {
        const ImportPatch patch(LoadedModule(), "KERNEL32.dll", "GetLocaleInfoA",
                                reinterpret_cast<void*>(TellNothing));
        ASSERT_TRUE(patch);
        EXPECT_EQ(E_FAIL, Raised(jscript, vbscript));
    }
    EXPECT_EQ(0, Raised(jscript, vbscript));
}

INSTANTIATE_TEST_SUITE_P(In, HostScripts, testing::Values(L"JScript", L"VBScript"),
                         [](const auto& test) { return Narrow(test.param, std::wcslen(test.param)); });

}  // namespace
}  // namespace nux
