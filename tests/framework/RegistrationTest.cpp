#include "framework/Registration.h"

#include <gtest/gtest.h>

#include <string>

#include "framework/Handles.h"
#include "framework/Module.h"
#include "tests/framework/resource.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

constexpr const char* scriptKey = "Software\\nuxStdPartsAXTests\\Script";

bool KeyExists(const char* path) {
    UniqueKey key;
    return RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, KEY_READ, key.Receive()) == ERROR_SUCCESS;
}

std::string StringValue(const char* name) {
    char text[1024] = "";
    DWORD size = sizeof text;
    RegGetValueA(HKEY_CURRENT_USER, scriptKey, name, RRF_RT_REG_SZ, nullptr, text, &size);
    return text;
}

std::string PathOf(HMODULE module) {
    char path[MAX_PATH];
    GetModuleFileNameA(module, path, sizeof path);
    return path;
}

class RegistryScriptTest : public testing::Test {
protected:
    ~RegistryScriptTest() override { RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\nuxStdPartsAXTests"); }
};

TEST_F(RegistryScriptTest, WritesItsEntriesWithThePathOfTheModule) {
    ASSERT_EQ(S_OK, ApplyRegistryScript(IDR_SAMPLE_REGISTRY, true));
    EXPECT_EQ("entered", StringValue(nullptr));
    EXPECT_EQ(PathOf(nullptr), StringValue("Module"));
    DWORD number = 0;
    DWORD size = sizeof number;
    RegGetValueA(HKEY_CURRENT_USER, scriptKey, "Number", RRF_RT_REG_DWORD, nullptr, &number, &size);
    EXPECT_EQ(7u, number);
}

TEST_F(RegistryScriptTest, RemovesItsEntriesAndNothingElse) {
    ASSERT_EQ(S_OK, ApplyRegistryScript(IDR_SAMPLE_REGISTRY, true));
    ASSERT_EQ(S_OK, ApplyRegistryScript(IDR_SAMPLE_REGISTRY, false));
    EXPECT_FALSE(KeyExists(scriptKey));
    EXPECT_TRUE(KeyExists("Software"));
}

TEST_F(RegistryScriptTest, CanBeAppliedTwice) {
    ASSERT_EQ(S_OK, ApplyRegistryScript(IDR_SAMPLE_REGISTRY, true));
    EXPECT_EQ(S_OK, ApplyRegistryScript(IDR_SAMPLE_REGISTRY, true));
    EXPECT_EQ("entered", StringValue(nullptr));
}

TEST_F(RegistryScriptTest, WritesAModulePathWithAnApostrophe) {
    const TempFolder folder;
    const std::string copy = folder.MakeFolder("o'neill's") + "module.dll";
    ASSERT_TRUE(CopyFileA(PathOf(nullptr).c_str(), copy.c_str(), TRUE));
    const HMODULE module = LoadLibraryExA(copy.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_NE(nullptr, module);
    const HINSTANCE own = ThisModule();
    SetThisModule(module);
    EXPECT_EQ(S_OK, ApplyRegistryScript(IDR_SAMPLE_REGISTRY, true));
    SetThisModule(own);
    EXPECT_EQ(PathOf(module), StringValue("Module"));
    FreeLibrary(module);
}

HRESULT STDAPICALLTYPE NoClass(REFCLSID, IUnknown*, DWORD, REFIID, void** object) {
    *object = nullptr;
    return REGDB_E_CLASSNOTREG;
}

TEST_F(RegistryScriptTest, NeedsNoRegisteredRegistrar) {
    const ImportPatch patch(GetModuleHandleA(nullptr), "ole32.dll", "CoCreateInstance",
                            reinterpret_cast<void*>(&NoClass));
    ASSERT_TRUE(patch);
    EXPECT_EQ(S_OK, ApplyRegistryScript(IDR_SAMPLE_REGISTRY, true));
    EXPECT_EQ("entered", StringValue(nullptr));
    EXPECT_EQ(S_OK, ApplyRegistryScript(IDR_SAMPLE_REGISTRY, false));
    EXPECT_FALSE(KeyExists(scriptKey));
}

TEST_F(RegistryScriptTest, FailsForAResourceThatIsMissing) {
    EXPECT_TRUE(FAILED(ApplyRegistryScript(IDR_TYPELIB, true)));
}

TEST_F(RegistryScriptTest, FailsForAScriptThatIsNotWellFormed) {
    EXPECT_TRUE(FAILED(ApplyRegistryScript(IDR_BROKEN_REGISTRY, true)));
}

}  // namespace
}  // namespace nux
