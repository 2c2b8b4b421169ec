#include "tests/support/HandleCount.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <winternl.h>

#include <vector>

namespace nux {
namespace {

// One line of the system's list of handles; the platform's headers declare it nowhere.
struct HandleEntry {
    ULONG process;
    BYTE type;
    BYTE flags;
    USHORT handle;
    void* object;
    ULONG access;
};
struct HandleList {
    ULONG count;
    HandleEntry entries[1];
};
constexpr auto handleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(16);

}  // namespace

unsigned HandleCount() {
    // Wine answers GetProcessHandleCount with 0, but keeps the list of all handles.
    static const auto query = reinterpret_cast<decltype(&NtQuerySystemInformation)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation")));
    std::vector<BYTE> buffer(1 << 18);
    NTSTATUS status;
    while ((status = query(handleInformation, buffer.data(), static_cast<ULONG>(buffer.size()), nullptr)) !=
               0 &&
           buffer.size() < (1u << 26))
        buffer.resize(buffer.size() * 2);
    EXPECT_EQ(0, status);
    const auto* list = reinterpret_cast<const HandleList*>(buffer.data());
    unsigned count = 0;
    for (ULONG i = 0; i < list->count; ++i) {
        if (list->entries[i].process == GetCurrentProcessId())
            ++count;
    }
    EXPECT_NE(0u, count) << "no list of handles";
    return count;
}

}  // namespace nux
