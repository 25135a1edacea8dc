#include "svgdrawing.h"

#include "imagefiles.h"

namespace svgdrawing {

QImage asPixmapHolds(const QImage &image)
{
    if (image.isNull())
        return image;
    // A pixmap keeps an alpha channel only where a pixel uses it.
    const QImage alpha = image.convertToFormat(QImage::Format_Alpha8);
    for (int y = 0; y < alpha.height(); ++y) {
        const uchar *row = alpha.constScanLine(y);
        for (int x = 0; x < alpha.width(); ++x) {
            if (row[x] != 255)
                return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        }
    }
    return image.convertToFormat(QImage::Format_RGB32);
}

void setUp(QSvgGenerator &generator, QIODevice &device, const QSize &size, int nDPI)
{
    generator.setOutputDevice(&device);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    generator.setResolution(nDPI);
}

void drawLine(QPainter &painter, const QPointF &from, const QPointF &to, const QPen &pen)
{
    strokes::setHint(painter);
    painter.setPen(pen);
    painter.drawLine(QLineF(from, to));
}

void drawFingerprint(QPainter &painter, QImage layer, const QSize &size, int nDPI)
{
    imagefiles::setResolution(layer, nDPI);
    const QPoint topLeft((size.width() - kFingerprintWidth) >> 1, (size.height() - kFingerprintHeight) >> 1);
    painter.drawImage(topLeft, asPixmapHolds(layer));
}

} // namespace svgdrawing
