#include "pixelformats.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace pixelformats {

namespace {

// QImage::convertToFormat() uses one thread for each whole 64 kB, so none but the caller's below two of them, and never
// more threads than rows.
constexpr int kPieceBytes = (1 << 16) - 1;

QImage rowsOf(const QImage &image, int first, int count)
{
    return {image.constScanLine(first), image.width(), count, image.bytesPerLine(), image.format()};
}

} // namespace

QImage converted(const QImage &image, QImage::Format format)
{
    if (image.isNull() || image.format() == format)
        return image;
    if (image.depth() != 32)
        return image.convertToFormat(format); // a view of some rows would lack the colour table
    QImage result(image.size(), format);
    const int rows = std::max(1, kPieceBytes / image.bytesPerLine());
    for (int y = 0; y < image.height(); y += rows) {
        const int count = std::min(rows, image.height() - y);
        const QImage piece = rowsOf(image, y, count).convertToFormat(format);
        if (result.isNull() || piece.isNull())
            throw std::bad_alloc();
        std::memcpy(result.scanLine(y), piece.constBits(), static_cast<size_t>(piece.sizeInBytes()));
    }
    result.setDotsPerMeterX(image.dotsPerMeterX());
    result.setDotsPerMeterY(image.dotsPerMeterY());
    return result;
}

} // namespace pixelformats
