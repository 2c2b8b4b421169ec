#include "environment/InstallationPaths.h"

#include <gtest/gtest.h>

#include "tests/support/HostDouble.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

constexpr DISPID folderOfCatalogue = 47;
const std::string root = "C:\\catalogues\\";

class CatalogFolder : public testing::Test {
protected:
    CatalogFolder() { Installation().catalog = root; }
    ~CatalogFolder() override { Installation() = {}; }

    static ComPtr<IDispatch> Application(ApplicationDouble::Answer answer) {
        return ComPtr<IDispatch>(MakeObject<ApplicationDouble>(std::move(answer)).Get());
    }
    /// An application that gives this text, and this result.
    static ComPtr<IDispatch> Giving(const wchar_t* text, HRESULT code) {
        return Application([=](DISPID, WORD, const DISPPARAMS&, VARIANT* result) {
            result->vt = VT_BSTR;
            result->bstrVal = SysAllocString(text);
            return code;
        });
    }
};

TEST_F(CatalogFolder, IsTheRootWithoutAHost) {
    EXPECT_EQ(root, GetCatalogFolder("Pins"));
    EXPECT_EQ(root, GetCatalogFolder(""));
}

TEST_F(CatalogFolder, IsTheRootForAForeignHost) {
    const auto foreign = Giving(L"C:\\elsewhere\\", S_OK);
    SetHost3D(this, foreign.Get());
    EXPECT_EQ(root, GetCatalogFolder("Pins"));
    WithdrawHost3D(this);
}

TEST_F(CatalogFolder, IsWhatTheHostTells) {
    const InstalledHost host([](const std::string& id) { return "C:\\elsewhere\\" + id + "\\"; });
    EXPECT_EQ("C:\\elsewhere\\Pins\\", GetCatalogFolder("Pins"));
    EXPECT_EQ("C:\\elsewhere\\\\", GetCatalogFolder(""));
}

TEST_F(CatalogFolder, IsTheRootForAnEmptyAnswerToTheEmptyId) {
    std::vector<std::string> asked;
    const InstalledHost host([&](const std::string& id) {
        asked.push_back(id);
        return std::string();
    });
    EXPECT_EQ(root, GetCatalogFolder(""));
    EXPECT_EQ("", GetCatalogFolder("Pins"));
    EXPECT_EQ((std::vector<std::string>{"", "Pins"}), asked) << "the host is asked for both";
    const InstalledHost null(Giving(nullptr, S_OK));
    EXPECT_EQ(root, GetCatalogFolder(""));
}

TEST_F(CatalogFolder, IsTakenFromTheHostAsItStands) {
    EXPECT_EQ("C:\\no separator", [] {
        const InstalledHost host(Giving(L"C:\\no separator", S_OK));
        return GetCatalogFolder("Pins");
    }());
    const InstalledHost host(Giving(L"", S_OK));
    EXPECT_EQ("", GetCatalogFolder("Pins"));
}

TEST_F(CatalogFolder, IsAskedForAsAMethodWithTheIdAsItsOnlyArgument) {
    int calls = 0;
    const InstalledHost host(
        Application([&](DISPID id, WORD flags, const DISPPARAMS& parameters, VARIANT* result) {
            ++calls;
            EXPECT_EQ(folderOfCatalogue, id);
            EXPECT_EQ(DISPATCH_METHOD, flags);
            EXPECT_EQ(1u, parameters.cArgs);
            EXPECT_EQ(0u, parameters.cNamedArgs);
            EXPECT_EQ(VT_BSTR, parameters.rgvarg[0].vt);
            EXPECT_STREQ(L"Pins", parameters.rgvarg[0].bstrVal);
            EXPECT_EQ(VT_EMPTY, result->vt);
            return S_OK;
        }));
    EXPECT_EQ(root, GetCatalogFolder("Pins"));
    EXPECT_EQ(1, calls);
}

TEST_F(CatalogFolder, IsTheRootWhenTheHostHasNoApplication) {
    const InstalledHost failing(Giving(L"C:\\elsewhere\\", S_OK), E_FAIL);
    EXPECT_EQ(root, GetCatalogFolder("Pins"));
    const InstalledHost empty(ComPtr<IDispatch>{});
    EXPECT_EQ(root, GetCatalogFolder("Pins"));
}

TEST_F(CatalogFolder, IsTheRootWhenTheApplicationFails) {
    for (const HRESULT code : {E_FAIL, DISP_E_MEMBERNOTFOUND, S_FALSE}) {
        const InstalledHost host(Giving(L"C:\\elsewhere\\", code));
        EXPECT_EQ(root, GetCatalogFolder("Pins")) << code;
    }
}

