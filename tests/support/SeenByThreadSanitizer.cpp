#include <cstdarg>
#include <dlfcn.h>
#include <pthread.h>
#include <sanitizer/tsan_interface.h>
#include <sched.h>
#include <sys/types.h>

// Linked into each test that the thread sanitizer watches, before the sanitizer's own functions of these names, which
// would keep it from seeing part of what the test does.

namespace {

struct OnceCall {
    pthread_once_t* control = nullptr;
    void (*function)() = nullptr;
};
thread_local OnceCall current;

void callOnce() {
    const OnceCall call = current;
    call.function();
    __tsan_release(call.control);
}

} // namespace

// QProcess begins a process in the memory of this one. What the sanitizer does there for the new one, which is to be
// told of no race and to begin no thread, it would do to the test for the rest of its time. So the new one gets memory
// of its own.
extern "C" int clone(int (*function)(void*), void* stack, int flags, void* argument, ...) {
    using Clone = int (*)(int (*)(void*), void*, int, void*, ...);
    static const auto sanitizersClone = reinterpret_cast<Clone>(dlsym(RTLD_NEXT, "clone"));
    std::va_list more;
    va_start(more, argument);
    auto* parentId = va_arg(more, pid_t*);
    auto* storage = va_arg(more, void*);
    auto* childId = va_arg(more, pid_t*);
    va_end(more);
    return sanitizersClone(function, stack, flags & ~(CLONE_VM | CLONE_VFORK), argument, parentId, storage, childId);
}

// A QThread runs the function it was created with through this one, and the sanitizer is told to look away from what
// its own functions do. So the system's is called, and the sanitizer is told what comes before what.
extern "C" int pthread_once(pthread_once_t* control, void (*function)()) {
    using Once = int (*)(pthread_once_t*, void (*)());
    static const auto systemsOnce = reinterpret_cast<Once>(dlsym(dlopen("libc.so.6", RTLD_LAZY), "pthread_once"));
    current = {.control = control, .function = function};
    const int result = systemsOnce(control, callOnce);
    __tsan_acquire(control);
    return result;
}
