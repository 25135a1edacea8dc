/// @file
/// The signature as SVG: the stored points drawn anew as lines.
#ifndef SVGDRAWING_H
#define SVGDRAWING_H

#include "LogFileUtil.h"
#include "inkpoints.h"
#include "sharedfields.h"
#include "strokes.h"
#include "svglines.h"

#include <QIODevice>
#include <QImage>
#include <QPainter>

namespace svgdrawing {

/// The image as a pixmap made from it would hold it, without the application object that pixmaps need.
QImage asPixmapHolds(const QImage &image);

/// Draws the fingerprint layer centred.
void drawFingerprint(QPainter &painter, QImage layer, const QSize &size, int nDPI);

/// The lines: one from each point to the next of its stroke, with the later point's width. Points that end a stroke
/// are not drawn.
template <class Pad>
std::vector<svglines::Line> linesOf(Pad &pad, const inkpoints::List &points, const QPoint &origin)
{
    const bool clipped = shared::get(pad.m_bClipImage);
    const bool withPressure = shared::get(pad.m_bWithPressureValue);
    const int fixedWidth = shared::get(pad.m_nSignWidthLevel);
    std::vector<svglines::Line> lines;
    lines.reserve(points.size());
    bool drawn = false;
    QPointF previous;
    for (const _POINTDATA &point : points) {
        if (point.bStrokeEnd) {
            drawn = false;
            continue;
        }
        double x = 0;
        double y = 0;
        double width = 0;
        pad.ConvertSignRawDataToSignWndData(point.nX, point.nY, point.nPressureValue, x, y, width);
        const QPointF here = clipped ? QPointF(x - origin.x(), y - origin.y()) : QPointF(x, y);
        if (drawn)
            lines.push_back({previous, here, withPressure ? width : fixedWidth});
        previous = here;
        drawn = true;
    }
    return lines;
}

/// Writes the whole drawing to the device, which should be open; nothing is written to one that is not.
template <class Pad>
void draw(Pad &pad, QIODevice &device, const QSize &size, int nDPI, const QPoint &origin)
{
    static constexpr logging::Key key{Pad::row.scope, "SaveDrawingImageAsSVGFile()"};
    KV_LOG(key, "<%ld>-enter, nDPI=%d", nDPI);
    const inkpoints::List points = inkpoints::snapshot(pad);
    KV_LOG(key, "<%ld>-nInkCount=%d", static_cast<int>(points.size()));
    if (device.isOpen()) {
        svglines::Drawing drawing{size, nDPI, strokes::drawColour(pad), {}, linesOf(pad, points, origin)};
        if constexpr (Pad::row.model.hasFingerprint) {
            if (shared::get(pad.m_nCurrentFPRawDataWithBestScore) > 0)
                drawing.below = [&](QPainter &painter) {
                    drawFingerprint(painter, pad.fingerprintLayer(), size, nDPI);
                };
        }
        svglines::write(device, drawing);
    }
    KV_LOG(key, "<%ld>-leave !");
}

} // namespace svgdrawing

#endif
