// IObjectSafety: safe for pages of the installation and for containers without a document, and nowhere else.

#include <windows.h>

#include <gtest/gtest.h>
#include <objsafe.h>

#include <algorithm>

#include "tests/support/ControlSite.h"
#include "tests/support/Installation.h"
#include "tests/support/PageDouble.h"

namespace nux {
namespace {

constexpr DWORD both = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;

class Safety : public InstallationTest {
protected:
    void SetUp() override {
        InstallationTest::SetUp();
        safety = parts.As<IObjectSafety>();
        ASSERT_TRUE(safety);
    }
    void TearDown() override {
        safety.Reset();
        InstallationTest::TearDown();
    }

    DWORD Supported() {
        DWORD supported = 99;
        DWORD enabled = 99;
        EXPECT_EQ(S_OK, safety->GetInterfaceSafetyOptions(IID_IDispatch, &supported, &enabled));
        EXPECT_EQ(enabled & supported, enabled);
        return supported;
    }
    /// The options that are supported in the document of a URL. They can be set, or none can.
    DWORD SupportedIn(const std::wstring& url) {
        const auto site = MakeObject<ControlSite>(nullptr);
        site->container = ComPtr<IOleContainer>(MakeObject<PageDouble>(url).Get());
        const auto object = parts.As<IOleObject>();
        object->SetClientSite(site.Get());
        const DWORD supported = Supported();
        EXPECT_EQ(supported == both ? S_OK : E_FAIL,
                  safety->SetInterfaceSafetyOptions(IID_IDispatch, both, both));
        object->SetClientSite(nullptr);
        return supported;
    }
    /// The URL of a file of the installation as a browser writes it.
    std::wstring PageUrl(const std::string& file) {
        std::string path = folder.Path() + file;
        std::replace(path.begin(), path.end(), '\\', '/');
        return L"file:///" + Widen(path);
    }

    ComPtr<IObjectSafety> safety;
};

TEST_F(Safety, IsGivenWithoutASiteAndWithoutADocument) {
    EXPECT_EQ(both, Supported());
    const auto site = MakeObject<ControlSite>(nullptr);
    parts.As<IOleObject>()->SetClientSite(site.Get());
    EXPECT_EQ(both, Supported()) << "a site without a container";
    parts.As<IOleObject>()->SetClientSite(nullptr);
}

TEST_F(Safety, IsGivenToPagesOfTheInstallation) {
    EXPECT_EQ(both, SupportedIn(PageUrl("gui/wizard/page.htm")));
    EXPECT_EQ(both, SupportedIn(PageUrl("data/Tarnvale.htm")));
    EXPECT_EQ(both, SupportedIn(PageUrl("catalogs/BOLTS/page.htm")));
    EXPECT_EQ(both, SupportedIn(PageUrl("custom/page.htm")));
    EXPECT_EQ(both, SupportedIn(Widen(folder.Url("gui\\wizard\\page.htm")))) << "as the component writes it";
    EXPECT_EQ(both, SupportedIn(PageUrl("GUI/a%20page.htm?query#part"))) << "whatever the case";
}

TEST_F(Safety, IsRefusedToPagesFromElsewhere) {
    for (const wchar_t* url : {L"http://example.com/gui/page.htm", L"https://example.com/", L"about:blank",
                               L"file:///C:/elsewhere/page.htm", L"res://module.dll/page.htm", L""})
        EXPECT_EQ(0u, SupportedIn(url)) << Narrow(url, std::wcslen(url));
    EXPECT_EQ(0u, SupportedIn(PageUrl("guide/page.htm"))) << "a folder whose name begins alike";
    EXPECT_EQ(0u, SupportedIn(PageUrl("gui/../page.htm")));
    EXPECT_EQ(0u, SupportedIn(PageUrl("gui/%2e%2e/page.htm")));
    SetPaths(parts, "", "", "", "");
    EXPECT_EQ(0u, SupportedIn(PageUrl("gui/wizard/page.htm"))) << "there is no installation";
}

TEST_F(Safety, OnceEnabledEndsInAPageFromElsewhere) {
    EXPECT_EQ(S_OK, safety->SetInterfaceSafetyOptions(IID_IDispatch, both, both));
    const auto site = MakeObject<ControlSite>(nullptr);
    site->container = ComPtr<IOleContainer>(MakeObject<PageDouble>(L"http://example.com/").Get());
    parts.As<IOleObject>()->SetClientSite(site.Get());
    EXPECT_EQ(0u, Supported());
    parts.As<IOleObject>()->SetClientSite(nullptr);
}

}  // namespace
}  // namespace nux
