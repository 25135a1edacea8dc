// PDF: one page as large as the picture, drawn in lines.
#include "pictures.h"

#include "../unwritable.h"
#include "segments.h"

#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <cmath>

namespace {

constexpr double kPointsPerInch = 72;

class PdfSink : public PointSink
{
public:
    PdfSink(QIODevice &device, const PictureSettings &settings)
        : m_device(device)
        , m_settings(settings)
        , m_segments(m_settings)
        , m_writer(&device)
    {
        m_writer.setPageSize(QPageSize(pageSize(), QPageSize::Point, QString(), QPageSize::ExactMatch));
        m_writer.setPageMargins({0, 0, 0, 0});
        m_writer.setResolution(m_settings.dpi);
        m_writer.setTitle("Signature");
        m_writer.setCreator("kvsign");
        if (!m_painter.begin(&m_writer))
            throw unwritable(device);
        if (m_settings.background.isValid())
            m_painter.fillRect(QRect({0, 0}, m_settings.size()), m_settings.background);
    }

    void put(const POINTDATA &point) override
    {
        const std::optional<Segment> segment = m_segments.take(point);
        if (segment.has_value())
            drawSegment(m_painter, *segment, m_settings.colour);
    }

    void finish() override
    {
        if (!m_painter.end())
            throw unwritable(m_device);
    }

private:
    /// QPageSize takes whole points; rounding up keeps the whole picture on the page.
    QSizeF pageSize() const
    {
        const QSizeF points = m_settings.part.size() * (kPointsPerInch / m_settings.dpi);
        return {std::ceil(points.width()), std::ceil(points.height())};
    }

    QIODevice &m_device;
    PictureSettings m_settings;
    Segments m_segments;
    QPdfWriter m_writer;
    QPainter m_painter;
};

} // namespace

std::unique_ptr<PointSink> drawPdf(QIODevice &device, const PictureSettings &settings)
{
    return std::make_unique<PdfSink>(device, settings);
}
