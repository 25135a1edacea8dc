#include "recordedink.h"

#include "recording.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <fstream>

std::vector<std::string> recordingNames()
{
    return {"signature", "initials", "long-signature", "tick-and-cross", "dots-and-dashes"};
}

std::vector<KVSIM_PACKET> recordedPackets(const std::string &name, int deviceType)
{
    const std::string path = std::string(KV_RECORDINGS) + "/" + name + ".kvrec";
    std::ifstream file(path);
    const RawArea from = rawArea(KVS310X_DEVICE); // what the recordings are made for
    const RawArea to = rawArea(deviceType);
    std::vector<KVSIM_PACKET> packets;
    for (const kvsim::Event &event : kvsim::readRecording(file, path).events) {
        if (event.kind != kvsim::Event::Kind::Pen || event.packet.status > KVSPDARI_PS_PEN_UP)
            continue;
        const auto scaled = [](int value, double span, double toSpan) {
            return static_cast<int>(std::lround(value * toSpan / span));
        };
        packets.push_back({to.offsetX + scaled(event.packet.x - from.offsetX, from.spanX, to.spanX),
            to.offsetY + scaled(event.packet.y - from.offsetY, from.spanY, to.spanY),
            scaled(event.packet.pressure, from.maxPressure, to.maxPressure), event.packet.status});
    }
    return packets;
}

std::vector<plain::Segment> segmentsOf(const std::vector<KVSIM_PACKET> &packets, int deviceType, const QSize &size)
{
    const RawArea area = rawArea(deviceType);
    const double ratio = area.maxPressure == 8192 ? 9 / 8192.0 : 3 / 306.0;
    std::vector<plain::Segment> segments;
    QPointF last;
    for (const KVSIM_PACKET &packet : packets) {
        const QPointF here(std::clamp(packet.x - area.offsetX, 0, area.spanX - 1) * (size.width() / (1.0 * area.spanX)),
            std::clamp(packet.y - area.offsetY, 0, area.spanY - 1) * (size.height() / (1.0 * area.spanY)));
        if (packet.status == KVSPDARI_PS_PEN_MOVE)
            segments.push_back({last, here, packet.pressure * ratio});
        if (packet.status != KVSPDARI_PS_PEN_UP)
            last = here;
    }
    return segments;
}

void drawSegmentOrDot(QImage &canvas, const plain::Segment &segment, const QColor &colour)
{
    if (segment.from != segment.to || segment.width <= 1) {
        plain::drawSegment(canvas, segment, colour);
        return;
    }
    QPainter painter(&canvas);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    painter.setRenderHint(QPainter::HighQualityAntialiasing);
#pragma GCC diagnostic pop
    painter.setPen(QPen(colour, segment.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPoint(segment.to);
}

QImage whiteCanvas(const QSize &size)
{
    QImage canvas(size, QImage::Format_ARGB32);
    canvas.fill(Qt::white);
    return canvas;
}
