#include "session.h"

#include <algorithm>

namespace kvsim {

Session::Session(const Receivers &receivers, Script script, const Timing &timing, std::vector<Packet> firstPackets)
    : m_receivers(receivers)
    , m_script(std::move(script))
    , m_timing(timing)
    , m_firstPackets(std::move(firstPackets))
    , m_played(m_script.deliveries.empty())
{
    // The thread must not call back before m_thread is set, which onOwnThread() reads.
    const std::lock_guard lock(m_mutex);
    m_thread = std::thread([this] { run(); });
}

Session::~Session()
{
    stop();
    if (onOwnThread())
        m_thread.detach(); // a callback has called exit(), so this is the thread itself
    else
        m_thread.join();
}

/// A callback that ends its thread (pthread_exit, pthread_cancel) unwinds the stack up to here.
void Session::run()
{
    struct End
    {
        Session &session;
        ~End() { session.end(); }
    };
    const End end{*this};
    playUntilStopped();
}

void Session::end()
{
    const std::lock_guard lock(m_mutex);
    for (Batch *batch : m_batches)
        batch->done = true;
    m_batches.clear();
    m_ended = true;
    m_changed.notify_all();
}

void Session::playUntilStopped()
{
    std::unique_lock lock(m_mutex); // waits for the constructor
    lock.unlock();
    deliverPackets(m_firstPackets.data(), static_cast<int>(m_firstPackets.size()));
    lock.lock();
    m_firstPacketsDelivered = true;
    m_changed.notify_all();
    while (!m_stopping) {
        if (!m_batches.empty())
            serveNextBatch(lock);
        else if (!m_appended.empty())
            playAppended(lock);
        else if (m_playing)
            playNext(lock);
        else
            m_changed.wait(lock);
    }
}

/// Holds no lock during a callback, which may call any operation.
int Session::deliverPackets(const Packet *packets, int count)
{
    int delivered = 0;
    for (; delivered < count && !m_stopping && !m_gone; ++delivered) {
        const Packet &packet = packets[delivered];
        m_receivers.penPacket(packet.x, packet.y, packet.pressure, packet.status);
    }
    return delivered;
}

int Session::deliverFingerprint(const unsigned char *data, int length, int score)
{
    if (!m_receivers.fingerprint || m_stopping || m_gone)
        return 0;
    m_receivers.fingerprint(const_cast<unsigned char *>(data), length, score);
    return 1;
}

void Session::deliverFaults(const std::vector<Event> &faults)
{
    if (m_receivers.faults)
        m_receivers.faults(faults);
    for (const Event &fault : faults)
        if (fault.kind == Event::Kind::Unplug || fault.kind == Event::Kind::Plug)
            m_gone = fault.kind == Event::Kind::Unplug;
}

void Session::deliver(const Delivery &delivery)
{
    if (const Packet *packet = std::get_if<Packet>(&delivery.what)) {
        for (int i = 0; i < delivery.count && deliverPackets(packet, 1) == 1; ++i) { }
    } else if (const Fingerprint *finger = std::get_if<Fingerprint>(&delivery.what)) {
        const auto *bytes = finger->image.get();
        deliverFingerprint(bytes ? bytes->data() : nullptr, bytes ? static_cast<int>(bytes->size()) : 0, finger->score);
    } else {
        deliverFaults(*std::get<FaultsSetIn>(delivery.what));
    }
}

/// The batch stays in the queue until its work is done. If a callback ends the thread halfway, end() finds it there and
/// wakes the sender.
void Session::serveNextBatch(std::unique_lock<std::mutex> &lock)
{
    Batch &batch = *m_batches.front();
    lock.unlock();
    batch.delivered = batch.work();
    lock.lock();
    m_batches.pop_front();
    batch.done = true;
    m_changed.notify_all();
}

void Session::endDelay()
{
    const std::lock_guard lock(m_mutex);
    if (!m_playing || m_next > 0)
        return;
    m_start = Clock::now() - std::chrono::milliseconds(m_timing.delayMs);
    m_changed.notify_all();
}

bool Session::append(Delivery delivery, Clock::time_point due, bool mustBe)
{
    constexpr std::size_t kMostWaiting = 100000; // eight minutes of a pen that writes
    const std::lock_guard lock(m_mutex);
    if (m_appended.size() >= kMostWaiting && !mustBe)
        return false;
    m_appended.emplace_back(due, std::move(delivery));
    m_changed.notify_all();
    return true;
}

void Session::playAppended(std::unique_lock<std::mutex> &lock)
{
    if (const auto due = m_appended.front().first; Clock::now() < due) {
        m_changed.wait_until(lock, due);
        return;
    }
    const Delivery delivery = std::move(m_appended.front().second);
    m_appended.pop_front();
    lock.unlock();
    deliver(delivery);
    lock.lock();
}

bool Session::comesBack()
{
    const std::lock_guard lock(m_mutex);
    const auto next = m_script.deliveries.begin() + static_cast<std::ptrdiff_t>(m_next);
    return std::any_of(next, m_script.deliveries.end(), [](const Delivery &delivery) {
        const FaultsSetIn *faults = std::get_if<FaultsSetIn>(&delivery.what);
        return faults && std::any_of((*faults)->begin(), (*faults)->end(), [](const Event &fault) {
            return fault.kind == Event::Kind::Plug;
        });
    });
}

Session::Clock::time_point Session::dueTime() const
{
    const auto begin = m_start + std::chrono::milliseconds(m_timing.delayMs);
    if (m_timing.speed <= 0)
        return begin;
    constexpr double kLongestUs = 1e15; // thirty years, which a clock's counter still holds
    const double us = std::min(static_cast<double>(m_script.deliveries[m_next].timeUs) / m_timing.speed, kLongestUs);
    return begin + std::chrono::microseconds(static_cast<std::int64_t>(us));
}

void Session::playNext(std::unique_lock<std::mutex> &lock)
{
    if (const auto due = dueTime(); Clock::now() < due) {
        m_changed.wait_until(lock, due);
        return;
    }
    lock.unlock();
    deliver(m_script.deliveries[m_next]);
    lock.lock();
    if (++m_next < m_script.deliveries.size())
        return;
    m_next = 0;
    m_start = Clock::now();
    if (m_timing.repeat == 0 || m_round++ < m_timing.repeat)
        return;
    m_playing = false;
    m_played = true;
    m_changed.notify_all();
}

void Session::waitForFirstPackets()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_firstPacketsDelivered || m_ended; });
}

