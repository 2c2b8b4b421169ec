// How the unwinder that is linked into the 32-bit module gets to know the module's unwind tables. In 64 bits
// exceptions are the system's, which finds the tables of a module by itself: nothing is registered there.
//
// The start code of GCC 12.2 gives the tables to libgcc_s_dw2-1.dll if the process has one loaded, whoever
// brought it, but the unwinder in the module looks for them in a list of its own. The first exception then
// found no handler and ended the process (ExceptionTest in tests/control). Here the module's own unwinder
// always gets them, and no other library is asked: it matters neither whether one is loaded nor when it goes.

#include <windows.h>

#include <pthread.h>

#include <cstdlib>

extern "C" {

/// Start of the tables; the linker's option --defsym makes the name.
extern const char unwindTables[];

// Of the unwinder, libgcc_eh.a. The caller brings the memory of the entry, and leaves it alone as long as it
// is listed.
void __register_frame_info(const void* tables, void* entry);
void* __deregister_frame_info(const void* tables);

/// The linker's option --wrap has the start code call this instead of its own __gcc_register_frame.
void __wrap___gcc_register_frame() {
    static void* entry[6];  // as large as the start code's own, crtbegin.o's `obj`
    __register_frame_info(unwindTables, entry);
    // With the first exception the unwinder makes a sorted copy, 7 KB; it frees that.
    std::atexit([] { __deregister_frame_info(unwindTables); });
}

/// By this the unwinder prepares the lock of its list. The library's own brings all of its threads along:
/// their place in the threads' own storage, handles, and locks that take memory.
int pthread_once(pthread_once_t* control, void (*prepare)()) {
    static_assert(sizeof(pthread_once_t) == sizeof(INIT_ONCE) && PTHREAD_ONCE_INIT == 0);
    auto* once = reinterpret_cast<INIT_ONCE*>(control);
    BOOL pending = FALSE;
    InitOnceBeginInitialize(once, 0, &pending, nullptr);
    if (pending) {
        prepare();
        InitOnceComplete(once, 0, nullptr);
    }
    return 0;
}
}
