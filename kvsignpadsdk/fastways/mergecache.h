/// @file
/// The merge of a fingerprint pad after one segment: only the segment's box of the shown canvas is made anew; and the
/// merge of the whole canvas.
#ifndef MERGECACHE_H
#define MERGECACHE_H

#include "opaquepixels.h"

#include <QImage>
#include <QPointF>
#include <QRect>
#include <QRectF>

/// The fingerprint anded into white, as large as the canvas, so that the shown canvas is ink AND layer. It is made
/// again when the fingerprint, its place or the canvas changes; every change of an image that does not go through this
/// class or the segment brush makes the merge take the whole canvas.
class MergeCache
{
public:
    /// What a merge is made of; a null print adds nothing.
    struct Parts
    {
        QImage &canvas;
        const QImage &ink;
        const QImage *print;
        QRectF target;
    };

    /// The pixels that a segment may have changed.
    static QRect boxOf(const QPointF &from, const QPointF &to, double width);

    /// Announces that the ink changed in this box alone since the last merge.
    void segmentDrawn(const QRect &box) { m_segment = box; }

    /// Brings the announced box up to date; false, and nothing done, where the whole canvas must be merged. Takes the
    /// announcement either way.
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
    QImage m_layer; ///< null until it is needed, and while it would be white
    bool m_layerIsWhite = false;
    QSize m_size; ///< of the canvas that the layer is for
    opaquepixels::Memo m_inkOpacity;
};

#endif
