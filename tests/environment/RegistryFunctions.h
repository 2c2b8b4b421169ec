#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/ImportPatch.h"

namespace nux {

/// Stands in for one of the platform's registry functions in this program, for as long as it lives.
class ReplacedFunction {
public:
    template <class Function>
    ReplacedFunction(const char* name, Function* replacement)
        : patch_(GetModuleHandleA(nullptr), "ADVAPI32.dll", name, reinterpret_cast<void*>(replacement)) {
        EXPECT_TRUE(patch_) << name;
    }

private:
    ImportPatch patch_;
};

/// The platform's own registry function of that name, whether it is replaced or not.
template <class Function>
Function* Original(const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("advapi32.dll"), name)));
}

}  // namespace nux
