// SetExternalDispatch, `nux3D`, `EditedComponent`, `Initialised`, `Version`, AssertFail.

#include <gtest/gtest.h>

#include "tests/control/Component.h"
#include "tests/support/HostDoubles.h"

namespace nux {
namespace {

class HostGivesItsObjects : public PartsTest {
protected:
    void SetUp() override {
        PartsTest::SetUp();
        host->SetNumber(L"MainWindowHWND", 0x1234);
    }

    long Initialised() {
        long value = -1;
        EXPECT_EQ(S_OK, parts->get_Initialised(&value));
        return value;
    }

    ComPtr<ComObject<NamedProperties>> host = MakeObject<NamedProperties>();
    ComPtr<ComObject<Host3D>> side = MakeObject<Host3D>();
};

TEST_F(HostGivesItsObjects, AReadySideIsGivenTheHostAndTheWindowIsReadByName) {
    ASSERT_EQ(S_OK, parts->put_nux3D(static_cast<Inux3D*>(side.Get())));
    EXPECT_EQ(S_OK, parts->SetExternalDispatch(host.Get()));
    EXPECT_EQ((Journal{"AttachHost"}), side->calls);
    EXPECT_EQ(host.Get(), side->attached.Get());
    EXPECT_EQ(2048u, host->lcidOfNames);
    EXPECT_EQ(2048u, host->lastRead.lcid);
    EXPECT_EQ(DISPATCH_PROPERTYGET, host->lastRead.flags);
    EXPECT_EQ(0u, host->lastRead.arguments);
    EXPECT_EQ(1, Initialised());
}

TEST_F(HostGivesItsObjects, TheHostIsHeldUntilAnotherTakesItsPlace) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    parts->SetExternalDispatch(host.Get());
    side->attached.Reset();
    EXPECT_EQ(2u, References(host.Get()));

    const auto other = MakeObject<NamedProperties>();
    EXPECT_EQ(S_OK, parts->SetExternalDispatch(other.Get()));
    EXPECT_EQ(1u, References(host.Get()));
    side->attached.Reset();
    EXPECT_EQ(2u, References(other.Get()));
}

TEST_F(HostGivesItsObjects, TheSideMayTakeItselfAwayWhileItIsGivenTheHost) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    side->whenAttached = [&] { parts->put_nux3D(nullptr); };
    EXPECT_EQ(S_OK, parts->SetExternalDispatch(host.Get()));
    EXPECT_EQ(DISPATCH_PROPERTYGET, host->lastRead.flags) << "the window is read still";
    side->attached.Reset();
    EXPECT_EQ(1u, References(static_cast<Inux3D*>(side.Get())));
}

TEST_F(HostGivesItsObjects, TheSideMayLetGoOfTheObjectWhileItIsGivenTheHost) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    side->whenAttached = [&] {
        parts.Reset();
        EXPECT_EQ(S_FALSE, ModuleCanUnload()) << "the call goes on in it";
    };
    InuxStdParts* const last = parts.Get();
    EXPECT_EQ(S_OK, last->SetExternalDispatch(host.Get()));
    side->attached.Reset();
    EXPECT_EQ(1u, References(host.Get()));
}

TEST_F(HostGivesItsObjects, GivingTheSameHostTwiceHoldsItOnce) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    parts->SetExternalDispatch(host.Get());
    EXPECT_EQ(S_OK, parts->SetExternalDispatch(host.Get()));
    side->attached.Reset();
    EXPECT_EQ(2u, References(host.Get()));
}

TEST_F(HostGivesItsObjects, NullReleasesTheOldHostAndLeavesInitialised) {
    EXPECT_EQ(E_INVALIDARG, parts->SetExternalDispatch(nullptr));
    EXPECT_EQ(0, Initialised()) << "was 0";

    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    parts->SetExternalDispatch(host.Get());
    side->attached.Reset();
    EXPECT_EQ(E_INVALIDARG, parts->SetExternalDispatch(nullptr));
    EXPECT_EQ(1u, References(host.Get()));
    EXPECT_EQ(1, Initialised()) << "was 1";
    EXPECT_EQ(1u, side->calls.size()) << "the 3D side is not told of a null host";
}

TEST_F(HostGivesItsObjects, WithoutA3DSideItFailsWithTheHostKeptAndInitialised) {
    EXPECT_EQ(E_FAIL, parts->SetExternalDispatch(host.Get()));
    EXPECT_EQ(2u, References(host.Get()));
    EXPECT_EQ(1, Initialised());
}

TEST_F(HostGivesItsObjects, ASideThatIsNotReadyFailsWithTheHostKeptAndInitialised) {
    side->ready = false;
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    EXPECT_EQ(E_FAIL, parts->SetExternalDispatch(host.Get()));
    EXPECT_EQ(2u, References(host.Get()));
    EXPECT_EQ(1, Initialised());
    EXPECT_TRUE(side->calls.empty()) << "AttachHost comes after the test for readiness";
    EXPECT_EQ(0u, host->lcidOfNames) << "so does the reading of the window";
}

