#include "bitmapfile.h"

#include "plainways.h"

#include <QBuffer>

#include <cstdint>
#include <cstring>

namespace bitmapfile {

namespace {

constexpr int kHeaderSize = 54;

char *put16(char *to, unsigned value)
{
    *to++ = static_cast<char>(value);
    *to++ = static_cast<char>(value >> 8);
    return to;
}

char *put32(char *to, int value)
{
    return put16(put16(to, static_cast<unsigned>(value)), static_cast<unsigned>(value) >> 16);
}

void writeHeader(char *to, const QImage &image, int bytesPerRow)
{
    const int pixelBytes = bytesPerRow * image.height();
    *to++ = 'B';
    *to++ = 'M';
    to = put32(to, kHeaderSize + pixelBytes);
    to = put32(to, 0);
    to = put32(to, kHeaderSize);
    to = put32(to, 40); // size of the rest of the header
    to = put32(to, image.width());
    to = put32(to, image.height());
    to = put16(to, 1); // planes
    to = put16(to, 24); // bits a pixel
    to = put32(to, 0); // not compressed
    to = put32(to, pixelBytes);
    to = put32(to, image.dotsPerMeterX());
    to = put32(to, image.dotsPerMeterY());
    to = put32(to, 0); // no palette
    put32(to, 0);
}

void writeRow(char *to, const QRgb *pixels, int width)
{
    for (int x = 0; x < width; ++x) {
        *to++ = static_cast<char>(pixels[x]);
        *to++ = static_cast<char>(pixels[x] >> 8);
        *to++ = static_cast<char>(pixels[x] >> 16);
    }
}

// QBmpHandler writes 32-bit images with 24 bits a pixel, without alpha, and pads rows to four bytes.
QByteArray written(const QImage &image)
{
    const int64_t bytesPerRow = (int64_t{image.width()} * 3 + 3) / 4 * 4;
    if (bytesPerRow * image.height() > INT32_MAX - kHeaderSize)
        return {};
    QByteArray file(static_cast<int>(kHeaderSize + bytesPerRow * image.height()), '\0');
    writeHeader(file.data(), image, static_cast<int>(bytesPerRow));
    char *row = file.data() + file.size();
    for (int y = 0; y < image.height(); ++y) {
        row -= bytesPerRow; // the bottom row comes first
        writeRow(row, reinterpret_cast<const QRgb *>(image.constScanLine(y)), image.width());
    }
    return file;
}

bool isAsQtWrites()
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(0xff102030);
    image.setPixel(1, 1, 0xffa0b0c0);
    image.setDotsPerMeterX(5905);
    QByteArray byQt;
    QBuffer buffer(&byQt);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "BMP") && byQt == written(image);
}

} // namespace

QByteArray encoded(const QImage &image)
{
    static const bool asQtWrites = !plainways::only && isAsQtWrites();
    if (!asQtWrites || image.isNull() || image.format() != QImage::Format_ARGB32)
        return {};
    return written(image);
}

} // namespace bitmapfile
