#include "canvashost.h"

#include "opaquepixels.h"

#include <QPainter>

#include <limits>

namespace canvashost {

namespace {

// More than this no array of Qt holds, so nothing could be encoded from it; asking the system for it may even succeed
// and end the process when it is filled.
constexpr qint64 kMostBytes = std::numeric_limits<int>::max();

bool canBeHad(int width, int height)
{
    return width > 0 && height > 0 && qint64{width} * height <= kMostBytes / 4;
}

} // namespace

void clearCanvas(QImage &image, int width, int height)
{
    QImage fresh = canBeHad(width, height) ? QImage(width, height, QImage::Format_ARGB32) : QImage();
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
