/// @file
/// A place of its own for the fingerprint: what the fingerprint widget does, and the same without a widget for
/// processes that have no application object.
#ifndef FINGERPRINTHOST_H
#define FINGERPRINTHOST_H

#include "LogFileUtil.h"
#include "canvashost.h"
#include "fastways/base64text.h"
#include "fingerprint.h"
#include "imagetexts.h"
#include "inkbounds.h"

#include <QImage>
#include <QRect>

#include <mutex>

/// The part of a row that the shared templates ask a fingerprint host for.
struct FingerprintHostRow
{
    const char *scope;
};

/// Stands in for a CS310XFPWidget without a parent: field by field, with its pictures and log lines.
struct FingerprintCanvas
{
    static constexpr FingerprintHostRow row{"CS310XFPWidget::"};

    QImage m_canvas;
    QImage m_FPOnlyCanvas;
    QRect m_NewFPRect;
    bool m_bClipImage = false;
    int m_nSaveImageClipMarginX = 0;
    int m_nSaveImageClipMarginY = 0;
    bool m_bFPImageBase64DataOnly = false;
    std::mutex pixelsLock;

    FingerprintCanvas();

    void UpdateFPImage(const QImage &image);
    void Clear();
    void Shutdown();
    char *EncodeBase64SignImage(
        bool bClipImage, int nClipMarginX, int nClipMarginY, bool bFPImageOnly, int nImageTypeID);

    bool isVisible() const { return false; }
    void requestRepaint() { }
};

namespace fingerprinthost {

/// Both pictures of a new host, white; the canvas in the size given.
template <class FPHost>
void begin(FPHost &host, const QSize &size)
{
    canvashost::clearCanvas(host.m_canvas, size.width(), size.height());
    canvashost::clearCanvas(host.m_FPOnlyCanvas, kFingerprintWidth, kFingerprintHeight);
}

/// The rectangle by its corners; corners beyond what int holds stay at its end.
QRect rectangle(int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight);

/// ARI_SUCCESS when both corners lie inside the area, else ARI_INVALID_PARAMETERS with its log line.
int checkInside(const logging::Key &key, const QRect &rectangle, const QRect &area);

/// Places the fingerprint in a host that keeps its size; the caller has logged its arguments.
template <class FPHost>
int place(FPHost &host, const logging::Key &key, const QRect &rectangle, const QRect &area)
{
    {
        const std::lock_guard<std::mutex> writing(host.pixelsLock);
        host.m_NewFPRect = rectangle;
    }
    const int nResult = checkInside(key, rectangle, area);
    if (nResult == ARI_SUCCESS)
        KV_LOG(key, "<%ld>-leave with ARI_SUCCESS...");
    return nResult;
}

/// Places it on a canvas of the size, which starts white.
template <class FPHost>
int placeOnCanvas(
    FPHost &host, int nCanvasWidth, int nCanvasHeight, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight)
{
    static constexpr logging::Key key{FPHost::row.scope, "SetDisplayedFPImageAt()"};
    KV_LOG(key, "<%ld>-Enter, nCanvasWidth=%d, nCanvasHeight=%d, nFPLeft=%d, nFPTop=%d, nFPWidth=%d, nFPHeight=%d",
        nCanvasWidth, nCanvasHeight, nFPLeft, nFPTop, nFPWidth, nFPHeight);
    const int nResult =
        place(host, key, rectangle(nFPLeft, nFPTop, nFPWidth, nFPHeight), rectangle(0, 0, nCanvasWidth, nCanvasHeight));
    if (nResult == ARI_SUCCESS) {
        const std::lock_guard<std::mutex> writing(host.pixelsLock);
        begin(host, {nCanvasWidth, nCanvasHeight});
    }
    return nResult;
}

/// Paints the layer's fingerprint, scaled, over the rectangle of the canvas.
void paintInto(QImage &canvas, const QImage &layer, const QRect &rectangle);

template <class FPHost>
void repaintIfVisible(FPHost &host, const logging::Key &key)
{
    if (host.isVisible()) {
        KV_LOG(key, "<%ld>-b4 call update()...");
        host.requestRepaint();
    }
}

template <class FPHost>
void updateImage(FPHost &host, const QImage &layer)
{
    static constexpr logging::Key key{FPHost::row.scope, "UpdateFPImage()"};
    KV_LOG(key, "<%ld>-Enter...");
    {
        const std::lock_guard<std::mutex> writing(host.pixelsLock);
        host.m_FPOnlyCanvas = layer;
        paintInto(host.m_canvas, host.m_FPOnlyCanvas, host.m_NewFPRect);
    }
    repaintIfVisible(host, key);
    KV_LOG(key, "<%ld>-leave !");
}

template <class FPHost>
void clear(FPHost &host)
{
    static constexpr logging::Key key{FPHost::row.scope, "Clear()"};
    KV_LOG(key, "<%ld>-Enter...");
    {
        const std::lock_guard<std::mutex> writing(host.pixelsLock);
        host.m_canvas.fill(Qt::white);
        host.m_FPOnlyCanvas.fill(Qt::white);
    }
    repaintIfVisible(host, key);
    KV_LOG(key, "<%ld>-leave !");
}

template <class FPHost>
void shutdown(FPHost &host)
{
    static constexpr logging::Key key{FPHost::row.scope, "Shutdown()"};
    KV_LOG(key, "<%ld>-Enter...");
    host.Clear();
    KV_LOG(key, "<%ld>-leave !");
}

/// What the caller asks to be encoded.
struct Wanted
{
    bool clipImage;
    int clipMarginX;
    int clipMarginY;
    bool fingerprintOnly;
    int imageTypeID;
};

template <class FPHost>
QImage chosen(FPHost &host)
{
    const QImage canvas = [&host] {
        const std::lock_guard<std::mutex> reading(host.pixelsLock);
        return host.m_canvas.copy();
    }();
    if (host.m_bClipImage)
        return inkbounds::partInside(canvas, inkbounds::clipRect(host, canvas));
    return host.m_bFPImageBase64DataOnly ? inkbounds::partInside(canvas, host.m_NewFPRect) : canvas;
}

template <class FPHost>
char *encode(FPHost &host, const Wanted &wanted)
{
    static constexpr logging::Key key{FPHost::row.scope, "EncodeBase64SignImage()"};
    KV_LOG(key, "<%ld>-Enter, bClipImage=%d, nClipMarginX=%d, nClipMarginY=%d, bFPImageOnly=%d, nImageTypeID=%d",
        wanted.clipImage, wanted.clipMarginX, wanted.clipMarginY, wanted.fingerprintOnly, wanted.imageTypeID);
    host.m_bClipImage = wanted.clipImage;
    host.m_nSaveImageClipMarginX = wanted.clipMarginX;
    host.m_nSaveImageClipMarginY = wanted.clipMarginY;
    host.m_bFPImageBase64DataOnly = wanted.fingerprintOnly;
    char *pEncodeBase64Image =
        base64text::newTextOf([&] { return imagetexts::encoded(chosen(host), wanted.imageTypeID, true); });
    KV_LOG(key, "<%ld>-leave with pEncodeBase64Image=%lx !", logging::address(pEncodeBase64Image));
    return pEncodeBase64Image;
}

} // namespace fingerprinthost

#endif
