#include "dimensions/CellText.h"

#include <windows.h>

#include <algorithm>

namespace nux {
namespace {

/// Whether a text ends in the first byte of a double-byte character.
bool EndsInHalfACharacter(std::string_view text) noexcept {
    std::size_t next = 0;
    while (next < text.size())
        next += IsDBCSLeadByteEx(CP_THREAD_ACP, static_cast<BYTE>(text[next])) ? 2 : 1;
    return next > text.size();
}

}  // namespace

void CellText::Assign(std::wstring_view text) noexcept {
    const std::size_t counting = std::min(text.size(), longestCellText);
    for (size_ = 0; size_ < counting && text[size_] < 0x80; ++size_)
        bytes_[size_] = static_cast<char>(text[size_]);
    if (size_ == counting)
        return;
    // Beyond ASCII the code page decides.
    const int written = WideCharToMultiByte(CP_THREAD_ACP, 0, text.data(),
                                            static_cast<int>(std::min(text.size(), longestWideText)),
                                            bytes_.data(), static_cast<int>(bytes_.size()), nullptr, nullptr);
    size_ = CutCellText({bytes_.data(), static_cast<std::size_t>(written)}).size();
    // The registry doesn't keep half a character: a filter on such a text would hide its own row.
    if (EndsInHalfACharacter(View()))
        --size_;
}

void CellText::Assign(const Variant& value) noexcept {
    if (value.IsString())
        Assign({value.Text(), SysStringLen(value.Text())});
    else
        size_ = 0;
}

}  // namespace nux
