#include "opaquepixels.h"

#include "plainways.h"

#include <QColor>

namespace opaquepixels {

namespace {

constexpr QRgb kAlpha = 0xff000000;
constexpr QRgb kOpaqueWhite = 0xffffffff;
constexpr int kLongestPainted = 32767; // QT_RASTER_COORD_LIMIT of Qt's raster engine

const QRgb *row(const QImage &image, int y)
{
    return reinterpret_cast<const QRgb *>(image.constScanLine(y));
}

// Whether all pixels have these bits. Two things let the compiler vectorise the inner loop: width() is called before it
// (called for each pixel it costs five times as much as everything else), and a row is ANDed whole before it is
// compared.
bool hasEverywhere(const QImage &image, QRgb bits)
{
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        const QRgb *pixels = row(image, y);
        QRgb all = kOpaqueWhite;
        for (int x = 0; x < width; ++x)
            all &= pixels[x];
        if ((all & bits) != bits)
            return false;
    }
    return true;
}

} // namespace

bool isOpaque(const QImage &image)
{
    return hasEverywhere(image, kAlpha);
}

bool isWhite(const QImage &image)
{
    return hasEverywhere(image, kOpaqueWhite);
}

bool isPaintedWhole(const QImage &image)
{
    return image.width() <= kLongestPainted && image.height() <= kLongestPainted;
}

void maskWhiteByQt(QImage &image)
{
    image.setAlphaChannel(image.createMaskFromColor(QColor(Qt::white).rgb(), Qt::MaskOutColor));
}

// What maskWhiteByQt() gives for opaque images: premultiplying leaves an opaque pixel as it is, so the conversion is a
// copy, and only white needs another value.
QImage whiteTransparent(const QImage &image)
{
    if (!isPaintedWhole(image))
        return {};
    QImage result(image.size(), QImage::Format_ARGB32_Premultiplied);
    const int width = result.width();
    QRgb all = kOpaqueWhite;
    for (int y = 0; y < result.height(); ++y) {
        const QRgb *from = row(image, y);
        auto *to = reinterpret_cast<QRgb *>(result.scanLine(y));
        QRgb rowAll = kOpaqueWhite;
        for (int x = 0; x < width; ++x) {
            rowAll &= from[x];
            to[x] = from[x] == kOpaqueWhite ? 0 : from[x];
        }
        all &= rowAll;
    }
    if ((all & kAlpha) != kAlpha)
        return {};
    result.setDotsPerMeterX(image.dotsPerMeterX());
    result.setDotsPerMeterY(image.dotsPerMeterY());
    return result;
}

QImage viewWithoutAlpha(const QImage &image)
{
    return {image.constBits(), image.width(), image.height(), image.bytesPerLine(), QImage::Format_RGB32};
}

bool Memo::isOpaque(const QImage &image)
{
    if (plainways::only)
        return false;
    if (image.constBits() != m_bits || image.cacheKey() != m_key) {
        m_bits = image.constBits();
        m_key = image.cacheKey();
        m_opaque = image.format() == QImage::Format_ARGB32 && opaquepixels::isOpaque(image);
    }
    return m_opaque;
}

} // namespace opaquepixels
