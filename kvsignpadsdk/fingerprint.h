/// @file
/// The fingerprint: taking in the best image, the pad's picture of it, and the merge with the signature.
#ifndef FINGERPRINT_H
#define FINGERPRINT_H

#include "LogFileUtil.h"
#include "contained.h"
#include "fastways/mergecache.h"
#include "mutexlock.h"
#include "owedmerge.h"
#include "padmodels.h"
#include "sharedfields.h"
#include "strokes.h"
#include "threadend.h"

#include <QImage>
#include <QRect>
#include <QRectF>
#include <QThread>

#include <cstring>
#include <mutex>
#include <new>
#include <utility>

namespace fingerprint {

constexpr int kPadWidth = 104; ///< of the pad's picture, two bytes a pixel
constexpr int kPadHeight = 144;
constexpr int kPadBytes = kPadWidth * kPadHeight * 2;

/// Mean grey level of the image, rounded down.
int threshold(const unsigned char *raw);

/// Draws the image at the layer's top left, cropped to the layer: red where darker than the threshold, else white.
void drawLayer(QImage &layer, const unsigned char *raw, int threshold);

/// Writes the pad's picture: the top-left pixel of each 2 by 2 block, red or white as 5-6-5 colours.
void drawPadPicture(unsigned char *picture, const unsigned char *raw, int threshold);

/// Where the fingerprint is drawn when the caller has chosen no place: centred, half as high as the canvas.
QRectF centred(int canvasWidth, int canvasHeight);

/// A rectangle by its inclusive corners, for painting.
QRectF targetOf(const QRect &rectangle);

/// Keeps the image if its score beats the best so far. Runs on the driver's thread. pucRawData holds 59904 bytes.
template <class Pad>
void takeIn(Pad &pad, unsigned char *pucRawData, int nDataLength, int nScore)
{
    if (!shared::get(pad.m_bDeviceConnected) || pucRawData == nullptr)
        return;
    static constexpr logging::Key key{Pad::row.scope, "RxS310XSignPadFPRawData()"};
    KV_LOG(key, "<%ld>-Enter, pucRawData=%lx, nDataLength=%d, nScore=%d", logging::address(pucRawData), nDataLength,
        nScore);
    if (nScore <= shared::get(pad.m_nCurrentFPRawDataWithBestScore))
        return;
    const int nThresholdValue = threshold(pucRawData);
    KV_LOG(key, "<%ld>nThresholdValue = %d", nThresholdValue);
    {
        // Score and layer under one lock: a clear at the same time must reset both or neither.
        const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
        shared::set(pad.m_nCurrentFPRawDataWithBestScore, nScore);
        drawLayer(pad.m_FPOnlyCanvas, pucRawData, nThresholdValue);
    }
    {
        const MutexLock locked(pad.m_mutexUpdateShowFPImageRawDataOnDevice);
        drawPadPicture(pad.m_ucShowFPImageRawDataOnDevice, pucRawData, nThresholdValue);
        pad.m_bNewFPImageRawDataOnDeviceAvailable = true;
    }
    KV_LOG(key, "<%ld>-leave !");
}

/// Copies a waiting picture for the display thread, so that sending it needs no lock.
template <class Pad>
void takeNewPicture(Pad &pad)
{
    const MutexLock locked(pad.m_mutexUpdateShowFPImageRawDataOnDevice);
    pad.m_bStartShowFPImageRawDataOnDevice = pad.m_bNewFPImageRawDataOnDeviceAvailable;
    if (pad.m_bNewFPImageRawDataOnDeviceAvailable) {
        std::memcpy(pad.m_ucCurrentFPImageRawDataOnDevice, pad.m_ucShowFPImageRawDataOnDevice, kPadBytes);
        pad.m_bNewFPImageRawDataOnDeviceAvailable = false;
    }
}

/// The display thread's merge. Without memory it is owed, and the thread's next pass tries again.
template <class Pad>
void mergeShown(Pad &pad)
{
    contained::run([&pad] {
        const MutexLock locked(pad.m_mutexUpdateCanvas);
        {
            const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
            pad.MergeSignCanvasAndFPCanvas();
        }
        strokes::requestRepaint(pad); // still under the lock, so that a resize sees a failure of this too
    });
}

/// Sends the copied picture to the pad. The merge into the canvas follows in the next pass.
template <class Pad>
void showPicture(Pad &pad)
{
    if (pad.m_bStartShowFPImageRawDataOnDevice) {
        if (pad.m_pfn_KVSPDAPI_ShowFPImageOnDevice != nullptr) {
            contained::run([&pad] {
                pad.m_pfn_KVSPDAPI_ShowFPImageOnDevice(
                    pad.m_ucCurrentFPImageRawDataOnDevice, kPadBytes, kPadWidth, kPadHeight, &pad.m_bGoToShutDown);
            });
            pad.m_bAlreadyShownFPImageRawDataOnDevice = true;
        }
    } else if (pad.m_bAlreadyShownFPImageRawDataOnDevice) {
        pad.m_bAlreadyShownFPImageRawDataOnDevice = false;
        if constexpr (Pad::row.has(LogsFingerprintMerge)) {
            static constexpr logging::Key key{Pad::row.scope, "ProcessShowFPImgaeRawDataOnDevice()"};
            KV_LOG(key, "<%ld>-b4 call MergeSignCanvasAndFPCanvas()...");
        }
        mergeShown(pad);
    } else if (owedmerge::isOwed(pad) && !contained::run([&pad] { owedmerge::makeUp(pad); })) {
        QThread::msleep(20); // else the locks and the log would belong to this thread until there is memory
    }
}

/// Where the merge draws the fingerprint. When `print` is null it draws none.
struct Placement
{
    const QImage *print = nullptr;
    QRectF target{0, 0, 0, 0};
    bool isPlaceCurrent = true; ///< false when memory was lacking for a place of its own
};

template <class Pad>
Placement placement(Pad &pad, const logging::Key &key)
{
    switch (pad.m_nNewFPProcessActionID) {
    case NFPPA_NONE: {
        KV_LOG(key, "<%ld>-m_nNewFPProcessActionID == NFPPA_NONE");
        const QRectF target = centred(pad.m_canvas.width(), pad.m_canvas.height());
        KV_LOG(key, "<%ld>-dblTargetFPHeight=%f, dblTargetFPWidth=%f", target.height(), target.width());
        KV_LOG(key, "<%ld>-dblTargetFPX=%f, dblTargetFPY=%f", target.left(), target.top());
        return {&pad.m_FPOnlyCanvas, target, true};
    }
    case NFPPA_SIGN_FP_SAME_WIDGET:
        KV_LOG(key, "<%ld>-m_nNewFPProcessActionID == NFPPA_SIGN_FP_SAME_WIDGET");
        return {&pad.m_FPOnlyCanvas, targetOf(pad.m_NewFPRect), true};
    case NFPPA_SIGN_FP_DIFFERENT_WIDGET:
        KV_LOG(key, "<%ld>-m_nNewFPProcessActionID == NFPPA_SIGN_FP_DIFFERENT_WIDGET");
        if (!contained::run([&pad] { pad.updateFingerprintPlace(); }))
            return {nullptr, {0, 0, 0, 0}, false}; // the canvas gets its ink all the same
        return {};
    case NFPPA_FP_ON_CANVAS_FROM_JS:
        KV_LOG(key, "<%ld>-m_nNewFPProcessActionID == NFPPA_FP_ON_CANVAS_FROM_JS");
        return {};
    default:
        return {};
    }
}

/// The work of merge(). It throws where anything is left undone.
template <class Pad>
void mergeOnce(Pad &pad, const logging::Key &key)
{
    const Placement placed = placement(pad, key);
    KV_LOG(key, "<%ld>-rcTargetFP.left=%f, top=%f, width=%f, height=%f", placed.target.left(), placed.target.top(),
        placed.target.width(), placed.target.height());
    KV_LOG(key, "<%ld>-rcSourceFP.left=%f, top=%f, width=%f, height=%f", 0.0, 0.0, 1.0 * kFingerprintWidth,
        1.0 * kFingerprintHeight);
    const MergeCache::Parts parts{pad.m_canvas, pad.m_SignCanvas, placed.print, placed.target};
    // While a merge is owed, other segments may be missing too.
    if (!pad.m_internals.mergeCache.mergeSegment(parts) || owedmerge::isOwed(pad))
        pad.m_internals.mergeCache.mergeWhole(parts);
    if (!placed.isPlaceCurrent)
        throw std::bad_alloc();
}

/// Composes the shown canvas from ink and fingerprint. Takes no lock: the caller holds the canvas lock and pixelsLock.
/// @throws std::bad_alloc, and the merge is owed then
template <class Pad>
void merge(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "MergeSignCanvasAndFPCanvas()"};
    KV_LOG(key, "<%ld>-Enter...");
    owedmerge::orOwed(pad, [&] { mergeOnce(pad, key); });
    owedmerge::forget(pad);
    KV_LOG(key, "<%ld>-leave !");
}

