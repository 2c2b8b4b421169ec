// The commands that are forwarded to the 3D side, and the lifter wizard.

#include <gtest/gtest.h>

#include "tests/control/Component.h"
#include "tests/control/LifterWizardClass.h"
#include "tests/support/HostDoubles.h"

namespace nux {
namespace {

class HostWizards : public PartsTest {
protected:
    void Give3DSide() { parts->put_nux3D(static_cast<Inux3D*>(side.Get())); }

    ComPtr<ComObject<Host3D>> side = MakeObject<Host3D>();
};

TEST_F(HostWizards, FailWithoutA3DSide) {
    EXPECT_EQ(E_FAIL, parts->RunDieWizard(1));
    EXPECT_EQ(E_FAIL, parts->CreateDieBlock());
    EXPECT_EQ(E_FAIL, parts->RunSlideWizard());
}

TEST_F(HostWizards, AForeign3DSideFailsTheDieAndIsPassedOverByTheSlideWizard) {
    side->is3D = false;
    Give3DSide();
    EXPECT_EQ(E_FAIL, parts->RunDieWizard(1));
    EXPECT_EQ(E_FAIL, parts->CreateDieBlock());
    EXPECT_EQ(S_OK, parts->RunSlideWizard());
    EXPECT_TRUE(side->calls.empty());
}

TEST_F(HostWizards, AreForwarded) {
    Give3DSide();
    EXPECT_EQ(S_OK, parts->RunDieWizard(0));
    EXPECT_EQ(S_OK, parts->RunDieWizard(-7));
    EXPECT_EQ(S_OK, parts->CreateDieBlock());
    EXPECT_EQ(S_OK, parts->RunSlideWizard());
    EXPECT_EQ((Journal{"RunDieWizard 0", "RunDieWizard -7", "CreateDieBlock", "RunSlideWizard"}),
              side->calls);
}

TEST_F(HostWizards, TheResultOfTheDieWizardsIsPassedOnAndThatOfTheSlideWizardIsNot) {
    Give3DSide();
    for (const HRESULT result : {E_ACCESSDENIED, static_cast<HRESULT>(S_FALSE)}) {
        side->wizardResult = result;
        EXPECT_EQ(result, parts->RunDieWizard(1));
        EXPECT_EQ(result, parts->CreateDieBlock());
        EXPECT_EQ(S_OK, parts->RunSlideWizard());
    }
}

TEST_F(HostWizards, NeedNoReadySide) {
    side->ready = false;
    Give3DSide();
    EXPECT_EQ(S_OK, parts->RunDieWizard(1));
}

TEST_F(HostWizards, WithoutItsClassTheLifterWizardIsNull) {
    IDispatch* wizard = static_cast<Inux3D*>(side.Get());
    EXPECT_EQ(S_FALSE, parts->get_LifterWizard(&wizard));
    EXPECT_EQ(nullptr, wizard);
    EXPECT_EQ(E_INVALIDARG, parts->get_LifterWizard(nullptr));
}

TEST_F(HostWizards, ALifterWizardOfAnotherKindOfServerIsNotTaken) {
    const LifterWizardClass wizards(nullptr, CLSCTX_LOCAL_SERVER);
    IDispatch* wizard = static_cast<Inux3D*>(side.Get());
    EXPECT_EQ(S_FALSE, parts->get_LifterWizard(&wizard));
    EXPECT_EQ(nullptr, wizard);
    EXPECT_EQ(0, wizards.Made());
}

TEST_F(HostWizards, TheLifterWizardIsMadeOncePerObject) {
    const LifterWizardClass wizards;
    ComPtr<IDispatch> wizard;
    EXPECT_EQ(S_OK, parts->get_LifterWizard(wizard.Receive()));
    ASSERT_TRUE(wizard);
    EXPECT_EQ(2u, References(wizard.Get())) << "one of the object, one of ours";
    ComPtr<IDispatch> again;
    EXPECT_EQ(S_OK, parts->get_LifterWizard(again.Receive()));
    EXPECT_EQ(wizard.Get(), again.Get());
    EXPECT_EQ(1, wizards.Made());

    const ComPtr<InuxStdParts> other = CreateParts();
    ComPtr<IDispatch> others;
    EXPECT_EQ(S_OK, other->get_LifterWizard(others.Receive()));
    EXPECT_NE(wizard.Get(), others.Get());
    EXPECT_EQ(2, wizards.Made());
    again.Reset();
    ReleaseParts();
    EXPECT_EQ(1u, References(wizard.Get()));
}

TEST_F(HostWizards, ALifterWizardMayLetGoOfTheObjectWhileItIsMade) {
    LifterWizardClass wizards;
    wizards.WhileMaking([&] {
        ReleaseParts();
        EXPECT_EQ(S_FALSE, ModuleCanUnload()) << "the call goes on in it";
    });
    InuxStdParts* const last = parts.Get();
    ComPtr<IDispatch> wizard;
    EXPECT_EQ(S_OK, last->get_LifterWizard(wizard.Receive()));
    ASSERT_TRUE(wizard);
    EXPECT_EQ(1u, References(wizard.Get()));
}

TEST_F(HostWizards, ALifterWizardThatWasMissingIsTriedAgain) {
    ComPtr<IDispatch> wizard;
    EXPECT_EQ(S_FALSE, parts->get_LifterWizard(wizard.Receive()));
    const LifterWizardClass wizards;
    EXPECT_EQ(S_OK, parts->get_LifterWizard(wizard.Receive()));
    EXPECT_TRUE(wizard);
}

}  // namespace
}  // namespace nux
