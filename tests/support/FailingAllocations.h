#pragma once

#include <windows.h>

#include <vector>

#include "tests/support/ImportPatch.h"

namespace nux {

/// Makes one allocation of the component fail, or that one and all behind it. All functions through which the
/// module takes memory are replaced for as long as this lives; what other modules take is left alone.
class FailingAllocations {
public:
    explicit FailingAllocations(HMODULE module);
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;
    ~FailingAllocations();

    /// How many functions of the module were found and replaced.
    std::size_t Replaced() const noexcept { return patches_.size(); }

    enum class Extent { one, thatAndAllBehind };
    /// From now on the `number`th allocation fails, counted from 1.
    void Arm(long number, Extent extent = Extent::one) noexcept;
    /// Nothing fails any more. @return how many allocations there were since Arm
    long Disarm() noexcept;

private:
    std::vector<ImportPatch> patches_;
};

}  // namespace nux
