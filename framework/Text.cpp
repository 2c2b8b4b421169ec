#include "framework/Text.h"

#include <new>

namespace nux {
namespace {

int CheckedLength(std::size_t length) {
    if (length > 0x3fffffff)
        throw std::bad_alloc();
    return static_cast<int>(length);
}

}  // namespace

Bstr::Bstr(std::wstring_view text)
    : text_(SysAllocStringLen(text.data(), static_cast<UINT>(CheckedLength(text.size())))) {
    if (!text_)
        throw std::bad_alloc();
}

Bstr::Bstr(std::string_view narrow, UINT codePage) : Bstr(Widen(narrow, codePage)) {}

std::string Narrow(const wchar_t* text, std::size_t length, UINT codePage) {
    // No ANSI code page needs more than two bytes for one UTF-16 unit; UTF-8 as ANSI code page needs three.
    const std::size_t enough = length * 3;
    const auto narrowInto = [&](char* target) {
        return static_cast<std::size_t>(WideCharToMultiByte(codePage, 0, text, CheckedLength(length), target,
                                                            CheckedLength(enough), nullptr, nullptr));
    };
    if (char shortText[512]; enough <= sizeof shortText)  // most are: they take the memory that they need
        return std::string(shortText, length == 0 ? 0 : narrowInto(shortText));
    std::string result(enough, '\0');
    result.resize(narrowInto(result.data()));
    return result;
}

std::wstring Widen(std::string_view text, UINT codePage) {
    std::wstring result;
    if (text.empty())
        return result;
    result.resize(text.size());  // no code page makes more UTF-16 units than it has bytes
    const int written = MultiByteToWideChar(codePage, 0, text.data(), CheckedLength(text.size()),
                                            result.data(), CheckedLength(result.size()));
    result.resize(static_cast<std::size_t>(written));
    return result;
}

void ReplaceString(BSTR* target, std::string_view text) {
    const std::wstring wide = Widen(text, CP_ACP);
    if (!SysReAllocStringLen(target, wide.data(), static_cast<UINT>(wide.size())))
        throw std::bad_alloc();
}

}  // namespace nux
