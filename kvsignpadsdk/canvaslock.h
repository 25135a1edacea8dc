/// @file
/// Holds one of an instance's QMutex fields for a scope.
#ifndef CANVASLOCK_H
#define CANVASLOCK_H

#include <QMutex>

#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif

/// A QMutexLocker that ThreadSanitizer understands: Qt itself is not instrumented, so it is told of the lock here.
class CanvasLock
{
public:
    explicit CanvasLock(QMutex &mutex)
        : m_mutex(mutex)
    {
        m_mutex.lock();
#ifdef __SANITIZE_THREAD__
        __tsan_acquire(&m_mutex);
#endif
    }
    ~CanvasLock()
    {
#ifdef __SANITIZE_THREAD__
        __tsan_release(&m_mutex);
#endif
        m_mutex.unlock();
    }
    CanvasLock(const CanvasLock &) = delete;
    CanvasLock &operator=(const CanvasLock &) = delete;

private:
    QMutex &m_mutex;
};

#endif
