#include "mergecache.h"

#include "modelrows.h"
#include "plainways.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace {

/// The rows of a box, one after the other.
class Rows
{
public:
    Rows(const QImage &image, const QRect &box)
        : m_row(reinterpret_cast<const QRgb *>(image.constScanLine(box.top())) + box.left())
        , m_step(image.bytesPerLine() / qint64{sizeof(QRgb)})
    {
    }

    const QRgb *next() { return std::exchange(m_row, m_row + m_step); }

private:
    const QRgb *m_row;
    qint64 m_step;
};

void copyBox(QRgb *to, const QRgb *ink, int width)
{
    std::copy(ink, ink + width, to);
}

void andBox(QRgb *to, const QRgb *ink, const QRgb *layer, int width)
{
    for (int x = 0; x < width; ++x)
        to[x] = ink[x] & layer[x];
}

void copyInk(QImage &canvas, const QImage &ink)
{
    if (canvas.size() != ink.size() || canvas.format() != ink.format())
        canvas = ink.copy();
    else if (!ink.isNull())
        std::memcpy(canvas.bits(), ink.constBits(), static_cast<size_t>(ink.sizeInBytes()));
}

// The raster operation ANDs the pixels: where the print is white the ink stays, and its red shows on white.
void andInto(QImage &canvas, const QImage &print, const QRectF &target)
{
    if (canvas.isNull())
        return;
    QPainter painter(&canvas);
    painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
    painter.drawImage(target, print, QRectF(0, 0, kFingerprintWidth, kFingerprintHeight));
}

} // namespace

bool MergeCache::Known::operator==(const Known &other) const
{
    return canvas == other.canvas && ink == other.ink && print == other.print && target == other.target;
}

MergeCache::Known MergeCache::known(const Parts &parts)
{
    return {parts.canvas.cacheKey(), parts.ink.cacheKey(), parts.print == nullptr ? 0 : parts.print->cacheKey(),
        parts.target};
}

QRect MergeCache::boxOf(const QPointF &from, const QPointF &to, double width)
{
    constexpr double kFar = 1 << 29; // beyond any canvas; twice that still fits an int
    const double reach = std::max(width, 0.0) / 2 + 2; // half the pen, antialiasing and rounding
    const auto kept = [=](double at) { return static_cast<int>(at > -kFar ? std::min(at, kFar) : -kFar); };
    const auto low = [=](double a, double b) { return kept(std::floor(std::min(a, b) - reach)); };
    const auto high = [=](double a, double b) { return kept(std::ceil(std::max(a, b) + reach)); };
    return {
        QPoint(low(from.x(), to.x()), low(from.y(), to.y())), QPoint(high(from.x(), to.x()), high(from.y(), to.y()))};
}

// The box alone may be merged only if nothing but the announced segment happened since the last merge: all four keys
// are the same, and the canvas still owns its memory. Opaque ink because QPainter blends translucent pixels, while the
// loops below copy or AND them.
bool MergeCache::mergeSegment(const Parts &parts)
{
    const QRect box = m_segment.intersected(parts.ink.rect());
    const bool announced = !m_segment.isNull();
    m_segment = QRect();
    if (plainways::only || !announced || !(known(parts) == m_merged) || !parts.canvas.isDetached()
        || !m_inkOpacity.isOpaque(parts.ink))
        return false;
    if (parts.print != nullptr && m_layer.isNull() && !m_layerIsWhite && !makeLayer(parts))
        return false;
    if (!box.isEmpty())
        mergeBox(parts, box);
    return true;
}

void MergeCache::mergeBox(const Parts &parts, const QRect &box) const
{
    Rows ink(parts.ink, box);
    // Written through the const pointer: bits() would change cacheKey() and void the cache.
    Rows canvas(parts.canvas, box);
    const auto to = [&canvas] { return const_cast<QRgb *>(canvas.next()); };
    if (m_layer.isNull()) {
        for (int y = 0; y < box.height(); ++y)
            copyBox(to(), ink.next(), box.width());
    } else {
        Rows layer(m_layer, box);
        for (int y = 0; y < box.height(); ++y)
            andBox(to(), ink.next(), layer.next(), box.width());
    }
}

void MergeCache::mergeWhole(const Parts &parts)
{
    copyInk(parts.canvas, parts.ink);
    if (parts.print != nullptr)
        andInto(parts.canvas, *parts.print, parts.target);
    remember(parts);
}

void MergeCache::remember(const Parts &parts)
{
    const Known now = known(parts);
    if (now.print != m_merged.print || now.target != m_merged.target || m_size != parts.canvas.size()) {
        m_layer = QImage();
        m_layerIsWhite = false;
    }
    m_merged = now;
    m_size = parts.canvas.size();
}

bool MergeCache::makeLayer(const Parts &parts)
{
    QImage layer(parts.canvas.size(), QImage::Format_ARGB32);
    if (layer.isNull())
        return false;
    layer.fill(Qt::white);
    andInto(layer, *parts.print, parts.target);
    m_layerIsWhite = opaquepixels::isWhite(layer); // no fingerprint yet, so AND changes nothing
    if (!m_layerIsWhite)
        m_layer = layer; // last: if drawing the print threw, the next merge tries again
    return true;
}
