#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace driver {

/// Sends a message to a window of any thread or process and returns the answer. Throws NotSeen if the window
/// does not answer in time, so that a tested thread that hangs does not take the test with it.
LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// Posts a message. Throws NotSeen if the window is gone.
void Post(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// Memory that the process of a window can read and write, for messages that carry a pointer.
class SharedBlock {
public:
    /// Makes a block of `size` bytes, all zero. Throws std::bad_alloc.
    SharedBlock(HWND window, std::size_t size);
    SharedBlock(const SharedBlock&) = delete;
    SharedBlock& operator=(const SharedBlock&) = delete;
    ~SharedBlock();

    /// The block as the window's process sees it, `offset` bytes from its start.
    LPARAM Address(std::size_t offset = 0) const { return reinterpret_cast<LPARAM>(block_ + offset); }

    void Write(std::size_t offset, const void* bytes, std::size_t size);
    void Read(std::size_t offset, void* bytes, std::size_t size) const;
    /// The text that starts at `offset` and ends at the first zero.
    std::string ReadText(std::size_t offset) const;

private:
    HANDLE process_;
    std::size_t size_;
    char* block_;
};

/// Sends a message whose lParam points to a structure, which is written before and read back afterwards.
template <class Structure>
LRESULT AskWith(HWND window, UINT message, WPARAM wParam, Structure& structure) {
    SharedBlock block(window, sizeof structure);
    block.Write(0, &structure, sizeof structure);
    const LRESULT answer = Ask(window, message, wParam, block.Address());
    block.Read(0, &structure, sizeof structure);
    return answer;
}

}  // namespace driver
