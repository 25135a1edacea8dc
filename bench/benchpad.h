/// @file
/// A pad on the driver for measurements, with the packets of a signature to send to it.
#ifndef BENCHPAD_H
#define BENCHPAD_H

#include "padfamilies.h"
#include "plain.h"

#include <QWidget>

#include <memory>
#include <string>
#include <vector>

struct Packet
{
    int x;
    int y;
    int pressure;
    int status;
};

/// The pad is open for as long as this object exists. With `inWidget` it is a widget in a window of its own.
class BenchPad
{
public:
    BenchPad(const PadFamily &family, const QSize &size, bool inWidget = false);
    ~BenchPad();
    BenchPad(const BenchPad &) = delete;
    BenchPad &operator=(const BenchPad &) = delete;

    void send(const Packet &packet) const { m_penPacket(packet.x, packet.y, packet.pressure, packet.status); }
    void sign() const;
    void takeFingerprint(int score) const;
    void clear() const { m_family.Clear(m_family.type); }
    QWidget *widget() const;

    const std::vector<Packet> &packets() const { return m_packets; }

    /// The segments that the packets draw.
    const std::vector<plain::Segment> &segments() const { return m_segments; }

private:
    const PadFamily &m_family;
    std::unique_ptr<QWidget> m_window;
    NOTIFY_HWSIGNDATA m_penPacket = nullptr;
    NOTIFY_FPDATA m_fingerprint = nullptr;
    std::vector<Packet> m_packets;
    std::vector<plain::Segment> m_segments;
};

/// The canvas sizes that all tables use.
const std::vector<QSize> &benchSizes();
std::string sizeName(const QSize &size);

/// A grey 208 by 288 image with ridges.
std::vector<unsigned char> ridges();

#endif
