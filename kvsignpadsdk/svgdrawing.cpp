#include "svgdrawing.h"

#include "fastways/opaquepixels.h"
#include "imageresolution.h"
#include "pixelformats.h"

namespace svgdrawing {

QImage asPixmapHolds(const QImage &image)
{
    QImage pixels = pixelformats::converted(image, QImage::Format_ARGB32_Premultiplied);
    if (!opaquepixels::isOpaque(pixels))
        return pixelformats::converted(pixels, QImage::Format_ARGB32); // else the PDF writer does it, in Qt's threads
    // QPixmap::fromImage() drops the alpha channel when no pixel uses it.
    pixels.reinterpretAsFormat(QImage::Format_RGB32);
    return pixels;
}

void drawFingerprint(QPainter &painter, QImage layer, const QSize &size, int nDPI)
{
    imageresolution::set(layer, nDPI);
    const QPoint topLeft((size.width() - kFingerprintWidth) >> 1, (size.height() - kFingerprintHeight) >> 1);
    painter.drawImage(topLeft, asPixmapHolds(layer));
}

} // namespace svgdrawing
