/// @file
/// An opened pad: the reading thread and everything that it hands to the callbacks.
#ifndef SESSION_H
#define SESSION_H

#include "kvsignpadsdk_global.h"
#include "script.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace kvsim {

struct Receivers
{
    NOTIFY_HWSIGNDATA penPacket = nullptr;
    NOTIFY_FPDATA fingerprint = nullptr; ///< null: this pad delivers none
    /// Called on the session's thread, before what follows is delivered.
    std::function<void(const std::vector<Event> &)> faults{};
};

struct Timing
{
    double speed = 1; ///< 0: as fast as it goes
    int delayMs = 0;
    int repeat = 1; ///< 0: for ever
};

/// From Initial to UnInitial. The callbacks run on the session's thread only, one after the other, with no lock held,
/// and none runs after stop() has returned. A callback may end the thread (pthread_exit, pthread_cancel; so does Python
/// when it shuts down): the session has then ended, and nobody waits for it.
class Session
{
public:
    /// Starts the thread, which delivers the first packets at once.
    Session(const Receivers &receivers, Script script, const Timing &timing, std::vector<Packet> firstPackets);
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    void waitForFirstPackets();

    /// Starts the recording after the delay. Only the first call has an effect.
    void startPlayback();

    /// Ends the delay: the recording starts now.
    void endDelay();

    /// Queues something that the pad does besides the recording. The queue keeps the order of the calls and delivers
    /// nothing before its time. Returns false when it is full, except with mustBe.
    bool append(Delivery delivery, std::chrono::steady_clock::time_point due, bool mustBe = false);

    /// 1: played, 0: not within the time, -1: stopped.
    int waitUntilPlayed(int timeoutMs);

    /// Both return the number of callbacks made, or -1 when stopped or when called from inside a callback.
    int sendPackets(const Packet *packets, int count);
    int sendFingerprint(const unsigned char *data, int length, int score);

    /// Returns after the last callback has. Called from inside a callback it returns at once: that callback is the last
    /// one, and the thread ends when it returns.
    void stop();

    bool isStopping() const { return m_stopping; }
    bool hasEnded() const { return m_ended; }

    /// Whether the pad is unplugged. It then sends nothing and takes no commands.
    bool isGone() const { return m_gone; }

    /// Whether the rest of the recording plugs the pad in again.
    bool comesBack();

private:
    /// Work that another thread waits for. Returns the number of callbacks made.
    struct Batch
    {
        std::function<int()> work;
        int delivered = 0;
        bool done = false;
    };
    using Clock = std::chrono::steady_clock;

    bool onOwnThread() const { return std::this_thread::get_id() == m_thread.get_id(); }
    void run();
    void playUntilStopped();
    void end();
    void serveNextBatch(std::unique_lock<std::mutex> &lock);
    void playNext(std::unique_lock<std::mutex> &lock);
    void playAppended(std::unique_lock<std::mutex> &lock);
    Clock::time_point dueTime() const;
    int deliverPackets(const Packet *packets, int count);
    int deliverFingerprint(const unsigned char *data, int length, int score);
    void deliver(const Delivery &delivery);
    void deliverFaults(const std::vector<Event> &faults);
    int sendBatch(std::function<int()> work);

    const Receivers m_receivers;
    Script m_script;
    const Timing m_timing;
    const std::vector<Packet> m_firstPackets;

    std::mutex m_mutex; ///< guards what follows; not held during a callback
    std::condition_variable m_changed;
    std::deque<Batch *> m_batches;
    std::deque<std::pair<Clock::time_point, Delivery>> m_appended;
    bool m_firstPacketsDelivered = false;
    bool m_playing = false;
    bool m_started = false;
    bool m_played = false;
    Clock::time_point m_start{};
    std::size_t m_next = 0;
    int m_round = 1;
    std::atomic<bool> m_stopping{false};
    std::atomic<bool> m_ended{false};
    std::atomic<bool> m_gone{false};
    std::thread m_thread; ///< the last member, because it uses all others
};

} // namespace kvsim

#endif
