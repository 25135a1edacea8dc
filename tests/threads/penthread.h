/// @file
/// A pen that keeps signing on the driver's thread while the test's own thread does something else.
#ifndef PENTHREAD_H
#define PENTHREAD_H

#include "openpad.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

/// Strokes all over the writing area, with everything else that a pad may send: moves without a stroke, moves that are
/// pressed too hard, positions outside, a status that does not exist, taps on both buttons.
inline std::vector<KVSIM_PACKET> busyPackets(int deviceType)
{
    const RawArea area = rawArea(deviceType);
    std::vector<KVSIM_PACKET> packets{{area.offsetX, area.offsetY, 100, KVSPDARI_PS_PEN_MOVE}};
    for (int i = 0; i < 4; ++i) {
        const double row = 0.2 + 0.2 * i;
        const auto line = stroke(
            deviceType, {{0.1, row, 0.2}, {0.4, row + 0.1, 0.5}, {0.6, row, 0.8}, {0.9, row - 0.1, 1}, {0, 0, 0}});
        packets.insert(packets.end(), line.begin(), line.end() - 1);
        packets.push_back({area.offsetX, area.offsetY, area.maxPressure + 1, KVSPDARI_PS_PEN_MOVE});
        packets.push_back({-5, area.offsetY + 2 * area.spanY, 1, KVSPDARI_PS_PEN_MOVE});
        packets.push_back({0, 0, 0, 5});
        packets.push_back({0, 0, 0, KVSPDARI_PS_PEN_UP});
    }
    packets.push_back({0, 0, 0, KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON});
    packets.push_back({0, 0, 0, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON});
    return packets;
}

/// Sends the packets over and over until it is stopped, also across a closing and opening of the pad. A pause between
/// the rounds keeps the number of points within what a slow build can look at.
class PenThread
{
public:
    PenThread(SimulatedDriver &driver, std::vector<KVSIM_PACKET> packets, std::chrono::milliseconds pause = {})
        : m_pause(pause)
        , m_send(reinterpret_cast<Send>(driver.control("KVSIM_SendPackets")))
        , m_packets(std::move(packets))
        , m_thread([this] { run(); })
    {
    }
    ~PenThread() { stop(); }
    PenThread(const PenThread &) = delete;
    PenThread &operator=(const PenThread &) = delete;

    long delivered() const { return m_delivered; }

    void waitFor(long packets) const
    {
        while (m_delivered < packets)
            std::this_thread::yield();
    }

    void stop()
    {
        m_stopping = true;
        if (m_thread.joinable())
            m_thread.join();
    }

private:
    using Send = decltype(&KVSIM_SendPackets);

    void run()
    {
        while (!m_stopping) {
            const int count = m_send(m_packets.data(), static_cast<int>(m_packets.size()));
            m_delivered += std::max(count, 0);
            // A pad that is closed answers at once.
            std::this_thread::sleep_for(count < 0 ? std::chrono::milliseconds(1) : m_pause);
        }
    }

    const std::chrono::milliseconds m_pause;
    const Send m_send;
    const std::vector<KVSIM_PACKET> m_packets;
    std::atomic<long> m_delivered{0};
    std::atomic<bool> m_stopping{false};
    std::thread m_thread;
};

#endif
