#include "paperlesseffect.h"

#include <QPainter>

namespace signdesk {

void PaperlessEffect::draw(QPainter *painter)
{
    QPoint at;
    const QPixmap widget = sourcePixmap(Qt::LogicalCoordinates, &at, NoPad);
    // On high-resolution screens Qt enlarges each canvas pixel to a square. Shrink the picture to canvas pixels again,
    // then enlarge it smoothly.
    const QSize canvas = (QSizeF(widget.size()) / widget.devicePixelRatioF()).toSize();
    const QImage ink = widget.toImage().scaled(canvas);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->setCompositionMode(QPainter::CompositionMode_Multiply);
    painter->drawImage(QRect(at, canvas), ink);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
}

} // namespace signdesk
