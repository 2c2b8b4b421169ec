#pragma once

#include <windows.h>

namespace nux {

/// Gives this thread another locale, and with it another ANSI code page than the system's, for as long as it
/// lives.
class ThreadLocale {
public:
    explicit ThreadLocale(LCID locale) : before_(GetThreadLocale()) { SetThreadLocale(locale); }
    ThreadLocale(const ThreadLocale&) = delete;
    ThreadLocale& operator=(const ThreadLocale&) = delete;
    ~ThreadLocale() { SetThreadLocale(before_); }

private:
    LCID before_;
};

/// Code page 1251, in which \xC6 is the letter U+0416. The western code page reads the same byte as U+00C6.
constexpr LCID russian = MAKELCID(MAKELANGID(LANG_RUSSIAN, SUBLANG_DEFAULT), SORT_DEFAULT);

}  // namespace nux
