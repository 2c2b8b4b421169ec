#include "tests/support/PrivateMemory.h"

#include <windows.h>

namespace nux {

long long PrivateMemory() {
    long long bytes = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* address = nullptr; VirtualQuery(address, &region, sizeof region) == sizeof region;
         address = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE)
            bytes += static_cast<long long>(region.RegionSize);
    }
    return bytes;
}

}  // namespace nux
