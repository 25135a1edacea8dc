#include "mergecache.h"

#include "fingerprint.h"
#include "plainways.h"

#include <algorithm>
#include <cmath>

namespace {

const QRgb *pixels(const QImage &image, const QRect &box, int y)
{
    return reinterpret_cast<const QRgb *>(image.constScanLine(y)) + box.left();
}

void copyBox(QRgb *to, const QRgb *ink, int width)
{
    std::copy(ink, ink + width, to);
}

void andBox(QRgb *to, const QRgb *ink, const QRgb *layer, int width)
{
    for (int x = 0; x < width; ++x)
        to[x] = ink[x] & layer[x];
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
    constexpr double kFar = 1 << 29; // beyond any canvas, and a box as wide as twice that is still counted in an int
    const double reach = std::max(width, 0.0) / 2 + 2;
    const auto kept = [=](double at) { return static_cast<int>(at > -kFar ? std::min(at, kFar) : -kFar); };
    const auto low = [=](double a, double b) { return kept(std::floor(std::min(a, b) - reach)); };
    const auto high = [=](double a, double b) { return kept(std::ceil(std::max(a, b) + reach)); };
    return {
        QPoint(low(from.x(), to.x()), low(from.y(), to.y())), QPoint(high(from.x(), to.x()), high(from.y(), to.y()))};
}

bool MergeCache::mergeSegment(const Parts &parts)
{
    const QRect box = m_segment.intersected(parts.ink.rect());
    const bool announced = !m_segment.isNull();
    m_segment = QRect();
    if (plainways::only || !announced || !(known(parts) == m_merged) || !parts.canvas.isDetached()
        || !m_inkOpacity.isOpaque(parts.ink))
        return false;
    if (parts.print != nullptr && m_layer.isNull())
        makeLayer(parts);
    for (int y = box.top(); y <= box.bottom(); ++y) {
        // Past the image's own face, so that it does not count as changed.
        auto *to = const_cast<QRgb *>(pixels(parts.canvas, box, y));
        if (parts.print == nullptr)
            copyBox(to, pixels(parts.ink, box, y), box.width());
        else
            andBox(to, pixels(parts.ink, box, y), pixels(m_layer, box, y), box.width());
    }
    return true;
}

void MergeCache::mergedWhole(const Parts &parts)
{
    const Known now = known(parts);
    if (now.print != m_merged.print || now.target != m_merged.target || m_layer.size() != parts.canvas.size())
        m_layer = QImage();
    m_merged = now;
}

void MergeCache::makeLayer(const Parts &parts)
{
    m_layer = QImage(parts.canvas.size(), QImage::Format_ARGB32);
    m_layer.fill(Qt::white);
    fingerprint::andInto(m_layer, *parts.print, parts.target);
}
