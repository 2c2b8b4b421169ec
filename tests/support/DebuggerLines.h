#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/support/ImportPatch.h"

namespace nux {

/// What a module says to a debugger for as long as this lives. One of these is in use at a time.
class DebuggerLines {
public:
    explicit DebuggerLines(HMODULE module)
        : patch_(module, "kernel32.dll", "OutputDebugStringW", reinterpret_cast<void*>(&Keep)) {
        Lines().clear();
    }

    /// Whether the module can say anything at all.
    explicit operator bool() const noexcept { return static_cast<bool>(patch_); }
    /// How many lines hold this part.
    std::size_t With(const std::wstring& part) const {
        std::size_t count = 0;
        for (const std::wstring& line : Lines())
            count += line.find(part) != std::wstring::npos;
        return count;
    }
    const std::vector<std::wstring>& All() const { return Lines(); }

private:
    static std::vector<std::wstring>& Lines() {
        static std::vector<std::wstring> lines;
        return lines;
    }
    static void WINAPI Keep(LPCWSTR line) { Lines().push_back(line); }

    ImportPatch patch_;
};

}  // namespace nux
