#include "paperlesseffect.h"

#include <QPainter>

namespace signdesk {

void PaperlessEffect::draw(QPainter *painter)
{
    QPoint at;
    const QPixmap widget = sourcePixmap(Qt::LogicalCoordinates, &at, NoPad);
    // On a fine screen the canvas comes in squares, one for each of its pixels: back to those, and then smoothly.
    const QSize canvas = (QSizeF(widget.size()) / widget.devicePixelRatioF()).toSize();
    const QImage ink = widget.toImage().scaled(canvas);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->setCompositionMode(QPainter::CompositionMode_Multiply);
    painter->drawImage(QRect(at, canvas), ink);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
}

} // namespace signdesk
