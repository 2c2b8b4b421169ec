#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

namespace driver {

/// What a test waited for did not come about in time.
class NotSeen : public std::runtime_error {
public:
    explicit NotSeen(const std::string& what) : std::runtime_error("waited in vain for " + what) {}
};

/// So many milliseconds a test waits at most. Generous, since a busy machine is not a failure; a test that
/// passes never comes near it.
inline constexpr DWORD patience = 20'000;

/// Asks again and again until the answer counts as true, and returns that answer. Throws NotSeen.
template <class Ask>
auto WaitFor(const std::string& what, Ask&& ask) {
    const ULONGLONG end = GetTickCount64() + patience;
    for (;;) {
        if (auto answer = ask())
            return answer;
        if (GetTickCount64() >= end)
            throw NotSeen(what);
        Sleep(2);
    }
}

}  // namespace driver
