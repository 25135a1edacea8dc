/// @file
/// The canvas of an instance: creating it, and for widgets resizing, painting and the mouse.
#ifndef CANVASHOST_H
#define CANVASHOST_H

#include "LogFileUtil.h"
#include "contained.h"
#include "modelrules.h"
#include "mutexlock.h"
#include "owedmerge.h"
#include "padmodels.h"
#include "sharedfields.h"
#include "signmapping.h"
#include "strokes.h"

#include <QImage>
#include <QMouseEvent>
#include <QWidget>

#include <mutex>

namespace canvashost {

/// Replaces the image by a white ARGB32 one of this size, or by a null image when that is impossible.
void clearCanvas(QImage &image, int width, int height);

/// A white image of this size with the old one drawn at its top left, cropped to fit.
QImage grown(const QImage &old, int width, int height);

/// Paints the whole canvas at the widget's top left. Call it in the paint handler, with the canvas locked. With
/// `opaque` the canvas is copied instead of blended, which is faster.
void show(QWidget &widget, const QImage &canvas, bool opaque = false);

/// Tells Qt whether the canvas covers the whole widget; Qt then leaves out what is behind it. Repaints the widget when
/// it stops covering.
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
    const MutexLock locked(pad.m_mutexUpdateCanvas);
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

/// Constructor of a widget host. The context is filled by the first resize; until then packets map to (0, 0).
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

/// The shown canvas keeps its picture at the top left. The layers of a fingerprint pad become empty.
template <class Pad>
void resize(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "resizeEvent()"};
    KV_LOG(key, "<%ld>-Enter...");
    const int width = pad.width();
    const int height = pad.height();
    fillContext(pad, width, height);
    const MutexLock locked(pad.m_mutexUpdateCanvas);
    contained::run([&pad] { owedmerge::makeUpLocked(pad); });
    const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
    pad.m_internals.brush.release();
    pad.m_canvas = grown(pad.m_canvas, width, height);
    if constexpr (Pad::row.model.hasFingerprintSensor) {
        pad.clearCanvas(pad.m_SignCanvas, width, height);
        pad.clearCanvas(pad.m_FPOnlyCanvas, kFingerprintWidth, kFingerprintHeight);
        owedmerge::forget(pad); // the layers are empty: merging them would take away the picture
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
    const MutexLock locked(pad.m_mutexUpdateCanvas);
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
