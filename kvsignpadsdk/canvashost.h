/// @file
/// The canvas of an instance: its making, and for widgets resizing, painting and the mouse.
#ifndef CANVASHOST_H
#define CANVASHOST_H

#include "LogFileUtil.h"
#include "canvaslock.h"
#include "modelrules.h"
#include "padmodels.h"
#include "sharedfields.h"
#include "signmapping.h"
#include "strokes.h"

#include <QImage>
#include <QMouseEvent>
#include <QWidget>

#include <mutex>

namespace canvashost {

/// A new white ARGB32 image of the size in place of the given one; a null image where none can be had.
void clearCanvas(QImage &image, int width, int height);

/// A white image of the size with the old one at its top left, cut where the new one is smaller.
QImage grown(const QImage &old, int width, int height);

/// Shows the whole canvas at the widget's top left. Call it in the paint handler, with the canvas locked. A canvas that
/// is known to be opaque is shown without looking at its alpha.
void show(QWidget &widget, const QImage &canvas, bool opaque = false);

/// Whether Qt may leave out painting what is behind the widget, because the canvas covers all of it. A change to what
/// shows through paints the widget again.
void coverWhatIsBehind(QWidget &widget, bool covers);

template <class Pad>
void fillContext(Pad &pad, int width, int height)
{
    const ModelRow &model = Pad::row.model;
    signmapping::fill(pad.m_SignContext, model, width, height,
        pressureRatio(model, shared::get(pad.m_nSignWidthLevel), shared::get(pad.m_nMaxPressureValue)));
}

template <class Pad>
void clearAll(Pad &pad, int width, int height)
{
    const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
    pad.clearCanvas(pad.m_canvas, width, height);
    if constexpr (Pad::row.model.hasFingerprintSensor) {
        pad.clearCanvas(pad.m_SignCanvas, width, height);
        pad.clearCanvas(pad.m_FPOnlyCanvas, width, height);
    }
}

/// Second half of a constructor: canvases, display thread, log.
template <class Pad>
void begin(Pad &pad, int width, int height)
{
    static constexpr logging::Key key{Pad::row.scope, Pad::row.constructor};
    const CanvasLock locked(pad.m_mutexUpdateCanvas);
    clearAll(pad, width, height);
    if constexpr (Pad::row.model.hasFingerprintSensor) {
        pad.startDisplayThread(key);
        KV_LOG(key, "<%ld>-width=%d, height=%d, m_pShowFPImageOnDeviceThread=%lx", width, height,
            logging::address(pad.m_pShowFPImageOnDeviceThread));
    } else {
        KV_LOG(key, "<%ld>-width=%d, height=%d", width, height);
    }
    KV_LOG(key, "<%ld>-leave !");
}

/// Constructor of a widget host. The context stays zero until the first resize: packets map to (0, 0) before it.
template <class Pad>
void beginWidget(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, Pad::row.constructor};
    KV_LOG(key, "<%ld>-Enter...");
    begin(pad, pad.width(), pad.height());
}

/// Constructor of a headless host.
template <class Pad>
void beginHeadless(Pad &pad, int nWidth, int nHeight)
{
    static constexpr logging::Key key{Pad::row.scope, Pad::row.constructor};
    KV_LOG(key, "<%ld>-Enter, nWidth=%d, nHeight=%d", nWidth, nHeight);
    fillContext(pad, nWidth, nHeight);
    begin(pad, nWidth, nHeight);
}

/// The shown canvas keeps its picture at the top left; the layers of a fingerprint pad start empty.
template <class Pad>
void resize(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "resizeEvent()"};
    KV_LOG(key, "<%ld>-Enter...");
    const int width = pad.width();
    const int height = pad.height();
    fillContext(pad, width, height);
    const CanvasLock locked(pad.m_mutexUpdateCanvas);
    const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
    pad.m_internals.brush.release();
    pad.m_canvas = grown(pad.m_canvas, width, height);
    if constexpr (Pad::row.model.hasFingerprintSensor) {
        pad.clearCanvas(pad.m_SignCanvas, width, height);
        pad.clearCanvas(pad.m_FPOnlyCanvas, kFingerprintWidth, kFingerprintHeight);
    }
    coverWhatIsBehind(pad, !pad.m_canvas.isNull());
    pad.update();
    KV_LOG(key, "<%ld>-leave with width=%d, height=%d !", width, height);
}

/// Paints the widget; `paintBase` lets the base class paint first.
template <class Pad, class PaintBase>
void paint(Pad &pad, PaintBase paintBase)
{
    static constexpr logging::Key key{Pad::row.scope, "paintEvent()"};
    KV_LOG_INSIDE_THREAD(key, "<%ld>-Enter...");
    pad.m_internals.repaint.painted();
    pad.m_internals.repaint.setWaiting(true);
    const CanvasLock locked(pad.m_mutexUpdateCanvas);
    pad.m_internals.repaint.setWaiting(false);
    paintBase();
    const bool opaque = pad.m_internals.canvasOpacity.isOpaque(pad.m_canvas);
    show(pad, pad.m_canvas, opaque);
    if (!opaque)
        coverWhatIsBehind(pad, false);
    KV_LOG_INSIDE_THREAD(key, "<%ld>-leave !");
}

/// The mouse draws nothing: the left button only forces a repaint.
template <class Pad>
void mouse(Pad &pad, const QMouseEvent &event, const char *function)
{
    const logging::Key key{Pad::row.scope, function};
    KV_LOG(key, "<%ld>-Enter...");
    if (event.buttons() & Qt::LeftButton)
        pad.repaint();
    KV_LOG(key, "<%ld>-leave !");
}

} // namespace canvashost

#endif
