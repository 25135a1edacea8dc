/// @file
/// Locks as a test sees them: one held by another thread, and whether they are free.
#ifndef LOCKHOLDER_H
#define LOCKHOLDER_H

#include "mutexlock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <mutex>
#include <thread>

/// Another thread holds the lock: for a while, or until the call is done.
template <class Locked>
class Holder
{
public:
    template <class Mutex>
    explicit Holder(Mutex &mutex, std::chrono::milliseconds longest)
        : m_thread([this, &mutex, longest] {
            const Locked locked(mutex);
            m_held.set_value();
            m_done.get_future().wait_for(longest);
            m_released = true;
        })
    {
        m_held.get_future().wait();
    }
    ~Holder() { m_thread.join(); }

    bool hasReleased() const { return m_released; }
    void finish() { m_done.set_value(); }

private:
    std::promise<void> m_held;
    std::promise<void> m_done;
    std::atomic<bool> m_released{false};
    std::thread m_thread;
};

/// Tries for a while: a polling thread may hold the lock for a moment, but one that waits for us would never release
/// it.
template <class Mutex>
void expectFree(Mutex &mutex, const char *name)
{
    const auto takeAtOnce = [&mutex] {
        const bool taken = mutex.try_lock();
        if (taken)
            mutex.unlock();
        return taken;
    };
    const auto takeSoon = [&takeAtOnce] {
        for (int i = 0; i < 10000; ++i) {
            if (takeAtOnce())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return false;
    };
    EXPECT_TRUE(std::async(std::launch::async, takeSoon).get()) << name;
}

template <class Pad>
void expectAllFree(Pad &pad)
{
    expectFree(pad.m_mutexUpdateCanvas, "m_mutexUpdateCanvas");
    expectFree(pad.m_internals.pixelsLock, "pixelsLock");
    expectFree(pad.m_internals.inkLock, "inkLock");
    expectFree(pad.m_internals.colourLock, "colourLock");
    if constexpr (Pad::row.model.hasFingerprintSensor)
        expectFree(pad.m_mutexUpdateShowFPImageRawDataOnDevice, "m_mutexUpdateShowFPImageRawDataOnDevice");
}

#endif
