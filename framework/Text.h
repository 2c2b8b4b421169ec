#pragma once

#include <windows.h>

#include <ole2.h>

#include <string>
#include <string_view>
#include <utility>

namespace nux {

/// Owns a BSTR.
class Bstr {
public:
    Bstr() noexcept = default;
    /// Copies `text`. Throws std::bad_alloc.
    explicit Bstr(std::wstring_view text);
    /// Widens `narrow` from `codePage`. Throws std::bad_alloc.
    Bstr(std::string_view narrow, UINT codePage);
    Bstr(Bstr&& other) noexcept : text_(other.Detach()) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    BSTR Get() const noexcept { return text_; }
    UINT Length() const noexcept { return SysStringLen(text_); }
    std::wstring_view View() const noexcept { return {text_, Length()}; }
    explicit operator bool() const noexcept { return text_ != nullptr; }
    [[nodiscard]] BSTR Detach() noexcept { return std::exchange(text_, nullptr); }
    /// For out arguments: what was held is freed first.
    BSTR* Receive() noexcept {
        SysFreeString(Detach());
        return &text_;
    }

private:
    BSTR text_ = nullptr;
};

/// Narrows `length` wide characters into `codePage`. A character that the code page lacks becomes its
/// default character. Throws std::bad_alloc.
std::string Narrow(const wchar_t* text, std::size_t length, UINT codePage = CP_THREAD_ACP);

/// Narrows an automation string; null reads as empty. Throws std::bad_alloc.
inline std::string Narrow(BSTR text, UINT codePage = CP_THREAD_ACP) {
    return Narrow(text, SysStringLen(text), codePage);
}

/// Widens a narrow text. Throws std::bad_alloc.
std::wstring Widen(std::string_view text, UINT codePage = CP_THREAD_ACP);

/// Replaces the caller's string: widened from the system's ANSI code page, the old one freed.
/// @param target  variable of the caller, who owns the result; holds null or a string
/// Throws std::bad_alloc and then leaves the old string.
void ReplaceString(BSTR* target, std::string_view text);

}  // namespace nux
