#include "inkbounds.h"

#include "fastways/opaquepixels.h"
#include "fastways/plainways.h"
#include "largestcanvas.h"
#include "pixelformats.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <new>
#include <vector>

namespace inkbounds {

namespace {

constexpr QRgb kColourBits = 0x00ffffff; // red, green and blue

// Existing logs name the pixel as the line's key, and the side it moved as its value.
[[gnu::cold, gnu::noinline]] void logChange(int x, int y, QRgb pixel, const char *side)
{
    std::snprintf(g_cKeyBuf, sizeof g_cKeyBuf, "[%d, %d]-<R=%d, G=%d, B=%d, A=%d> ", x, y, qRed(pixel), qGreen(pixel),
        qBlue(pixel), qAlpha(pixel));
    MyDebug(g_cKeyBuf, side, "\n");
}

void widen(Box &box, int x, int y, QRgb pixel)
{
    const auto changed = [&](const char *side) {
        if (logging::isOn())
            logChange(x, y, pixel, side);
    };
    if (x < box.left) {
        box.left = x;
        changed("[x < nLeft]");
    }
    if (x > box.right) {
        box.right = x;
        changed("[x > nRight]");
    }
    if (y < box.top) {
        box.top = y;
        changed("[y < nTop]");
    }
    if (y > box.bottom) {
        box.bottom = y;
        changed("[y > nBottom]");
    }
}

int toInt(int64_t value)
{
    return static_cast<int>(
        std::clamp<int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

int lowSide(int side, int margin)
{
    return toInt(std::max<int64_t>(int64_t{side} - margin, 0));
}

int highSide(int side, int margin, int size)
{
    const int64_t widened = int64_t{side} + margin;
    return toInt(widened < size ? widened : size - 1);
}

// Finds the first and last element other than 0. Returns false when there is none.
bool ends(const std::vector<QRgb> &values, int &first, int &last)
{
    const auto isSet = [](QRgb value) { return value != 0; };
    const auto found = std::find_if(values.begin(), values.end(), isSet);
    if (found == values.end())
        return false;
    first = static_cast<int>(found - values.begin());
    last = static_cast<int>(values.rend() - std::find_if(values.rbegin(), values.rend(), isSet)) - 1;
    return true;
}

// QImage::copy() returns a null image when memory runs out.
QImage checked(const QImage &copy, const QImage &original)
{
    if (copy.isNull() && !original.isNull())
        throw std::bad_alloc();
    return copy;
}

// The mask that setAlphaChannel() makes from the one of createMaskFromColor(), but made without Qt's thread pool.
QImage maskOfWhite(const QImage &image)
{
    constexpr QRgb kOpaqueWhite = 0xffffffff;
    QImage mask(image.size(), QImage::Format_Alpha8);
    if (mask.isNull())
        throw std::bad_alloc();
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        std::transform(
            row, row + image.width(), mask.scanLine(y), [](QRgb pixel) { return pixel == kOpaqueWhite ? 0 : 255; });
    }
    return mask;
}

} // namespace

// Without an early exit, so that the compiler vectorises the inner loop.
Box scanQuietly(const QImage &canvas)
{
    const int width = canvas.width();
    std::vector<QRgb> columns(static_cast<size_t>(width));
    std::vector<QRgb> rows(static_cast<size_t>(canvas.height()));
    for (int y = 0; y < canvas.height(); ++y) {
        const auto *pixels = reinterpret_cast<const QRgb *>(canvas.constScanLine(y));
        QRgb *column = columns.data();
        QRgb row = 0;
        for (int x = 0; x < width; ++x) {
            const QRgb ink = ~pixels[x] & kColourBits;
            row |= ink;
            column[x] |= ink;
        }
        rows[static_cast<size_t>(y)] = row;
    }
    Box box;
    if (ends(columns, box.left, box.right))
        ends(rows, box.top, box.bottom);
    return box;
}

Box scanLogged(const QImage &canvas)
{
    Box box;
    for (int y = 0; y < canvas.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(canvas.constScanLine(y));
        for (int x = 0; x < canvas.width(); ++x) {
            if ((row[x] & kColourBits) != kColourBits)
                widen(box, x, y, row[x]);
        }
        if (logging::isOn())
            MyDebug("<line end>", "", "\n");
    }
    return box;
}

Box scan(const QImage &canvas)
{
    return plainways::only || logging::isOn() ? scanLogged(canvas) : scanQuietly(canvas);
}

QRect withMargins(const Box &box, int width, int height, int marginX, int marginY)
{
    return {QPoint(lowSide(box.left, marginX), lowSide(box.top, marginY)),
        QPoint(highSide(box.right, marginX, width), highSide(box.bottom, marginY, height))};
}

QImage partInside(const QImage &canvas, const QRect &rectangle)
{
    // In 64 bits, because a refused rectangle is stored too, and its corners may be any ints.
    const qint64 width = qint64{rectangle.right()} - rectangle.left() + 1;
    const qint64 height = qint64{rectangle.bottom()} - rectangle.top() + 1;
    if (canvas.isNull() || (width == 0 && height == 0))
        return checked(canvas.copy(), canvas);
    if (!largestcanvas::holds(width, height))
        return {};
    const QSize size(static_cast<int>(width), static_cast<int>(height));
    const QRect outside(QPoint(canvas.width(), canvas.height()), size);
    return checked(canvas.copy(rectangle.intersects(canvas.rect()) ? rectangle : outside), canvas);
}

void makeColourTransparent(QImage &image, const QColor &colour)
{
    const QRgb key = colour.rgba();
    for (int y = 0; y < image.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::replace(row, row + image.width(), key, key & kColourBits);
    }
}

void makeWhiteTransparent(QImage &image)
{
    if (plainways::only) {
        opaquepixels::maskWhiteByQt(image);
        return;
    }
    if (image.isNull())
        return;
    const QImage fast = image.format() == QImage::Format_ARGB32 ? opaquepixels::whiteTransparent(image) : QImage();
    if (!fast.isNull()) {
        image = fast;
        return;
    }
    const QImage mask = maskOfWhite(image);
    image = pixelformats::converted(image, QImage::Format_ARGB32_Premultiplied);
    image.setAlphaChannel(mask);
}

} // namespace inkbounds
