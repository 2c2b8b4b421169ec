// How the host's objects are called.

#include <gtest/gtest.h>

#include <vector>

#include "tests/control/LifterWizardClass.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/Installation.h"

namespace nux {
namespace {

/// Keeps the identifiers that its calls carry, which callers must leave empty.
class AskedObject : public HostDispatch {
public:
    std::vector<GUID> identifiers;

    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR*, UINT, LCID, DISPID* ids) override {
        identifiers.push_back(iid);
        *ids = 1;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID, REFIID iid, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        identifiers.push_back(iid);
        return E_FAIL;
    }
};

class HostCalls : public InstallationTest {
protected:
    static bool AllEmpty(const std::vector<GUID>& identifiers) {
        for (const GUID& identifier : identifiers) {
            if (identifier != GUID_NULL)
                return false;
        }
        return true;
    }

    const ComPtr<ComObject<AskedObject>> asked = MakeObject<AskedObject>();
};

TEST_F(HostCalls, CarryNoIdentifierWhenAPropertyIsReadByName) {
    const auto side = MakeObject<Host3D>();
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    parts->SetExternalDispatch(asked.Get());
    side->attached.Reset();
    EXPECT_EQ(2u, asked->identifiers.size());
    EXPECT_TRUE(AllEmpty(asked->identifiers));
    parts->SetExternalDispatch(nullptr);
}

TEST_F(HostCalls, CarryNoIdentifierWhenTheFolderOfACatalogueIsAsked) {
    const auto side = MakeObject<Host3D>();
    side->application = ComPtr<IDispatch>(asked.Get());
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    folder.MakeFolder("locale\\English");
    UseInstallation();
    Localized(L"HOSTCALLS", L"text");  // its messages are looked for in the catalogue's folder at last
    EXPECT_EQ(1u, asked->identifiers.size());
    EXPECT_TRUE(AllEmpty(asked->identifiers));
    parts->put_nux3D(nullptr);
    side->application.Reset();
}

TEST_F(HostCalls, ALifterWizardOfAHandlerIsTaken) {
    const LifterWizardClass wizards(nullptr, CLSCTX_INPROC_HANDLER);
    ComPtr<IDispatch> wizard;
    EXPECT_EQ(S_OK, parts->get_LifterWizard(wizard.Receive()));
    EXPECT_EQ(1, wizards.Made());
}

}  // namespace
}  // namespace nux
