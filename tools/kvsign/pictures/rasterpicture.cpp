#include "rasterpicture.h"

#include "../failure.h"
#include "../unwritable.h"

#include <QIODevice>

#include <cmath>

namespace {

constexpr qint64 kMostPixels = qint64{1} << 28; // a gigabyte of memory
constexpr double kInchesPerMetre = 1 / 0.0254;

QImage canvas(QSize size)
{
    const bool isSane = static_cast<qint64>(size.width()) * size.height() <= kMostPixels;
    QImage image(isSane ? size : QSize(), QImage::Format_ARGB32);
    if (image.isNull())
        throw failed(QString("a picture of %1 by %2 pixels is too large; --scale makes it smaller")
                         .arg(size.width())
                         .arg(size.height()));
    return image;
}

class RasterSink : public PointSink
{
public:
    RasterSink(QIODevice &device, const PictureSettings &settings, const char *format, bool canBeTransparent)
        : m_device(device)
        , m_format(format)
        , m_picture(settings, canBeTransparent)
    {
    }

    void put(const POINTDATA &point) override { m_picture.put(point); }

    void finish() override
    {
        if (!m_picture.image().save(&m_device, m_format))
            throw saysWhy(m_device) ? unwritable(m_device)
                                    : failed(QString("Qt cannot write %1 pictures of this size").arg(m_format));
    }

private:
    QIODevice &m_device;
    const char *m_format;
    RasterPicture m_picture;
};

} // namespace

RasterPicture::RasterPicture(const PictureSettings &settings, bool canBeTransparent)
    : m_segments(settings)
    , m_colour(settings.colour)
    , m_image(canvas(settings.size()))
{
    const QColor plain = canBeTransparent ? Qt::transparent : Qt::white;
    m_image.fill(settings.background.isValid() ? settings.background : plain);
    const int dotsPerMetre = static_cast<int>(settings.dpi * kInchesPerMetre);
    m_image.setDotsPerMeterX(dotsPerMetre);
    m_image.setDotsPerMeterY(dotsPerMetre);
    m_painter.begin(&m_image);
    m_painter.setRenderHint(QPainter::Antialiasing);
}

bool RasterPicture::put(const POINTDATA &point)
{
    const std::optional<Segment> segment = m_segments.take(point);
    if (segment.has_value())
        drawSegment(m_painter, *segment, m_colour);
    return segment.has_value();
}

std::unique_ptr<PointSink> drawPng(QIODevice &device, const PictureSettings &settings)
{
    return std::make_unique<RasterSink>(device, settings, "PNG", true);
}

std::unique_ptr<PointSink> drawJpeg(QIODevice &device, const PictureSettings &settings)
{
    return std::make_unique<RasterSink>(device, settings, "JPG", false);
}

std::unique_ptr<PointSink> drawBmp(QIODevice &device, const PictureSettings &settings)
{
    return std::make_unique<RasterSink>(device, settings, "BMP", false);
}
