#include "canvashost.h"

#include "fastways/opaquepixels.h"
#include "largestcanvas.h"

#include <QPainter>

namespace canvashost {

void clearCanvas(QImage &image, int width, int height)
{
    QImage fresh = largestcanvas::holds(width, height) ? QImage(width, height, QImage::Format_ARGB32) : QImage();
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

void coverWhatIsBehind(QWidget &widget, bool covers)
{
    if (covers == widget.testAttribute(Qt::WA_OpaquePaintEvent))
        return;
    widget.setAttribute(Qt::WA_OpaquePaintEvent, covers);
    if (!covers)
        widget.update();
}

} // namespace canvashost