TEST_F(CatalogFolder, IsTheRootWhenTheAnswerIsNoString) {
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_I4, VT_R8, VT_BOOL}) {
        const InstalledHost host(Application([=](DISPID, WORD, const DISPPARAMS&, VARIANT* result) {
            result->vt = type;
            return S_OK;
        }));
        EXPECT_EQ(root, GetCatalogFolder("Pins")) << type;
    }
}

TEST_F(CatalogFolder, IsEmptyForAStringThatIsNull) {
    const InstalledHost host(Giving(nullptr, S_OK));
    EXPECT_EQ("", GetCatalogFolder("Pins"));
}

TEST_F(CatalogFolder, IsAskedForAndToldInTheCodePageOfTheThread) {
    const ThreadLocale locale(russian);
    const InstalledHost host(Application([](DISPID, WORD, const DISPPARAMS& parameters, VARIANT* result) {
        EXPECT_STREQ(L"\u0416", parameters.rgvarg[0].bstrVal);
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(L"C:\\\u0416\\");
        return S_OK;
    }));
    EXPECT_EQ("C:\\\xC6\\", GetCatalogFolder("\xC6"));
}

TEST_F(CatalogFolder, LeavesNoReferenceOnTheHost) {
    const InstalledHost host([](const std::string&) { return std::string(); });
    host.Get()->AddRef();
    const ULONG before = host.Get()->Release();
    GetCatalogFolder("Pins");
    host.Get()->AddRef();
    EXPECT_EQ(before, host.Get()->Release());
}

TEST_F(CatalogFolder, ComesFromTheHostThatWasSetLast) {
    const InstalledHost first([](const std::string&) { return std::string("first\\"); });
    {
        const InstalledHost second([](const std::string&) { return std::string("second\\"); });
        EXPECT_EQ("second\\", GetCatalogFolder("Pins"));
        WithdrawHost3D(&first);
        EXPECT_EQ("second\\", GetCatalogFolder("Pins")) << "withdrawn is what the owner itself has set";
    }
    EXPECT_EQ(root, GetCatalogFolder("Pins"));
}

TEST_F(CatalogFolder, IsTheRootOnceTheLastHostIsWithdrawn) {
    const InstalledHost first([](const std::string&) { return std::string("first\\"); });
    {
        const InstalledHost second([](const std::string&) { return std::string("second\\"); });
    }
    EXPECT_EQ(root, GetCatalogFolder("Pins")) << "the earlier one's does not come back";
    SetHost3D(&first, first.Get());
    EXPECT_EQ("first\\", GetCatalogFolder("Pins"));
}

TEST_F(CatalogFolder, IsTheRootAfterAnOwnerWithoutAHost) {
    const InstalledHost first([](const std::string&) { return std::string("first\\"); });
    SetHost3D(this, nullptr);
    EXPECT_EQ(root, GetCatalogFolder("Pins"));
    WithdrawHost3D(this);
    EXPECT_EQ(root, GetCatalogFolder("Pins"));
}

TEST_F(CatalogFolder, ComesFromTheOneHostThatAnOwnerHasSetLast) {
    const InstalledHost first([](const std::string&) { return std::string("first\\"); });
    const InstalledHost second([](const std::string&) { return std::string("second\\"); });
    SetHost3D(this, first.Get());
    SetHost3D(this, second.Get());
    EXPECT_EQ("second\\", GetCatalogFolder("Pins"));
    SetHost3D(this, first.Get());
    EXPECT_EQ("first\\", GetCatalogFolder("Pins"));
    WithdrawHost3D(this);
    EXPECT_EQ(root, GetCatalogFolder("Pins"));
}

TEST_F(CatalogFolder, IsAskedOfAHostThatMayBeWithdrawnMeanwhile) {
    const long before = LiveObjects();
    ComPtr<ComObject<HostDouble>> host;
    host = MakeObject<HostDouble>(Application([&](DISPID, WORD, const DISPPARAMS&, VARIANT* result) {
        WithdrawHost3D(this);
        host.Reset();
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(L"last\\");
        return S_OK;
    }));
    SetHost3D(this, host.Get());
    EXPECT_EQ("last\\", GetCatalogFolder("Pins"));
    EXPECT_EQ(before, LiveObjects());
}

TEST_F(CatalogFolder, IsEmptyBeforeThePathsAreSet) {
    Installation() = {};
    EXPECT_EQ("", GetCatalogFolder("Pins"));
}

}  // namespace
}  // namespace nux
