#pragma once

#include <windows.h>

namespace nux::webbrowser {

/// Holds a lock for as long as it exists.
class Lock {
public:
    explicit Lock(SRWLOCK& lock) noexcept : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() { ReleaseSRWLockExclusive(&lock_); }

private:
    SRWLOCK& lock_;
};

}  // namespace nux::webbrowser