/// Ends the display thread: the flag stops its loop, and the driver aborts a transfer when it sees it.
template <class Pad>
void stopDisplay(Pad &pad, const logging::Key &key)
{
    if (pad.m_pShowFPImageOnDeviceThread == nullptr)
        return;
    if (!pad.m_internals.isOfThisProcess()) { // a forked child has the object but not the thread
        threadend::abandoned(std::exchange(pad.m_pShowFPImageOnDeviceThread, nullptr));
        return;
    }
    KV_LOG(key, "<%ld>-b4 call m_pShowFPImageOnDeviceThread->quit()...");
    shared::set(pad.m_bGoToShutDown, true);
    pad.m_pShowFPImageOnDeviceThread->quit();
    KV_LOG(key, "<%ld>-b4 call m_pShowFPImageOnDeviceThread->wait()...");
    pad.m_pShowFPImageOnDeviceThread->wait();
    threadend::awaited(&pad.m_bGoToShutDown);
    delete pad.m_pShowFPImageOnDeviceThread;
    pad.m_pShowFPImageOnDeviceThread = nullptr;
    KV_LOG(key, "<%ld>-after call m_pShowFPImageOnDeviceThread = nullptr...");
}

/// Body of both display threads. It polls without a pause until shutdown; that is intended.
template <class Pad>
void display(Pad &pad, const logging::Key &key)
{
    KV_LOG_INSIDE_THREAD(key, "<%ld>-enter");
    while (!pad.AreWeGoingToShutDown()) {
        pad.CheckIfAnyNewFPImageRawDataOnDeviceAvailable();
        pad.ProcessShowFPImgaeRawDataOnDevice();
    }
    KV_LOG_INSIDE_THREAD(key, "<%ld>-Leave !");
    threadend::reached(&pad.m_bGoToShutDown);
}

} // namespace fingerprint

#endif
