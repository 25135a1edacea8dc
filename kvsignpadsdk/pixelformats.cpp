#include "pixelformats.h"

#include "fastways/plainways.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace pixelformats {

namespace {

// QImage::convertToFormat() uses a thread for each whole 64 kB, but never more threads than rows. A single row, or
// fewer than 128 kB, it converts in the calling thread.
constexpr int kPieceBytes = (1 << 16) - 1;

QImage rowsOf(const QImage &image, int first, int count)
{
    return {image.constScanLine(first), image.width(), count, image.bytesPerLine(), image.format()};
}

} // namespace

void convert(QImage &image, QImage::Format format)
{
    if (image.isNull() || image.format() == format)
        return;
    if (image.depth() != 32) { // rowsOf() does not pass on a colour table
        image = image.convertToFormat(format);
        return;
    }
    if (image.bits() == nullptr) // bits() detaches the image, and gives null when there is no memory for the copy
        throw std::bad_alloc();
    const int rows = std::max(1, kPieceBytes / image.bytesPerLine());
    for (int y = 0; y < image.height(); y += rows) {
        const QImage piece = rowsOf(image, y, std::min(rows, image.height() - y)).convertToFormat(format);
        if (piece.isNull())
            throw std::bad_alloc();
        std::memcpy(image.scanLine(y), piece.constBits(), static_cast<size_t>(piece.sizeInBytes()));
    }
    image.reinterpretAsFormat(format);
}

QImage converted(QImage image, QImage::Format format)
{
    convert(image, format);
    return image;
}

void prepareForPng(QImage &image)
{
    if (!plainways::only && image.format() == QImage::Format_ARGB32_Premultiplied)
        convert(image, QImage::Format_ARGB32);
}

} // namespace pixelformats
