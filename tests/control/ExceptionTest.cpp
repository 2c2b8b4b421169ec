// What the run-time library linked into the module does with an exception: it finds the handler whatever else
// the process has loaded, and leaves nothing behind when the module is unloaded.

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "tests/control/Component.h"
#include "tests/support/FailingAllocations.h"
#include "tests/support/HandleCount.h"
#include "tests/support/ModuleFunctions.h"
#include "tests/support/PrivateMemory.h"

namespace nux {
namespace {

/// The run-time library that other programs of the same compiler share, loaded as long as this lives.
class SharedLibrary {
public:
    SharedLibrary() : module_(LoadLibraryA(name)) {
        EXPECT_TRUE(module_) << "the build copies it beside this program";
    }
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;
    ~SharedLibrary() {
        for (int references = 0; GetModuleHandleA(name) && references < 3; ++references)
            FreeLibrary(module_);  // in 32 bits it holds itself, too
        EXPECT_FALSE(GetModuleHandleA(name)) << "somebody else holds it";
    }

private:
    static constexpr const char* name = sizeof(void*) == 4 ? "libgcc_s_dw2-1.dll" : "libgcc_s_seh-1.dll";
    HMODULE module_;
};

class Exceptions : public testing::Test {
protected:
    void SetUp() override {
        CoFreeUnusedLibraries();
        ASSERT_FALSE(LoadedModule()) << "the module is loaded by each test itself";
    }

    using Extent = FailingAllocations::Extent;

    /// Has the module throw and catch an exception.
    /// @param extent  whether there is memory for the exception itself
    static void Throw(const ModuleFunctions& module, Extent extent = Extent::thatAndAllBehind) {
        ComPtr<InuxStdParts> parts;
        ASSERT_EQ(S_OK, module.Factory()->CreateInstance(nullptr, IID_InuxStdParts, parts.ReceiveVoid()));
        const Bstr text(L"a text that is too long for a small string");
        FailingAllocations failing(module.Handle());
        failing.Arm(1, extent);
        const HRESULT result = parts->put_UserData(text.Get());
        failing.Disarm();
        EXPECT_EQ(E_OUTOFMEMORY, result);
    }
};

TEST_F(Exceptions, AreCaughtBesideASharedLibraryThatCameFirst) {
    const SharedLibrary shared;
    const ModuleFunctions module(RegisteredModulePath());
    Throw(module);
}

TEST_F(Exceptions, AreCaughtWhenASharedLibraryThatCameFirstIsGone) {
    auto shared = std::make_unique<SharedLibrary>();
    const ModuleFunctions module(RegisteredModulePath());
    shared.reset();
    Throw(module);
}

TEST_F(Exceptions, AreCaughtBesideASharedLibraryThatComesAndGoes) {
    const ModuleFunctions module(RegisteredModulePath());
    {
        const SharedLibrary shared;
        Throw(module);
    }
    Throw(module);
}

/// How many places of the threads' own storage are to be had; a process has 1088 of them.
std::size_t FreeThreadSlots() {
    std::vector<DWORD> taken;
    for (DWORD slot; (slot = TlsAlloc()) != TLS_OUT_OF_INDEXES;)
        taken.push_back(slot);
    for (const DWORD slot : taken)
        TlsFree(slot);
    return taken.size();
}

TEST_F(Exceptions, LeaveNothingWhenTheModuleIsUnloaded) {
    constexpr int rounds = 100;
    // Less than the sorted unwind tables of each round, and above what the heap moves by itself.
    constexpr long long tolerance = 512 * 1024;
    const auto once = [&] {
        {
            const ModuleFunctions module(RegisteredModulePath());
            Throw(module, Extent::one);
        }
        ASSERT_FALSE(LoadedModule());
    };
    for (int warmUp = 0; warmUp < 10; ++warmUp)
        once();
    const std::size_t slots = FreeThreadSlots();
    const unsigned handles = HandleCount();
    const long long memory = PrivateMemory();
    for (int round = 0; round < rounds; ++round)
        once();
    // Taken before anything is said: a failure that is told takes handles and memory itself.
    const std::size_t slotsBehind = FreeThreadSlots();
    const unsigned handlesBehind = HandleCount();
    const long long memoryBehind = PrivateMemory();
    EXPECT_EQ(slots, slotsBehind);
    EXPECT_EQ(handles, handlesBehind);
    EXPECT_LE(memoryBehind - memory, tolerance);
}

}  // namespace
}  // namespace nux
