/// @file
/// The signature as SVG: the stored points drawn again as lines.
#ifndef SVGDRAWING_H
#define SVGDRAWING_H

#include "LogFileUtil.h"
#include "fastways/svgwriter.h"
#include "inkpoints.h"
#include "sharedfields.h"
#include "strokes.h"

#include <QIODevice>
#include <QImage>
#include <QPainter>

namespace svgdrawing {

/// The image that a QPixmap made from this one would hold. Not a QPixmap, because that needs a QApplication.
QImage asPixmapHolds(const QImage &image);

/// Draws the fingerprint layer centred.
void drawFingerprint(QPainter &painter, QImage layer, const QSize &size, int nDPI);

/// Makes the lines one by one: from each point to the next of its stroke, with the later point's width. The point that
/// ends a stroke is not drawn.
template <class Pad>
class LineMaker
{
public:
    LineMaker(Pad &pad, const inkpoints::List &points, const QPoint &origin)
        : m_pad(pad)
        , m_points(points)
        , m_origin(shared::get(pad.m_bClipImage) ? origin : QPoint())
        , m_withPressure(shared::get(pad.m_bWithPressureValue))
        , m_fixedWidth(shared::get(pad.m_nSignWidthLevel))
    {
    }

    /// Returns false after the last line.
    bool next(svglines::Line &line)
    {
        while (m_next < m_points.size()) {
            const bool joined = m_joined;
            const QPointF previous = m_here;
            double width = 0;
            m_joined = place(m_points[m_next++], width);
            if (joined && m_joined) {
                line = {previous, m_here, m_withPressure ? width : m_fixedWidth};
                return true;
            }
        }
        return false;
    }

private:
    bool place(const _POINTDATA &point, double &width)
    {
        if (point.bStrokeEnd)
            return false;
        double x = 0;
        double y = 0;
        m_pad.ConvertSignRawDataToSignWndData(point.nX, point.nY, point.nPressureValue, x, y, width);
        m_here = QPointF(x - m_origin.x(), y - m_origin.y());
        return true;
    }

    Pad &m_pad;
    const inkpoints::List &m_points;
    const QPoint m_origin;
    const bool m_withPressure;
    const int m_fixedWidth;
    size_t m_next = 0;
    bool m_joined = false; ///< m_here is a point of the current stroke
    QPointF m_here;
};

/// Writes the whole drawing to the device. If the device is not open nothing is written, but the points are mapped all
/// the same, because one class logs each mapping.
template <class Pad>
void draw(Pad &pad, QIODevice &device, const QSize &size, int nDPI, const QPoint &origin)
{
    static constexpr logging::Key key{Pad::row.scope, "SaveDrawingImageAsSVGFile()"};
    KV_LOG(key, "<%ld>-enter, nDPI=%d", nDPI);
    const inkpoints::List points = inkpoints::snapshot(pad);
    KV_LOG(key, "<%ld>-nInkCount=%d", static_cast<int>(points.size()));
    LineMaker<Pad> lines(pad, points, origin);
    if (device.isOpen()) {
        svglines::Drawing drawing{size, nDPI, strokes::drawColour(pad), {},
            [&lines](svglines::Line &line) { return lines.next(line); }, points.size()};
        if constexpr (Pad::row.model.hasFingerprintSensor) {
            if (shared::get(pad.m_nCurrentFPRawDataWithBestScore) > 0)
                drawing.below = [&](QPainter &painter) {
                    drawFingerprint(painter, pad.fingerprintLayer(), size, nDPI);
                };
        }
        svgwriter::write(device, drawing);
    }
    for (svglines::Line unwritten; lines.next(unwritten);) { }
    KV_LOG(key, "<%ld>-leave !");
}

} // namespace svgdrawing

#endif
