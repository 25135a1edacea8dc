#include "canvashost.h"

#include "opaquepixels.h"

#include <QPainter>

namespace canvashost {

void clearCanvas(QImage &image, int width, int height)
{
    QImage fresh(width, height, QImage::Format_ARGB32);
    image.swap(fresh);
    image.fill(Qt::white);
}

QImage grown(const QImage &old, int width, int height)
{
    QImage canvas;
    clearCanvas(canvas, width, height);
    if (!canvas.isNull())
        QPainter(&canvas).drawImage(0, 0, old);
    return canvas;
}

void show(QWidget &widget, const QImage &canvas, bool opaque)
{
    QPainter(&widget).drawImage(0, 0, opaque ? opaquepixels::viewWithoutAlpha(canvas) : canvas);
}

} // namespace canvashost
