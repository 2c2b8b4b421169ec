#include "driver/Messages.h"

#include <cstdio>
#include <new>
#include <vector>

#include "driver/Waiting.h"

namespace driver {
namespace {

std::string Describe(const char* what, UINT message) {
    char text[80];
    std::snprintf(text, sizeof text, "%s message 0x%04X", what, message);
    return text;
}

}  // namespace

LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, patience, &answer))
        throw NotSeen(Describe("an answer to", message));
    return static_cast<LRESULT>(answer);
}

void Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!PostMessageA(window, message, wParam, lParam))
        throw NotSeen(Describe("a window to take", message));
}

// The memory is asked from the window's process even if that is this one: one way for both.
SharedBlock::SharedBlock(HWND window, std::size_t size) : size_(size) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, process);
    block_ =
        static_cast<char*>(VirtualAllocEx(process_, nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    if (!block_) {
        CloseHandle(process_);
        throw std::bad_alloc();
    }
}

SharedBlock::~SharedBlock() {
    VirtualFreeEx(process_, block_, 0, MEM_RELEASE);
    CloseHandle(process_);
}

void SharedBlock::Write(std::size_t offset, const void* bytes, std::size_t size) {
    WriteProcessMemory(process_, block_ + offset, bytes, size, nullptr);
}

void SharedBlock::Read(std::size_t offset, void* bytes, std::size_t size) const {
    ReadProcessMemory(process_, block_ + offset, bytes, size, nullptr);
}

std::string SharedBlock::ReadText(std::size_t offset) const {
    std::vector<char> text(size_ - offset + 1);
    Read(offset, text.data(), size_ - offset);
    return text.data();
}

}  // namespace driver
