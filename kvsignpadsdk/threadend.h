/// @file
/// For ThreadSanitizer, to which Qt's own waiting is invisible: what a thread did before its end, its waiter sees.
#ifndef THREADEND_H
#define THREADEND_H

#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif

namespace threadend {

/// Last call of a thread; `mark` is an address that its waiter knows too.
inline void reached([[maybe_unused]] void *mark)
{
#ifdef __SANITIZE_THREAD__
    __tsan_release(mark);
#endif
}

/// After QThread::wait.
inline void awaited([[maybe_unused]] void *mark)
{
#ifdef __SANITIZE_THREAD__
    __tsan_acquire(mark);
#endif
}

} // namespace threadend

#endif
