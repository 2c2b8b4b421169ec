#pragma once

#include <windows.h>

namespace nux {

/// Replaces one imported function of a loaded module by another of the same shape, for as long as it lives.
class ImportPatch {
public:
    /// @param library   the imported module as the import table names it, whatever the case
    /// @param function  imported name
    ImportPatch(HMODULE module, const char* library, const char* function, void* replacement);
    ImportPatch(ImportPatch&& other) noexcept;
    ImportPatch& operator=(ImportPatch&&) = delete;
    ~ImportPatch();

    /// Whether the module imports the function at all.
    explicit operator bool() const noexcept { return slot_ != nullptr; }
    void* Original() const noexcept { return original_; }

private:
    void** slot_ = nullptr;
    void* original_ = nullptr;
};

}  // namespace nux
