/// @file
/// Makes pen packets at a pad's even rate from the uneven reports of a mouse, a finger or a stylus.
#ifndef PACKETCLOCK_H
#define PACKETCLOCK_H

#include <cstdint>
#include <deque>
#include <vector>

namespace virtualpad {

/// The pen's place and pressure, as shares of the writing area and of the largest pressure.
struct PenPoint
{
    double x = 0;
    double y = 0;
    double pressure = 0;
};

/// A packet and when it is to be sent.
struct DuePacket
{
    std::int64_t timeUs = 0;
    PenPoint point{};
    int status = 0; ///< KVSPDAPI_PEN_STATUS
};

/// While the pen is down, gives one packet every period, interpolated between the reported places. Packets lag a little
/// behind the reports, because interpolation needs the next place.
class PacketClock
{
public:
    static constexpr std::int64_t kPeriodUs = 5000; ///< 200 a second
    static constexpr std::int64_t kLagUs = 15000;

    // The reports of the pen, in the order of their times. `status` is the first packet's: down, or a tap on a button.
    void down(std::int64_t timeUs, const PenPoint &point, int status);
    void move(std::int64_t timeUs, const PenPoint &point);
    void up(std::int64_t timeUs, const PenPoint &point); ///< the pressure is the last one before

    /// The packets that have become due since the last call.
    std::vector<DuePacket> due(std::int64_t nowUs);

    bool isIdle() const { return m_reports.empty() && !m_penDown; }

private:
    enum class Kind
    {
        Down,
        Move,
        Up
    };
    struct Report
    {
        Kind kind;
        std::int64_t timeUs;
        PenPoint point;
        int status;
    };

    void report(const Report &report);
    bool packetAt(std::int64_t timeUs, DuePacket &packet);
    PenPoint placeAt(std::int64_t timeUs);

    std::deque<Report> m_reports; ///< not used up yet
    Report m_last{};
    bool m_penDown = false; ///< in the packets given so far, not in the reports
    bool m_writes = false; ///< down on the writing area, not on a button
    std::int64_t m_slotUs = 0; ///< time of the last slot for a packet, whether used or not
};

/// A pressure for devices without one: slow strokes press harder. Speed in writing areas a second.
double pressureOfSpeed(double speed);

} // namespace virtualpad

#endif
