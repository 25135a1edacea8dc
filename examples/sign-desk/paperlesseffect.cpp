#include "paperlesseffect.h"

#include <QPainter>

namespace signdesk {

void PaperlessEffect::draw(QPainter *painter)
{
    QPoint at;
    const QPixmap widget = sourcePixmap(Qt::LogicalCoordinates, &at, NoPad);
    painter->setCompositionMode(QPainter::CompositionMode_Multiply);
    painter->drawPixmap(at, widget);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
}

} // namespace signdesk
