#include "inkpainting.h"

#include <QPainter>

#include <algorithm>

namespace signdesk {

QRectF canvasIn(const QRectF &place, const QSizeF &canvas)
{
    QRectF fitted({}, canvas.scaled(place.size(), Qt::KeepAspectRatio));
    fitted.moveCenter(place.center());
    return fitted;
}

void paintLines(QPainter &painter, const documents::Ink &ink, const QRectF &canvas, size_t first)
{
    const double scale = canvas.width() / ink.canvas.width();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(ink.colour, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    for (size_t i = first; i < ink.lines.size(); ++i) {
        const documents::InkLine &line = ink.lines[i];
        const QPointF from = canvas.topLeft() + line.from * scale, to = canvas.topLeft() + line.to * scale;
        pen.setWidthF(std::max(line.width, 1.0) * scale); // the saved page has no thinner line than a canvas pixel
        painter.setPen(pen);
        if (from == to) // QPainter draws no broad line without length
            painter.drawPoint(to);
        else
            painter.drawLine(from, to);
    }
    painter.restore();
}

void paintPicture(QPainter &painter, const documents::Ink &ink, const QRectF &canvas)
{
    if (ink.picture.isNull())
        return;
    const double scale = canvas.width() / ink.canvas.width();
    const QRectF &place = ink.picturePlace;
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(canvas.topLeft() + place.topLeft() * scale, place.size() * scale), ink.picture);
    painter.restore();
}

} // namespace signdesk
