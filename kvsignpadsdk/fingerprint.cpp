#include "fingerprint.h"

#include <algorithm>
#include <numeric>

namespace fingerprint {

namespace {

constexpr QRgb kRed = 0xffff0000;
constexpr QRgb kWhite = 0xffffffff;

} // namespace

int threshold(const unsigned char *raw)
{
    return std::accumulate(raw, raw + kFingerprintWidth * kFingerprintHeight, 0)
        / (kFingerprintWidth * kFingerprintHeight);
}

void drawLayer(QImage &layer, const unsigned char *raw, int threshold)
{
    const int width = std::min(kFingerprintWidth, layer.width());
    const int height = std::min(kFingerprintHeight, layer.height());
    for (int y = 0; y < height; ++y) {
        auto *row = reinterpret_cast<QRgb *>(layer.scanLine(y));
        for (int x = 0; x < width; ++x)
            row[x] = threshold > raw[y * kFingerprintWidth + x] ? kRed : kWhite;
    }
}

void drawPadPicture(unsigned char *picture, const unsigned char *raw, int threshold)
{
    for (int y = 0; y < kPadHeight; ++y) {
        for (int x = 0; x < kPadWidth; ++x) {
            const bool dark = threshold > raw[2 * y * kFingerprintWidth + 2 * x];
            *picture++ = dark ? 248 : 255;
            *picture++ = dark ? 0 : 255;
        }
    }
}

QRectF centred(int canvasWidth, int canvasHeight)
{
    const double height = canvasHeight * 0.5;
    const double width = height * double{kFingerprintWidth} / double{kFingerprintHeight};
    return {(canvasWidth - width) * 0.5, (canvasHeight - height) * 0.5, width, height};
}

QRectF targetOf(const QRect &rectangle)
{
    // In doubles, because a refused rectangle is stored too, and its size may overflow an int.
    return {1.0 * rectangle.left(), 1.0 * rectangle.top(), 1.0 * rectangle.right() - rectangle.left() + 1,
        1.0 * rectangle.bottom() - rectangle.top() + 1};
}

} // namespace fingerprint
