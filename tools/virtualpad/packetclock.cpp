#include "packetclock.h"

#include "kvsignpadsdk_global.h"

#include <algorithm>

namespace virtualpad {

namespace {

PenPoint between(const PenPoint &from, const PenPoint &to, double share)
{
    const auto mix = [share](double a, double b) { return a + (b - a) * share; };
    return {mix(from.x, to.x), mix(from.y, to.y), mix(from.pressure, to.pressure)};
}

} // namespace

void PacketClock::report(const Report &report)
{
    if (isIdle()) // nothing was due since the last packet
        m_slotUs = std::max(m_slotUs, report.timeUs / kPeriodUs * kPeriodUs);
    m_reports.push_back(report);
}

void PacketClock::down(std::int64_t timeUs, const PenPoint &point, int status)
{
    report({Kind::Down, timeUs, point, status});
}

void PacketClock::move(std::int64_t timeUs, const PenPoint &point)
{
    report({Kind::Move, timeUs, point, KVSPDARI_PS_PEN_MOVE});
}

void PacketClock::up(std::int64_t timeUs, const PenPoint &point)
{
    report({Kind::Up, timeUs, point, KVSPDARI_PS_PEN_UP});
}

std::vector<DuePacket> PacketClock::due(std::int64_t nowUs)
{
    std::vector<DuePacket> packets;
    while (!isIdle() && m_slotUs + kPeriodUs <= nowUs) {
        m_slotUs += kPeriodUs;
        DuePacket packet{m_slotUs, {}, 0};
        if (packetAt(m_slotUs - kLagUs, packet))
            packets.push_back(packet);
    }
    return packets;
}

/// A packet uses up at most one report of pen down or pen up, so that even a quick tap gives two packets.
bool PacketClock::packetAt(std::int64_t timeUs, DuePacket &packet)
{
    const bool isTurn =
        !m_reports.empty() && m_reports.front().kind != Kind::Move && m_reports.front().timeUs <= timeUs;
    if (isTurn) {
        m_last = m_reports.front();
        m_reports.pop_front();
        m_penDown = m_last.kind == Kind::Down;
        m_writes = m_penDown && m_last.status == KVSPDARI_PS_PEN_DOWN;
        packet.point = m_last.point;
        if (!m_penDown)
            packet.point.pressure = 0;
        packet.status = m_last.status;
        return true;
    }
    packet.point = placeAt(timeUs);
    packet.status = KVSPDARI_PS_PEN_MOVE;
    return m_writes;
}

/// Uses up the moves up to this time.
PenPoint PacketClock::placeAt(std::int64_t timeUs)
{
    while (!m_reports.empty() && m_reports.front().kind == Kind::Move && m_reports.front().timeUs <= timeUs) {
        m_last = m_reports.front();
        m_reports.pop_front();
    }
    if (m_reports.empty() || m_reports.front().kind == Kind::Down)
        return m_last.point;
    const Report &next = m_reports.front();
    const auto span = static_cast<double>(std::max<std::int64_t>(next.timeUs - m_last.timeUs, 1));
    return between(m_last.point, next.point, std::clamp(static_cast<double>(timeUs - m_last.timeUs) / span, 0.0, 1.0));
}

double pressureOfSpeed(double speed)
{
    return 0.15 + 0.5 / (1 + speed);
}

} // namespace virtualpad