TEST_F(HostGivesItsObjects, AReadyObjectThatIsNo3DSideFails) {
    side->is3D = false;
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    EXPECT_EQ(E_FAIL, parts->SetExternalDispatch(host.Get()));
    EXPECT_EQ(2u, References(host.Get()));
    EXPECT_EQ(1, Initialised());
}

TEST_F(HostGivesItsObjects, TheResultOfAttachHostIsNotLookedAt) {
    side->wizardResult = E_ACCESSDENIED;
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    EXPECT_EQ(S_OK, parts->SetExternalDispatch(host.Get()));
    EXPECT_EQ(DISPATCH_PROPERTYGET, host->lastRead.flags) << "the window is read all the same";
}

TEST_F(HostGivesItsObjects, AWindowThatIsMissingOfAnotherTypeOrFailsToBeReadIsSilent) {
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    EXPECT_EQ(S_OK, parts->SetExternalDispatch(MakeObject<NamedProperties>().Get())) << "missing";
    host->SetText(L"MainWindowHWND", L"4660");
    EXPECT_EQ(S_OK, parts->SetExternalDispatch(host.Get())) << "a text";
    host->SetNumber(L"MainWindowHWND", 0x1234);
    host->Fail(L"MainWindowHWND", DISP_E_EXCEPTION);
    EXPECT_EQ(S_OK, parts->SetExternalDispatch(host.Get())) << "failing";
}

TEST_F(HostGivesItsObjects, The3DSideIsReadBackWithAReferenceOfItsOwn) {
    IDispatch* read = side.Get() ? static_cast<Inux3D*>(side.Get()) : nullptr;
    EXPECT_EQ(E_INVALIDARG, parts->get_nux3D(nullptr));
    EXPECT_EQ(S_FALSE, parts->get_nux3D(&read));
    EXPECT_EQ(nullptr, read);

    IDispatch* given = static_cast<Inux3D*>(side.Get());
    EXPECT_EQ(S_OK, parts->put_nux3D(given));
    EXPECT_EQ(2u, References(given));
    EXPECT_EQ(S_OK, parts->get_nux3D(&read));
    EXPECT_EQ(given, read);
    EXPECT_EQ(3u, References(given));
    read->Release();
    EXPECT_EQ(E_INVALIDARG, parts->get_nux3D(nullptr));
}

TEST_F(HostGivesItsObjects, The3DSideIsReplacedAndTakenAway) {
    const auto other = MakeObject<Host3D>();
    IDispatch* first = static_cast<Inux3D*>(side.Get());
    IDispatch* second = static_cast<Inux3D*>(other.Get());
    parts->put_nux3D(first);
    EXPECT_EQ(S_OK, parts->put_nux3D(first)) << "by itself";
    EXPECT_EQ(2u, References(first));
    EXPECT_EQ(S_OK, parts->put_nux3D(second));
    EXPECT_EQ(1u, References(first));
    EXPECT_EQ(2u, References(second));
    EXPECT_EQ(S_OK, parts->put_nux3D(nullptr));
    EXPECT_EQ(1u, References(second));
    IDispatch* read = second;
    EXPECT_EQ(S_FALSE, parts->get_nux3D(&read));
    EXPECT_EQ(nullptr, read);
}

TEST_F(HostGivesItsObjects, WithoutAnEditedComponentThereIsNull) {
    IDispatch* read = host.Get();
    EXPECT_EQ(S_FALSE, parts->get_EditedComponent(&read));
    EXPECT_EQ(nullptr, read);
    EXPECT_EQ(E_INVALIDARG, parts->get_EditedComponent(nullptr));
}

TEST_F(HostGivesItsObjects, InitialisedTakesZeroAndOneOnly) {
    EXPECT_EQ(0, Initialised());
    EXPECT_EQ(S_OK, parts->put_Initialised(1));
    for (const long value : {2L, -1L, 0x7fffffffL}) {
        EXPECT_EQ(E_INVALIDARG, parts->put_Initialised(value));
        EXPECT_EQ(1, Initialised());
    }
    EXPECT_EQ(S_OK, parts->put_Initialised(0));
    EXPECT_EQ(0, Initialised());
    EXPECT_EQ(E_INVALIDARG, parts->put_Initialised(2));
    EXPECT_EQ(0, Initialised());
    EXPECT_EQ(E_INVALIDARG, parts->get_Initialised(nullptr));
}

TEST_F(HostGivesItsObjects, VersionLeavesTheCallersStringAlone) {
    BSTR text = SysAllocString(L"what was there");
    const BSTR before = text;
    EXPECT_EQ(S_OK, parts->get_Version(&text));
    EXPECT_EQ(before, text);
    EXPECT_EQ(L"what was there", Take(text));
    text = nullptr;
    EXPECT_EQ(S_OK, parts->get_Version(&text));
    EXPECT_EQ(nullptr, text);
    EXPECT_EQ(S_OK, parts->get_Version(nullptr));
}

TEST_F(HostGivesItsObjects, AssertFailDoesNothing) {
    EXPECT_EQ(S_OK, parts->AssertFail());
    EXPECT_EQ(S_OK, parts->AssertFail());
    EXPECT_EQ(0, Initialised());
}

}  // namespace
}  // namespace nux
