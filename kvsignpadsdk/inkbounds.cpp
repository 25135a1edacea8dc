#include "inkbounds.h"

#include "opaquepixels.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <limits>

namespace inkbounds {

namespace {

constexpr QRgb kWhite = 0x00ffffff;

// The pixel's text is the line's key, the side that it moved the line's value.
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

const QRgb *rowOf(const QImage &canvas, int y)
{
    return reinterpret_cast<const QRgb *>(canvas.constScanLine(y));
}

bool isInk(QRgb pixel)
{
    return (pixel & kWhite) != kWhite;
}

// Looks at all of them without a branch, which costs less than to stop at the first.
bool haveInk(const QRgb *pixels, int count)
{
    QRgb ink = 0;
    for (int i = 0; i < count; ++i)
        ink |= ~pixels[i];
    return (ink & kWhite) != 0;
}

} // namespace

// From outside to inside: what lies within the box is never read.
Box scanQuietly(const QImage &canvas)
{
    const int width = canvas.width();
    int top = 0;
    while (top < canvas.height() && !haveInk(rowOf(canvas, top), width))
        ++top;
    if (top == canvas.height())
        return {};
    int bottom = canvas.height() - 1;
    while (!haveInk(rowOf(canvas, bottom), width))
        --bottom;
    int left = width;
    int right = -1;
    for (int y = top; y <= bottom; ++y) {
        const QRgb *const row = rowOf(canvas, y);
        const QRgb *const end = row + width;
        if (haveInk(row, left))
            left = static_cast<int>(std::find_if(row, end, isInk) - row);
        if (haveInk(row + right + 1, width - right - 1))
            right = static_cast<int>(
                        std::find_if(std::reverse_iterator(end), std::reverse_iterator(row), isInk).base() - row)
                - 1;
    }
    Box box;
    box.left = left;
    box.top = top;
    box.right = right;
    box.bottom = bottom;
    return box;
}

Box scanLogged(const QImage &canvas)
{
    Box box;
    for (int y = 0; y < canvas.height(); ++y) {
        const QRgb *const row = rowOf(canvas, y);
        for (int x = 0; x < canvas.width(); ++x) {
            if (isInk(row[x]))
                widen(box, x, y, row[x]);
        }
        if (logging::isOn())
            MyDebug("<line end>", "", "\n");
    }
    return box;
}

Box scan(const QImage &canvas)
{
    return logging::isOn() ? scanLogged(canvas) : scanQuietly(canvas);
}

QRect withMargins(const Box &box, int width, int height, int marginX, int marginY)
{
    return {QPoint(lowSide(box.left, marginX), lowSide(box.top, marginY)),
        QPoint(highSide(box.right, marginX, width), highSide(box.bottom, marginY, height))};
}

QImage partInside(const QImage &canvas, const QRect &rectangle)
{
    const QRect part = rectangle.isEmpty() ? QRect() : rectangle.intersected(canvas.rect());
    return part.isEmpty() ? QImage() : canvas.copy(part);
}

void makeTransparent(QImage &image, const QColor &colour)
{
    const QRgb key = colour.rgba();
    for (int y = 0; y < image.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::replace(row, row + image.width(), key, key & kWhite);
    }
}

void makeWhiteTransparentPlainly(QImage &image)
{
    image.setAlphaChannel(image.createMaskFromColor(QColor(Qt::white).rgb(), Qt::MaskOutColor));
}

void makeWhiteTransparent(QImage &image)
{
    const QImage fast = image.format() == QImage::Format_ARGB32 ? opaquepixels::whiteTransparent(image) : QImage();
    if (!fast.isNull())
        image = fast;
    else
        makeWhiteTransparentPlainly(image);
}

} // namespace inkbounds
