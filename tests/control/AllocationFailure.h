#pragma once

#include <windows.h>

#include <algorithm>
#include <functional>
#include <utility>

#include "tests/control/HostedComponent.h"
#include "tests/support/FailingAllocations.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/ModuleFunctions.h"

namespace nux {

/// Base of tests in which each allocation of an operation fails in turn.
class AllocationFailure : public HostedTest {
protected:
    void SetUp() override {
        HostedTest::SetUp();
        folder.Write("catalogs\\BOLTS\\StdDimensions\\M8.xml", "<Dims/>");
        folder.Write("custom\\catalogs\\BOLTS\\UsrDimensions\\M8.xml", "<Dims/>");
        folder.MakeFolder("locale\\English");
        parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
        host->SetNumber(L"MainWindowHWND", 5);
        ASSERT_EQ(S_OK, UseInstallation());
        ASSERT_GE(failing.Replaced(), 9u);
    }

    /// Runs an operation with its 1st, 2nd, 3rd ... allocation failing, until it makes no further one.
    /// @param prepare  brings the operation to where it starts; nothing fails in it
    /// @param call     the operation; its code
    /// @param verify   looks at what a call that has worked has done
    /// @return how many allocations there are
    long FailEach(
        const char* name, const std::function<void()>& prepare, const std::function<HRESULT()>& call,
        const std::function<void()>& verify = [] {}) {
        SCOPED_TRACE(name);
        long allocations = 0;
        for (const auto extent :
             {FailingAllocations::Extent::one, FailingAllocations::Extent::thatAndAllBehind}) {
            for (long number = 1;; ++number) {
                SCOPED_TRACE(number);
                prepare();
                failing.Arm(number, extent);
                const HRESULT result = call();
                if (failing.Disarm() < number) {
                    EXPECT_EQ(S_OK, result) << "nothing has failed";
                    verify();
                    allocations = std::max(allocations, number - 1);
                    break;
                }
                EXPECT_TRUE(FAILED(result) || failureIsSilent) << std::hex << result;
                prepare();
                EXPECT_EQ(S_OK, call()) << "the object works no longer";
                verify();
                if (HasFailure())
                    return number;
            }
        }
        return allocations;
    }

    long FailEach(
        const char* name, const std::function<HRESULT()>& call, const std::function<void()>& verify = [] {}) {
        return FailEach(
            name, [] {}, call, verify);
    }

    const ModuleFunctions module{RegisteredModulePath()};
    FailingAllocations failing{module.Handle()};
    bool failureIsSilent = false;  ///< of an operation that gives less instead of a failure
    ComPtr<ComObject<Host3D>> side = MakeObject<Host3D>();
    ComPtr<ComObject<NamedProperties>> host = MakeObject<NamedProperties>();
};

}  // namespace nux
