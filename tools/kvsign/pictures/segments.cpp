#include "segments.h"

#include <QPainter>
#include <QPen>

#include <algorithm>

Segments::Segments(const PictureSettings &settings)
    : m_settings(settings)
    , m_pixelsPerUnitX(kCanvasWidth * settings.scale / settings.model->rawSpanX)
    , m_pixelsPerUnitY(canvasHeight(*settings.model, kCanvasWidth) * settings.scale / settings.model->rawSpanY)
{
}

QPointF Segments::placeOf(const POINTDATA &point) const
{
    const ModelRow &model = *m_settings.model;
    const int x = std::clamp(point.nX - model.rawOffsetX, 0, model.rawSpanX - 1);
    const int y = std::clamp(point.nY - model.rawOffsetY, 0, model.rawSpanY - 1);
    return QPointF(x * m_pixelsPerUnitX, y * m_pixelsPerUnitY) - m_settings.part.topLeft();
}

double Segments::widthOf(const POINTDATA &point) const
{
    const ModelRow &model = *m_settings.model;
    const double pixels = m_settings.withPressure
        ? point.nPressureValue * pressureRatio(model, m_settings.penWidth, model.maxPressure)
        : fixedWidth(model, m_settings.penWidth);
    return pixels * m_settings.scale;
}

std::optional<Segment> Segments::take(const POINTDATA &point)
{
    if (point.bStrokeEnd) {
        m_inStroke = false;
        return {};
    }
    const QPointF place = placeOf(point);
    const QLineF line(m_last, place);
    const bool draws = m_inStroke;
    m_inStroke = true;
    m_last = place;
    if (!draws)
        return {};
    return Segment{line, widthOf(point)};
}

void drawSegment(QPainter &painter, const Segment &segment, const QColor &colour)
{
    // A broken record can have negative pressures, and QPen's constructor treats a negative width as one pixel.
    const double width = std::max(segment.width, 0.0);
    painter.setPen(QPen(QBrush(colour), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    // QPainter draws a line without length only with pens of up to one pixel, so a wider dot is drawn as a point.
    if (segment.line.p1() == segment.line.p2() && width > 1)
        painter.drawPoint(segment.line.p2());
    else
        painter.drawLine(segment.line);
}
