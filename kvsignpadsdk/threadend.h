/// @file
/// What the sanitizers must be told of the end of a thread. To ThreadSanitizer Qt's own waiting is invisible: what a
/// thread did before its end, its waiter sees.
#ifndef THREADEND_H
#define THREADEND_H

#ifdef KV_THREAD_SANITIZED
#include <sanitizer/tsan_interface.h>
#endif
#ifdef KV_ADDRESS_SANITIZED
#include <sanitizer/lsan_interface.h>
#endif

namespace threadend {

/// Last call of a thread; `mark` is an address that its waiter knows too.
inline void reached([[maybe_unused]] void *mark)
{
#ifdef KV_THREAD_SANITIZED
    __tsan_release(mark);
#endif
}

/// For the object of a thread that did not come along into this forked process: it can be neither awaited nor deleted.
inline void abandoned([[maybe_unused]] const void *thread)
{
#ifdef KV_ADDRESS_SANITIZED
    __lsan_ignore_object(thread);
#endif
}

/// After QThread::wait.
inline void awaited([[maybe_unused]] void *mark)
{
#ifdef KV_THREAD_SANITIZED
    __tsan_acquire(mark);
#endif
}

} // namespace threadend

#endif
