/// @file
/// A place of its own for the fingerprint: what the fingerprint widget does, and the same without a widget, for
/// processes without a QApplication.
#ifndef FINGERPRINTPLACE_H
#define FINGERPRINTPLACE_H

#include "LogFileUtil.h"
#include "canvashost.h"
#include "fastways/base64text.h"
#include "fingerprint.h"
#include "imagetexts.h"
#include "inkbounds.h"

#include <QImage>
#include <QRect>

#include <mutex>

/// What the shared templates read of a place's row.
struct FingerprintPlaceRow
{
    const char *scope;
};

/// Replaces a CS310XFPWidget without a parent, with the same fields, pictures and log lines.
struct FingerprintCanvas
{
    static constexpr FingerprintPlaceRow row{"CS310XFPWidget::"};

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

namespace fingerprintplace {

/// Makes both pictures of a new place white, and the canvas this size.
template <class Place>
void begin(Place &place, const QSize &size)
{
    canvashost::clearCanvas(place.m_canvas, size.width(), size.height());
    canvashost::clearCanvas(place.m_FPOnlyCanvas, kFingerprintWidth, kFingerprintHeight);
}

/// The rectangle at this position, of this size. Corners that overflow an int are clamped.
QRect rectangle(int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight);

/// ARI_SUCCESS when both corners lie inside the area, else ARI_INVALID_PARAMETERS with its log line.
int checkInside(const logging::Key &key, const QRect &rectangle, const QRect &area);

/// Places the fingerprint without changing the place's size. The caller has logged its arguments.
template <class Place>
int placeAt(Place &place, const logging::Key &key, const QRect &rectangle, const QRect &area)
{
    {
        const std::lock_guard<std::mutex> writing(place.pixelsLock);
        place.m_NewFPRect = rectangle;
    }
    const int nResult = checkInside(key, rectangle, area);
    if (nResult == ARI_SUCCESS)
        KV_LOG(key, "<%ld>-leave with ARI_SUCCESS...");
    return nResult;
}

/// Places it on a new white canvas of this size.
template <class Place>
int placeOnCanvas(
    Place &place, int nCanvasWidth, int nCanvasHeight, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight)
{
    static constexpr logging::Key key{Place::row.scope, "SetDisplayedFPImageAt()"};
    KV_LOG(key, "<%ld>-Enter, nCanvasWidth=%d, nCanvasHeight=%d, nFPLeft=%d, nFPTop=%d, nFPWidth=%d, nFPHeight=%d",
        nCanvasWidth, nCanvasHeight, nFPLeft, nFPTop, nFPWidth, nFPHeight);
    const int nResult = placeAt(
        place, key, rectangle(nFPLeft, nFPTop, nFPWidth, nFPHeight), rectangle(0, 0, nCanvasWidth, nCanvasHeight));
    if (nResult == ARI_SUCCESS) {
        const std::lock_guard<std::mutex> writing(place.pixelsLock);
        begin(place, {nCanvasWidth, nCanvasHeight});
    }
    return nResult;
}

/// Paints the layer's fingerprint, scaled, over the rectangle of the canvas.
void paintInto(QImage &canvas, const QImage &layer, const QRect &rectangle);

template <class Place>
void repaintIfVisible(Place &place, const logging::Key &key)
{
    if (place.isVisible()) {
        KV_LOG(key, "<%ld>-b4 call update()...");
        place.requestRepaint();
    }
}

template <class Place>
void updateImage(Place &place, const QImage &layer)
{
    static constexpr logging::Key key{Place::row.scope, "UpdateFPImage()"};
    KV_LOG(key, "<%ld>-Enter...");
    {
        const std::lock_guard<std::mutex> writing(place.pixelsLock);
        place.m_FPOnlyCanvas = layer;
        paintInto(place.m_canvas, place.m_FPOnlyCanvas, place.m_NewFPRect);
    }
    repaintIfVisible(place, key);
    KV_LOG(key, "<%ld>-leave !");
}

template <class Place>
void clear(Place &place)
{
    static constexpr logging::Key key{Place::row.scope, "Clear()"};
    KV_LOG(key, "<%ld>-Enter...");
    {
        const std::lock_guard<std::mutex> writing(place.pixelsLock);
        place.m_canvas.fill(Qt::white);
        place.m_FPOnlyCanvas.fill(Qt::white);
    }
    repaintIfVisible(place, key);
    KV_LOG(key, "<%ld>-leave !");
}

template <class Place>
void shutdown(Place &place)
{
    static constexpr logging::Key key{Place::row.scope, "Shutdown()"};
    KV_LOG(key, "<%ld>-Enter...");
    place.Clear();
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

/// @throws std::bad_alloc
template <class Place>
QImage chosen(Place &place)
{
    const QImage canvas = [&place] {
        const std::lock_guard<std::mutex> reading(place.pixelsLock);
        return inkbounds::partInside(place.m_canvas, {});
    }();
    if (place.m_bClipImage)
        return inkbounds::partInside(canvas, inkbounds::clipRect(place, canvas));
    return place.m_bFPImageBase64DataOnly ? inkbounds::partInside(canvas, place.m_NewFPRect) : canvas;
}

template <class Place>
char *imageText(Place &place, const Wanted &wanted)
{
    static constexpr logging::Key key{Place::row.scope, "EncodeBase64SignImage()"};
    KV_LOG(key, "<%ld>-Enter, bClipImage=%d, nClipMarginX=%d, nClipMarginY=%d, bFPImageOnly=%d, nImageTypeID=%d",
        wanted.clipImage, wanted.clipMarginX, wanted.clipMarginY, wanted.fingerprintOnly, wanted.imageTypeID);
    place.m_bClipImage = wanted.clipImage;
    place.m_nSaveImageClipMarginX = wanted.clipMarginX;
    place.m_nSaveImageClipMarginY = wanted.clipMarginY;
    place.m_bFPImageBase64DataOnly = wanted.fingerprintOnly;
    char *pEncodeBase64Image =
        base64text::newTextOf([&] { return imagetexts::fileOf(chosen(place), wanted.imageTypeID, true); });
    KV_LOG(key, "<%ld>-leave with pEncodeBase64Image=%lx !", logging::address(pEncodeBase64Image));
    return pEncodeBase64Image;
}

} // namespace fingerprintplace

#endif
