#include "tests/support/FailingAllocations.h"

#include <ole2.h>

namespace nux {
namespace {

long failing = 0;  ///< 0: nothing fails
bool andAllBehind = false;
long count = 0;
bool counting = false;

bool Fails() noexcept {
    if (!counting)
        return false;
    ++count;
    return count == failing || (andAllBehind && count > failing);
}

/// Stands for one allocating function of the platform with the signature `Result(Arguments...)`.
template <int place, class Result, class... Arguments>
struct Replacement {
    static inline Result(WINAPI* original)(Arguments...) = nullptr;
    static inline Result failure{};

    static Result WINAPI Call(Arguments... arguments) { return Fails() ? failure : original(arguments...); }
};

/// The same for one of the run-time library, whose calling convention is another in 32 bits.
template <class... Arguments>
struct RuntimeReplacement {
    static inline void*(__cdecl* original)(Arguments...) = nullptr;

    static void* __cdecl Call(Arguments... arguments) { return Fails() ? nullptr : original(arguments...); }
};

template <class Function>
void Replace(std::vector<ImportPatch>& patches, HMODULE module, const char* library, const char* name) {
    ImportPatch patch(module, library, name, reinterpret_cast<void*>(&Function::Call));
    if (!patch)
        return;
    Function::original = reinterpret_cast<decltype(Function::original)>(patch.Original());
    patches.push_back(std::move(patch));
}

template <int place, class Result, class... Arguments>
void Replace(std::vector<ImportPatch>& patches, HMODULE module, const char* library, const char* name,
             Result(WINAPI*)(Arguments...), Result failure) {
    using Function = Replacement<place, Result, Arguments...>;
    Function::failure = failure;
    Replace<Function>(patches, module, library, name);
}

}  // namespace

FailingAllocations::FailingAllocations(HMODULE module) {
    Replace<RuntimeReplacement<std::size_t>>(patches_, module, "msvcrt.dll", "malloc");
    Replace<RuntimeReplacement<std::size_t, std::size_t>>(patches_, module, "msvcrt.dll", "calloc");
    Replace<RuntimeReplacement<void*, std::size_t>>(patches_, module, "msvcrt.dll", "realloc");
    Replace<0>(patches_, module, "OLEAUT32.dll", "SysAllocString", &SysAllocString, BSTR{});
    Replace<1>(patches_, module, "OLEAUT32.dll", "SysAllocStringLen", &SysAllocStringLen, BSTR{});
    Replace<2>(patches_, module, "OLEAUT32.dll", "SysReAllocStringLen", &SysReAllocStringLen, 0);
    Replace<3>(patches_, module, "OLEAUT32.dll", "SafeArrayCreate", &SafeArrayCreate,
               static_cast<SAFEARRAY*>(nullptr));
    Replace<4>(patches_, module, "OLEAUT32.dll", "VariantCopy", &VariantCopy, E_OUTOFMEMORY);
    Replace<5>(patches_, module, "OLEAUT32.dll", "VariantCopyInd", &VariantCopyInd, E_OUTOFMEMORY);
    Replace<6>(patches_, module, "OLEAUT32.dll", "LoadTypeLibEx", &LoadTypeLibEx, E_OUTOFMEMORY);
    Replace<7>(patches_, module, "ole32.dll", "CoTaskMemAlloc", &CoTaskMemAlloc, LPVOID{});
    Replace<8>(patches_, module, "ole32.dll", "CoCreateInstance", &CoCreateInstance, E_OUTOFMEMORY);
    Replace<9>(patches_, module, "ole32.dll", "CreateOleAdviseHolder", &CreateOleAdviseHolder, E_OUTOFMEMORY);
    Replace<10>(patches_, module, "ole32.dll", "CreateDataAdviseHolder", &CreateDataAdviseHolder,
                E_OUTOFMEMORY);
    Replace<11>(patches_, module, "KERNEL32.dll", "HeapAlloc", &HeapAlloc, LPVOID{});
}

FailingAllocations::~FailingAllocations() {
    Disarm();
}

void FailingAllocations::Arm(long number, Extent extent) noexcept {
    failing = number;
    andAllBehind = extent == Extent::thatAndAllBehind;
    count = 0;
    counting = true;
}

long FailingAllocations::Disarm() noexcept {
    counting = false;
    return count;
}

}  // namespace nux
