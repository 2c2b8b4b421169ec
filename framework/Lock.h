#pragma once

#include <windows.h>

namespace nux {

/// Holds a lock alone for as long as it exists.
class Lock {
public:
    explicit Lock(SRWLOCK& lock) noexcept : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() { ReleaseSRWLockExclusive(&lock_); }

private:
    SRWLOCK& lock_;
};

/// Holds a lock beside others that only read.
class SharedLock {
public:
    explicit SharedLock(SRWLOCK& lock) noexcept : lock_(lock) { AcquireSRWLockShared(&lock_); }
    SharedLock(const SharedLock&) = delete;
    SharedLock& operator=(const SharedLock&) = delete;
    ~SharedLock() { ReleaseSRWLockShared(&lock_); }

private:
    SRWLOCK& lock_;
};

}  // namespace nux