void Session::startPlayback()
{
    const std::lock_guard lock(m_mutex);
    if (m_started || m_script.deliveries.empty())
        return;
    m_started = m_playing = true;
    m_start = Clock::now();
    m_changed.notify_all();
}

int Session::waitUntilPlayed(int timeoutMs)
{
    std::unique_lock lock(m_mutex);
    const auto isOver = [this] { return m_stopping || m_ended; };
    if (!onOwnThread())
        m_changed.wait_for(lock, std::chrono::milliseconds(timeoutMs), [&] { return m_played || isOver(); });
    if (m_played)
        return 1;
    return isOver() ? -1 : 0;
}

int Session::sendBatch(std::function<int()> work)
{
    Batch batch{std::move(work)};
    std::unique_lock lock(m_mutex);
    if (m_stopping || m_ended || onOwnThread())
        return -1;
    m_batches.push_back(&batch);
    m_changed.notify_all();
    m_changed.wait(lock, [&batch] { return batch.done; });
    return batch.delivered;
}

int Session::sendPackets(const Packet *packets, int count)
{
    return sendBatch([=] { return deliverPackets(packets, count); });
}

int Session::sendFingerprint(const unsigned char *data, int length, int score)
{
    return sendBatch([=] { return deliverFingerprint(data, length, score); });
}

void Session::stop()
{
    std::unique_lock lock(m_mutex);
    m_stopping = true;
    m_changed.notify_all();
    if (!onOwnThread())
        m_changed.wait(lock, [this] { return m_ended.load(); });
}

} // namespace kvsim
