/// @file
/// Merges ink and fingerprint into the shown canvas: all of it, or after one segment just the segment's box.
#ifndef MERGECACHE_H
#define MERGECACHE_H

#include "opaquepixels.h"

#include <QImage>
#include <QPointF>
#include <QRect>
#include <QRectF>

/// Keeps a layer as large as the canvas with the fingerprint ANDed into white, so that the shown canvas is ink AND
/// layer. The layer is rebuilt when the fingerprint, its place or the canvas's size changes.
///
/// Knows by QImage::cacheKey() whether anything but InkBrush and itself has written to the images; if so, the next
/// merge takes the whole canvas. See "What a cache key tells" in docs/architecture.md.
class MergeCache
{
public:
    /// The images of a merge. Without a print the canvas is a copy of the ink.
    struct Parts
    {
        QImage &canvas;
        const QImage &ink;
        const QImage *print;
        QRectF target;
    };

    /// The pixels that a segment may have changed.
    static QRect boxOf(const QPointF &from, const QPointF &to, double width);

    /// Call it after drawing a segment: since the last merge the ink has changed inside this box only.
    void segmentDrawn(const QRect &box) { m_segment = box; }

    /// Merges the announced box. Returns false without touching the canvas when mergeWhole() is needed. Either way the
    /// announcement is used up.
    bool mergeSegment(const Parts &parts);

    /// Makes the canvas a copy of the ink, with the fingerprint, scaled to the target, anded into it.
    void mergeWhole(const Parts &parts);

private:
    struct Known
    {
        qint64 canvas = 0;
        qint64 ink = 0;
        qint64 print = 0;
        QRectF target;

        bool operator==(const Known &other) const;
    };

    static Known known(const Parts &parts);
    void remember(const Parts &parts);
    bool makeLayer(const Parts &parts);
    void mergeBox(const Parts &parts, const QRect &box) const;

    QRect m_segment;
    Known m_merged;
    QImage m_layer; ///< null until first needed, and as long as it would be all white
    bool m_layerIsWhite = false;
    QSize m_size; ///< of the canvas that the layer is for
    opaquepixels::Memo m_inkOpacity;
};

#endif
