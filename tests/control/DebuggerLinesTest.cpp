// What is passed over in silence is said to a debugger, once.

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/DebuggerLines.h"
#include "tests/support/Dom.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/Installation.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

class SaidToADebugger : public InstallationTest {
protected:
    void SetUp() override {
        InstallationTest::SetUp();
        heard.emplace(LoadedModule());
        ASSERT_TRUE(*heard);
    }

    std::size_t Lines() const { return heard->All().size(); }
    std::size_t LinesWith(const std::wstring& part) const { return heard->With(part); }

    std::optional<DebuggerLines> heard;  ///< since the installation is in use
};

TEST_F(SaidToADebugger, ALanguageFolderIsMissing) {
    UseInstallation();
    EXPECT_EQ(1u, LinesWith(L"no folder of the user's language in " + Widen(folder.Path()) + L"locale\\"));
    folder.MakeFolder("locale\\English");
    UseInstallation();
    EXPECT_EQ(1u, Lines()) << "nothing is said of one that is there";
    EXPECT_EQ(0u, heard->All().front().find(L"nuxStdPartsAX: "));
    EXPECT_EQ(L'\n', heard->All().front().back());
}

TEST_F(SaidToADebugger, AListStandsForNone) {
    const ComPtr<IDispatch> names = SelectNodes(RootOf(ParseXml("<n><A/></n>")), L"*").As<IDispatch>();
    const auto foreign = MakeObject<NamedProperties>();
    VARIANT list{};
    list.vt = VT_DISPATCH;
    list.pdispVal = names.Get();
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &list;
    VARIANT refused{};  // ends the call without a dialog
    refused.vt = VT_DISPATCH;
    refused.pdispVal = foreign.Get();
    const VARIANT none{};
    ComPtr<IDispatch> chosen;
    EXPECT_EQ(E_INVALIDARG, parts->ChooseDimensions(nullptr, nullptr, names.Get(), none, reference, refused,
                                                    chosen.Receive()));
    EXPECT_EQ(1u, LinesWith(L"StdDimensionVar is of type 16396 and not VT_DISPATCH"));
    EXPECT_EQ(1u, Lines()) << "who gives nothing means nothing";
}

TEST_F(SaidToADebugger, AHostIsNotAsked) {
    folder.MakeFolder("locale\\English");
    UseInstallation();
    Localized(L"UNASKED1", L"Bolt");
    Localized(L"UNASKED2", L"Bolt");
    EXPECT_EQ(1u, LinesWith(L"no host was in nux3D when SetTRNVPaths was called"));
    const auto side = MakeObject<Host3D>();
    parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
    UseInstallation();
    Localized(L"UNASKED3", L"Bolt");
    EXPECT_EQ(1u, LinesWith(L"\"UNASKED3\" is taken to be the root: the 3D side gives no application"));
}

}  // namespace
}  // namespace nux
