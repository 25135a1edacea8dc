/// @file
/// One segment on the canvas, and clearing it.
#ifndef STROKES_H
#define STROKES_H

#include "LogFileUtil.h"
#include "canvaslock.h"
#include "padmodels.h"
#include "sharedfields.h"

#include <QColor>
#include <QImage>
#include <QPen>
#include <QPointF>

#include <mutex>

class QPainter;

namespace strokes {

/// The pen of a segment: solid, with round caps and joins.
QPen penFor(double width, const QColor &colour);

/// Pen width while the pressure is switched off.
double fixedWidth(const ModelRow &model, int widthLevel);

/// Draws the plain line with the hint that all strokes have.
void drawLine(QPainter &painter, const QPointF &from, const QPointF &to, const QPen &pen);

/// Draws the line, or a round dot where both ends are the same point. A null canvas stays as it is.
void drawSegment(QImage &canvas, const QPointF &from, const QPointF &to, const QPen &pen);

template <class Pad>
QColor drawColour(Pad &pad)
{
    const std::lock_guard<std::mutex> locked(pad.m_internals.colourLock);
    return pad.m_drawColor;
}

/// Widget hosts: asks for a repaint. Headless hosts show nothing.
template <class Pad>
void requestRepaint(Pad &pad)
{
    if constexpr (Pad::row.host == Host::Widget)
        pad.m_internals.repaint.make(pad);
}

/// Draws from the last point to this one, with the pen of this one. dblPressure is the mapped pressure.
template <class Pad>
void startSign(Pad &pad, double dblX, double dblY, double dblPressure)
{
    static constexpr logging::Key key{Pad::row.scope, "StartSignOnCanvas()"};
    KV_LOG(key, "<%ld>-enter, dblX=%f, dblY=%f, dblPressure=%f", dblX, dblY, dblPressure);
    const CanvasLock locked(pad.m_mutexUpdateCanvas);
    const double width = shared::get(pad.m_bWithPressureValue)
        ? dblPressure
        : fixedWidth(Pad::row.model, shared::get(pad.m_nSignWidthLevel));
    {
        const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
        drawSegment(pad.inkCanvas(), {pad.m_dblLastSignWndX, pad.m_dblLastSignWndY}, {dblX, dblY},
            penFor(width, drawColour(pad)));
        pad.m_dblLastSignWndX = dblX;
        pad.m_dblLastSignWndY = dblY;
        if constexpr (Pad::row.model.hasFingerprint)
            pad.MergeSignCanvasAndFPCanvas();
    }
    requestRepaint(pad);
    KV_LOG(key, "<%ld>-leave !");
}

/// Fills every canvas of the instance white, in its size.
template <class Pad>
void clear(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "ClearSignCanvas()"};
    KV_LOG(key, "<%ld>-Enter...");
    const CanvasLock locked(pad.m_mutexUpdateCanvas);
    {
        const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
        if constexpr (Pad::row.model.hasFingerprint) {
            shared::set(pad.m_nCurrentFPRawDataWithBestScore, 0);
            pad.m_FPOnlyCanvas.fill(Qt::white);
            pad.m_SignCanvas.fill(Qt::white);
        }
        pad.m_canvas.fill(Qt::white);
    }
    requestRepaint(pad);
    KV_LOG(key, "<%ld>-leave !");
}

} // namespace strokes

#endif
