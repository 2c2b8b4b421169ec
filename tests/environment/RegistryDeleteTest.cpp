// Keys that can't go with all that is below them.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "environment/Registry.h"
#include "framework/Handles.h"
#include "tests/support/ImportPatch.h"

namespace nux {
namespace {

const std::string key = "Software\\nuxStdPartsAXTests\\RegistryDelete";

LSTATUS(WINAPI* deleteKey)(HKEY, LPCSTR) = nullptr;
int refusals = 0;

/// As the platform does where the user may not delete.
LSTATUS WINAPI RefuseKept(HKEY parent, LPCSTR name) {
    if (std::strcmp(name, "kept") != 0)
        return deleteKey(parent, name);
    return ++refusals < 100 ? ERROR_ACCESS_DENIED : deleteKey(parent, name);  // who never gives up, ends
}

class RegistryDelete : public testing::Test {
protected:
    ~RegistryDelete() override { RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\nuxStdPartsAXTests"); }

    static void Make(const std::string& path) {
        UniqueKey made;
        EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_WRITE,
                                                 nullptr, made.Receive(), nullptr));
    }
    static bool Exists(const std::string& path) {
        UniqueKey opened;
        return RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, opened.Receive()) == ERROR_SUCCESS;
    }
};

TEST_F(RegistryDelete, FailsAtASubkeyThatCannotGoAndLeavesThoseAboveIt) {
    Make(key + "\\middle\\kept");
    refusals = 0;
    deleteKey = RegDeleteKeyA;
    {
        const ImportPatch patch(GetModuleHandleA(nullptr), "ADVAPI32.dll", "RegDeleteKeyA",
                                reinterpret_cast<void*>(RefuseKept));
        ASSERT_TRUE(patch);
        EXPECT_FALSE(CRegistry(HKEY_CURRENT_USER).Delete(key, nullptr));
    }
    EXPECT_EQ(1, refusals);
    EXPECT_TRUE(Exists(key + "\\middle\\kept"));
    EXPECT_TRUE(CRegistry(HKEY_CURRENT_USER).Delete(key, nullptr)) << "it may go now";
    EXPECT_FALSE(Exists(key));
}

}  // namespace
}  // namespace nux
