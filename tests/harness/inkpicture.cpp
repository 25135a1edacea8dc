#include "inkpicture.h"

#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cstring>
#include <random>

int moveLimit(const PadCase &pad)
{
    static const std::pair<const char *, int> kLimits[] = {
        {"CS210SignWidget", 2048},
        {"CS210SignObj", 2048},
        {"CS300SignWidget", 2048},
        {"CS300SignObj", INT_MAX},
        {"CS310XSignWidget", 2048},
        {"CS310XSignObj", INT_MAX},
        {"CR800SignWidget", 8192},
        {"CR800SignObj", INT_MAX},
        {"CM450SignWidget", 8192},
        {"CM450SignObj", INT_MAX},
    };
    for (const auto &[name, limit] : kLimits) {
        if (std::string(name) == pad.className())
            return limit;
    }
    throw std::runtime_error("no such class");
}

InkPicture::InkPicture(const PadCase &pad, int width, int height)
    : image(width, height, QImage::Format_ARGB32)
    , m_type(pad.family->type)
    , m_moveLimit(moveLimit(pad))
{
    image.fill(0xffffffff);
}

QPointF InkPicture::at(int rawX, int rawY) const
{
    const RawArea area = rawArea(m_type);
    const double x = std::clamp(double(rawX) - area.offsetX, 0.0, area.spanX - 1.0);
    const double y = std::clamp(double(rawY) - area.offsetY, 0.0, area.spanY - 1.0);
    return {x * (image.width() / double(area.spanX)), y * (image.height() / double(area.spanY))};
}

double InkPicture::penWidth(int rawPressure) const
{
    const bool threefold = m_type == KVR800_DEVICE || m_type == KVM450_DEVICE;
    if (!pen.withPressure)
        return threefold ? pen.level * 3.0 : pen.level;
    return rawPressure * (threefold ? pen.level * 3.0 / 8192 : pen.level / 306.0);
}

void InkPicture::play(const std::vector<KVSIM_PACKET> &packets)
{
    for (const KVSIM_PACKET &packet : packets) {
        const QPointF to = at(packet.x, packet.y);
        switch (packet.status) {
        case 0:
            m_last = to;
            break;
        case 1:
            if (m_last && packet.pressure <= m_moveLimit) {
                drawTo(to, penWidth(packet.pressure));
                m_last = to;
            }
            break;
        default:
            m_last.reset();
        }
    }
}

void InkPicture::drawTo(const QPointF &to, double width)
{
    QPainter painter(&image);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    painter.setRenderHint(QPainter::HighQualityAntialiasing);
#pragma GCC diagnostic pop
    QPen drawing(QBrush(Qt::black, Qt::SolidPattern), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    drawing.setColor(pen.colour);
    painter.setPen(drawing);
    if (to == *m_last && width > 1)
        painter.drawPoint(to);
    else
        painter.drawLine(QLineF(*m_last, to));
}

void setPen(const OpenPad &pad, const PenSettings &pen)
{
    EXPECT_EQ(pad->SetPenWidth(pad.type(), pen.level), 0);
    EXPECT_EQ(pad->SetPenStyle(pad.type(), pen.withPressure), 0);
    EXPECT_EQ(pad->SetPenColor(pad.type(), pen.colour.red(), pen.colour.green(), pen.colour.blue()), 0);
}

std::vector<KVSIM_PACKET> scribble(int deviceType, unsigned seed, int moves)
{
    const RawArea area = rawArea(deviceType);
    std::mt19937 random(seed);
    const auto upTo = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    std::vector<KVSIM_PACKET> packets;
    for (int i = 0; i <= moves; ++i) {
        // A tenth of the positions lies outside the writing area.
        packets.push_back({area.offsetX - area.spanX / 20 + upTo(area.spanX * 11 / 10),
            area.offsetY - area.spanY / 20 + upTo(area.spanY * 11 / 10), upTo(area.maxPressure + 1), i == 0 ? 0 : 1});
    }
    packets.push_back({area.offsetX, area.offsetY, 0, 2});
    return packets;
}

std::string difference(const QImage &actual, const QImage &expected)
{
    if (actual.size() != expected.size())
        return "size " + std::to_string(actual.width()) + "x" + std::to_string(actual.height()) + " instead of "
            + std::to_string(expected.width()) + "x" + std::to_string(expected.height());
    const QImage one = actual.convertToFormat(QImage::Format_ARGB32);
    const QImage other = expected.convertToFormat(QImage::Format_ARGB32);
    int differing = 0;
    std::string first;
    for (int y = 0; y < actual.height(); ++y) {
        // Most rows are equal, and pixel() for every pixel is slow in unoptimised tests.
        if (std::memcmp(one.constScanLine(y), other.constScanLine(y), static_cast<size_t>(one.bytesPerLine())) == 0)
            continue;
        for (int x = 0; x < actual.width(); ++x) {
            if (actual.pixel(x, y) != expected.pixel(x, y) && differing++ == 0)
                first = QString::asprintf(
                    "first at (%d, %d): %08x instead of %08x", x, y, actual.pixel(x, y), expected.pixel(x, y))
                            .toStdString();
        }
    }
    return differing == 0 ? "" : std::to_string(differing) + " pixels differ, " + first;
}

int inkPixels(const QImage &image)
{
    const QImage colours = image.convertToFormat(QImage::Format_ARGB32);
    int ink = 0;
    for (int y = 0; y < colours.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(colours.constScanLine(y));
        for (int x = 0; x < colours.width(); ++x)
            ink += (row[x] & 0xffffff) != 0xffffff;
    }
    return ink;
}
