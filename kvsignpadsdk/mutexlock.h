/// @file
/// Holds one of an instance's QMutex fields for a scope.
#ifndef MUTEXLOCK_H
#define MUTEXLOCK_H

#include <QMutex>

#ifdef KV_THREAD_SANITIZED
#include <sanitizer/tsan_interface.h>
#endif

/// A QMutexLocker that ThreadSanitizer understands. Qt is not instrumented, so this tells the sanitizer of each lock,
/// which lets it check the order of locks too.
class MutexLock
{
public:
    explicit MutexLock(QMutex &mutex)
        : m_mutex(mutex)
    {
#ifdef KV_THREAD_SANITIZED
        __tsan_mutex_pre_lock(&m_mutex, 0);
        m_mutex.lock();
        __tsan_mutex_post_lock(&m_mutex, 0, 0);
#else
        m_mutex.lock();
#endif
    }
    ~MutexLock()
    {
#ifdef KV_THREAD_SANITIZED
        __tsan_mutex_pre_unlock(&m_mutex, 0);
        m_mutex.unlock();
        __tsan_mutex_post_unlock(&m_mutex, 0);
#else
        m_mutex.unlock();
#endif
    }
    MutexLock(const MutexLock &) = delete;
    MutexLock &operator=(const MutexLock &) = delete;

private:
    QMutex &m_mutex;
};

#endif
