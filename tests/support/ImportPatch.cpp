#include "tests/support/ImportPatch.h"

#include <cstring>
#include <utility>

namespace nux {
namespace {

template <class Target>
Target* At(HMODULE module, DWORD offset) {
    return reinterpret_cast<Target*>(reinterpret_cast<BYTE*>(module) + offset);
}

/// The slot in the import table that a function is called through, or null.
void** FindSlot(HMODULE module, const char* library, const char* function) {
    const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* headers = At<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(dos->e_lfanew));
    const IMAGE_DATA_DIRECTORY& directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* imported = At<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress); imported->Name;
         ++imported) {
        if (_stricmp(At<char>(module, imported->Name), library) != 0)
            continue;
        const auto* name = At<IMAGE_THUNK_DATA>(module, imported->OriginalFirstThunk);
        auto* slot = At<IMAGE_THUNK_DATA>(module, imported->FirstThunk);
        for (; name->u1.AddressOfData; ++name, ++slot) {
            if (!IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal) &&
                std::strcmp(
                    At<IMAGE_IMPORT_BY_NAME>(module, static_cast<DWORD>(name->u1.AddressOfData))->Name,
                    function) == 0)
                return reinterpret_cast<void**>(&slot->u1.Function);
        }
    }
    return nullptr;
}

void Store(void** slot, void* value) {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = value;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
}

}  // namespace

ImportPatch::ImportPatch(HMODULE module, const char* library, const char* function, void* replacement)
    : slot_(FindSlot(module, library, function)) {
    if (!slot_)
        return;
    original_ = *slot_;
    Store(slot_, replacement);
}

ImportPatch::ImportPatch(ImportPatch&& other) noexcept
    : slot_(std::exchange(other.slot_, nullptr)), original_(other.original_) {}

ImportPatch::~ImportPatch() {
    if (slot_)
        Store(slot_, original_);
}

}  // namespace nux
