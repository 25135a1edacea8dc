#include "inkpen.h"

#include <QPainter>

namespace inkpen {

// QPainter::Antialiasing also smooths pens of up to one pixel. Strokes have always been drawn with this deprecated
// hint, which does not.
void setHint(QPainter &painter)
{
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    painter.setRenderHint(QPainter::HighQualityAntialiasing);
#pragma GCC diagnostic pop
}

QPen penFor(double width, const QColor &colour)
{
    QPen pen(QBrush(Qt::black, Qt::SolidPattern), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    pen.setColor(colour);
    return pen;
}

void drawWith(QPainter &painter, const QPointF &from, const QPointF &to, double width)
{
    // QPainter draws nothing for a line of zero length, except with a pen of up to one pixel.
    if (from.x() == to.x() && from.y() == to.y() && width > 1.0)
        painter.drawPoint(to);
    else
        painter.drawLine(QLineF(from, to));
}

void drawSegment(QImage &canvas, const QPointF &from, const QPointF &to, const QPen &pen)
{
    if (canvas.isNull())
        return;
    QPainter painter(&canvas);
    setHint(painter);
    painter.setPen(pen);
    drawWith(painter, from, to, pen.widthF());
}

} // namespace inkpen
