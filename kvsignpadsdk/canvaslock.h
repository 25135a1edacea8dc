/// @file
/// Holds one of an instance's QMutex fields for a scope.
#ifndef CANVASLOCK_H
#define CANVASLOCK_H

#include <QMutex>

#ifdef KV_THREAD_SANITIZED
#include <sanitizer/tsan_interface.h>
#endif

/// A QMutexLocker that ThreadSanitizer understands: Qt itself is not instrumented, so it is told of the lock here. It
/// then watches the order of locks too.
class CanvasLock
{
public:
    explicit CanvasLock(QMutex &mutex)
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
    ~CanvasLock()
    {
#ifdef KV_THREAD_SANITIZED
        __tsan_mutex_pre_unlock(&m_mutex, 0);
        m_mutex.unlock();
        __tsan_mutex_post_unlock(&m_mutex, 0);
#else
        m_mutex.unlock();
#endif
    }
    CanvasLock(const CanvasLock &) = delete;
    CanvasLock &operator=(const CanvasLock &) = delete;

private:
    QMutex &m_mutex;
};

#endif
