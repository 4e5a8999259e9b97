// What the thread sanitizer has to know of a program that uses Qt. Part of every test under it.

#include <cstdarg>

#include <sched.h>

extern "C" {

int __interceptor_clone(int (*run)(void *), void *stack, int flags, void *argument, ...);

/// QProcess clones itself within its own memory until the other program is there. The sanitizer takes each
/// clone for a fork and ends in the child, so it becomes one.
int clone(int (*run)(void *), void *stack, int flags, void *argument, ...)
{
    std::va_list rest;
    va_start(rest, argument);
    int *const descriptor = va_arg(rest, int *); // Qt gives no more
    va_end(rest);
    return __interceptor_clone(run, stack, flags & ~CLONE_VM, argument, descriptor, nullptr, nullptr);
}

/// Qt is not instrumented, so its locks are not seen: what it allocates, copies and frees itself would be
/// reported. Each access in our own code is still looked at, and the locks of every library.
const char *__tsan_default_options()
{
    return "ignore_noninstrumented_modules=1";
}
}
