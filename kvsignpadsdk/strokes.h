/// @file
/// One segment on the canvas, and clearing it.
#ifndef STROKES_H
#define STROKES_H

#include "LogFileUtil.h"
#include "contained.h"
#include "fastways/inkpen.h"
#include "fastways/mergecache.h"
#include "modelrules.h"
#include "mutexlock.h"
#include "owedmerge.h"
#include "padmodels.h"
#include "padparts.h"
#include "sharedfields.h"

#include <QColor>
#include <QImage>
#include <QPointF>

#include <mutex>

namespace strokes {

template <class Pad>
QColor drawColour(Pad &pad)
{
    const std::lock_guard<std::mutex> locked(pad.m_internals.colourLock);
    return pad.m_drawColor;
}

/// Requests a repaint of a widget. Does nothing for a headless instance.
template <class Pad>
void requestRepaint(Pad &pad)
{
    if constexpr (Pad::row.host == Host::Widget)
        owedmerge::orOwed(pad, [&pad] { pad.m_internals.repaint.make(pad); });
}

/// Draws a segment on the ink canvas, which the caller has locked.
template <class Pad>
void drawInk(Pad &pad, const QPointF &from, const QPointF &to, double width)
{
    const QColor colour = drawColour(pad);
    if (!pad.m_internals.brush.draw(padparts::inkCanvas(pad), from, to, width, colour))
        inkpen::drawSegment(padparts::inkCanvas(pad), from, to, inkpen::penFor(width, colour));
}

/// Draws from the last point to this one, in this one's width. dblPressure is the mapped pressure.
template <class Pad>
void startSign(Pad &pad, double dblX, double dblY, double dblPressure)
{
    static constexpr logging::Key key{Pad::row.scope, "StartSignOnCanvas()"};
    KV_LOG(key, "<%ld>-enter, dblX=%f, dblY=%f, dblPressure=%f", dblX, dblY, dblPressure);
    const MutexLock locked(pad.m_mutexUpdateCanvas);
    const double width = shared::get(pad.m_bWithPressureValue)
        ? dblPressure
        : fixedWidth(Pad::row.model, shared::get(pad.m_nSignWidthLevel));
    {
        const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
        const QPointF from(pad.m_dblLastSignWndX, pad.m_dblLastSignWndY);
        drawInk(pad, from, {dblX, dblY}, width);
        pad.m_dblLastSignWndX = dblX;
        pad.m_dblLastSignWndY = dblY;
        if constexpr (Pad::row.model.hasFingerprintSensor) {
            pad.m_internals.mergeCache.segmentDrawn(MergeCache::boxOf(from, {dblX, dblY}, width));
            pad.MergeSignCanvasAndFPCanvas();
        }
    }
    requestRepaint(pad);
    KV_LOG(key, "<%ld>-leave !");
}

/// Fills all canvases of the instance with white. Their sizes stay.
template <class Pad>
void clear(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "ClearSignCanvas()"};
    KV_LOG(key, "<%ld>-Enter...");
    const MutexLock locked(pad.m_mutexUpdateCanvas);
    {
        const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
        if constexpr (Pad::row.model.hasFingerprintSensor) {
            shared::set(pad.m_nCurrentFPRawDataWithBestScore, 0);
            pad.m_FPOnlyCanvas.fill(Qt::white);
            pad.m_SignCanvas.fill(Qt::white);
        }
        pad.m_canvas.fill(Qt::white);
        owedmerge::forget(pad);
    }
    contained::run([&pad] { requestRepaint(pad); }); // what else is to be cleared must be
    KV_LOG(key, "<%ld>-leave !");
}

} // namespace strokes

#endif
