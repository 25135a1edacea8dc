/// @file
/// Tells the sanitizers about the end of a thread. ThreadSanitizer does not see QThread::wait(), so it does not know
/// that everything the thread did happened before wait() returns.
#ifndef THREADEND_H
#define THREADEND_H

#ifdef KV_THREAD_SANITIZED
#include <sanitizer/tsan_interface.h>
#endif
#ifdef KV_ADDRESS_SANITIZED
#include <sanitizer/lsan_interface.h>
#endif

namespace threadend {

/// The thread's last call. `mark` is an address that the waiting thread knows too.
inline void reached([[maybe_unused]] void *mark)
{
#ifdef KV_THREAD_SANITIZED
    __tsan_release(mark);
#endif
}

/// For the object of a thread that does not exist in this forked process: it can be neither waited for nor deleted.
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
