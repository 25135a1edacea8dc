#include "svgdrawing.h"

#include "imagefiles.h"
#include "opaquepixels.h"

namespace svgdrawing {

QImage asPixmapHolds(const QImage &image)
{
    if (image.isNull())
        return image;
    // A pixmap keeps an alpha channel only where a pixel uses it.
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    return opaquepixels::isOpaque(pixels) ? pixels.convertToFormat(QImage::Format_RGB32) : pixels;
}

void drawFingerprint(QPainter &painter, QImage layer, const QSize &size, int nDPI)
{
    imagefiles::setResolution(layer, nDPI);
    const QPoint topLeft((size.width() - kFingerprintWidth) >> 1, (size.height() - kFingerprintHeight) >> 1);
    painter.drawImage(topLeft, asPixmapHolds(layer));
}

} // namespace svgdrawing
