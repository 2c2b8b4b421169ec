// What C++ exceptions need of the run-time library, in the place of the library's own. Measured with GCC 12.2
// for mingw-w64, linked statically, in 32 and 64 bits:
// - The library takes memory when a thread throws for the first time, and again when there is none for the
//   exception itself and it locks what it has set aside for that. Without any it ended the process, just when
//   std::bad_alloc was thrown (OutOfMemoryTest and ExceptionTest in tests/control).
// - Each time that the module was loaded, threw and was unloaded, it left one of the process's 1088 places of
//   the threads' own storage behind, four handles, and 19 KB in 32 bits or 77 KB in 64 (ExceptionTest).
// Here nothing takes what can be missing, and all that the unloading thread has taken goes with the module.

#include <windows.h>

#include <pthread.h>

#include <cstdlib>

namespace __gnu_cxx {

/// Of libstdc++: frees what it has set aside for exceptions. It doesn't call this itself when a module is
/// unloaded.
void __freeres();

}  // namespace __gnu_cxx

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
        // The states of other threads stay, two pointers each: nobody knows where they are.
        if (void* own = TlsGetValue(slot_); own != &lastResort_)
            std::free(own);
        TlsFree(slot_);
        __gnu_cxx::__freeres();
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
    /// For threads that find no memory at their first exception. They share it from then on, which does harm
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

// The locks of the library, which makes each by pthread_mutex_init. Nothing else in the module uses any.

static_assert(sizeof(pthread_mutex_t) == sizeof(SRWLOCK));

extern "C" int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t*) {
    InitializeSRWLock(reinterpret_cast<SRWLOCK*>(mutex));
    return 0;
}

extern "C" int pthread_mutex_lock(pthread_mutex_t* mutex) {
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
