// Guards of local statics of the run-time library, in the place of the library's own, for modules that use
// std::shared_ptr: GCC 12.2's part of the library for it holds one such static, which only its atomic
// functions touch. The library's own guards bring its threads along, whose mutexes are in the way of
// ExceptionState.cpp's. Nobody here uses those functions, and the project's own statics have no guards
// (-fno-threadsafe-statics).

namespace __cxxabiv1 {

extern "C" int __cxa_guard_acquire(char* guard) {
    return *guard == 0;
}

extern "C" void __cxa_guard_release(char* guard) {
    *guard = 1;
}

extern "C" void __cxa_guard_abort(char*) {}

}  // namespace __cxxabiv1
