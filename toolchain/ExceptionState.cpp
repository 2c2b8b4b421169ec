// What exceptions need of the run-time library, for the module, in the place of the library's own.
//
// The library takes memory when a thread throws for the first time, and again when there is none for the
// exception itself and it locks what it has set aside for that. Without any it ends the process, just when
// std::bad_alloc is thrown. It also leaves two handles of the thread behind when the module is unloaded. Here
// neither takes what can be missing.

#include <windows.h>

#include <pthread.h>

#include <cstdlib>

namespace __cxxabiv1 {

/// As the binary interface of C++ exceptions has it.
struct __cxa_eh_globals {
    void* caughtExceptions;
    unsigned int uncaughtExceptions;
};

namespace {

/// The state of the exceptions of each thread.
class StateOfThreads {
public:
    StateOfThreads() noexcept : slot_(TlsAlloc()) {}
    StateOfThreads(const StateOfThreads&) = delete;
    StateOfThreads& operator=(const StateOfThreads&) = delete;
    ~StateOfThreads() {
        // Of other threads' states nothing is known any more; each is as small as two pointers.
        if (void* own = TlsGetValue(slot_); own != &lastResort_)
            std::free(own);
        TlsFree(slot_);
    }

    __cxa_eh_globals* Get() noexcept {
        const DWORD error = GetLastError();  // who throws may still want it
        auto* state = static_cast<__cxa_eh_globals*>(TlsGetValue(slot_));
        if (!state) {
            state = static_cast<__cxa_eh_globals*>(std::calloc(1, sizeof *state));
            if (!state)
                state = &lastResort_;
            TlsSetValue(slot_, state);
        }
        SetLastError(error);
        return state;
    }

private:
    DWORD slot_;
    /// Of threads that find no memory at their first exception. They share it from then on, which does harm
    /// only if two of them throw at the same time.
    __cxa_eh_globals lastResort_{};
};

StateOfThreads stateOfThreads;

}  // namespace

extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept {
    return stateOfThreads.Get();
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return stateOfThreads.Get();
}

}  // namespace __cxxabiv1

// The library's locks. Nothing else in the module uses any.

static_assert(sizeof(pthread_mutex_t) == sizeof(SRWLOCK));

extern "C" int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t*) {
    InitializeSRWLock(reinterpret_cast<SRWLOCK*>(mutex));
    return 0;
}

extern "C" int pthread_mutex_lock(pthread_mutex_t* mutex) {
    // The 32-bit library has a lock that is never initialised by a call.
    InterlockedCompareExchangePointer(reinterpret_cast<void**>(mutex), nullptr,
                                      reinterpret_cast<void*>(PTHREAD_MUTEX_INITIALIZER));
    AcquireSRWLockExclusive(reinterpret_cast<SRWLOCK*>(mutex));
    return 0;
}

extern "C" int pthread_mutex_unlock(pthread_mutex_t* mutex) {
    ReleaseSRWLockExclusive(reinterpret_cast<SRWLOCK*>(mutex));
    return 0;
}

extern "C" int pthread_mutex_destroy(pthread_mutex_t*) {
    return 0;
}

// The 32-bit library prepares a table of its own with it when something is thrown for the first time.

extern "C" int pthread_once(pthread_once_t* once, void (*initialise)()) {
    static SRWLOCK lock = SRWLOCK_INIT;
    AcquireSRWLockExclusive(&lock);
    if (*once == PTHREAD_ONCE_INIT) {
        initialise();
        *once = 1;
    }
    ReleaseSRWLockExclusive(&lock);
    return 0;
}
