/// @file
/// The places where an instance shows its fingerprint: creating, updating, clearing and freeing them.
#ifndef FINGERPRINTPLACEMENT_H
#define FINGERPRINTPLACEMENT_H

#include "LogFileUtil.h"
#include "contained.h"
#include "cs310xfpwidget.h"
#include "fingerprint.h"
#include "fingerprintplace.h"
#include "inkbounds.h"
#include "owedmerge.h"
#include "padmodels.h"
#include "sharedfields.h"
#include "widgetthread.h"

#include <QImage>

#include <memory>
#include <mutex>
#include <utility>

namespace fingerprintplacement {

/// Calls `visit` with the newest place, a widget or a canvas. Returns false when there is none.
template <class Pad, class Visit>
bool withPlace(Pad &pad, Visit visit)
{
    if (pad.m_pNewFPWidget != nullptr)
        visit(*pad.m_pNewFPWidget);
    else if (pad.m_internals.canvas != nullptr)
        visit(*pad.m_internals.canvas);
    else
        return false;
    return true;
}

/// @throws std::bad_alloc
template <class Pad>
QImage layer(Pad &pad)
{
    const std::lock_guard<std::mutex> reading(pad.m_internals.pixelsLock);
    return inkbounds::partInside(pad.m_FPOnlyCanvas, {});
}

/// Shows the layer in the newest place. The caller holds pixelsLock.
/// @throws std::bad_alloc
template <class Pad>
void updatePlace(Pad &pad)
{
    withPlace(pad, [&](auto &place) { place.UpdateFPImage(inkbounds::partInside(pad.m_FPOnlyCanvas, {})); });
}

template <class Pad>
void clearPlace(Pad &pad)
{
    const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
    if constexpr (Pad::row.host == Host::Widget)
        owedmerge::forget(pad); // it would bring the fingerprint back
    withPlace(pad, [](auto &place) { place.Clear(); });
}

/// Makes a new widget the instance's newest place. It unregisters itself when its parent destroys it.
template <class Pad>
CS310XFPWidget &addWidget(Pad &pad, QWidget *pParentWidget)
{
    auto *widget = new CS310XFPWidget(pParentWidget);
    const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
    pad.m_internals.widgets.push_back(widget);
    pad.m_internals.canvas.reset();
    widget->setOwner({&pad.m_internals.pixelsLock, &pad.m_internals.widgets, &pad.m_pNewFPWidget});
    pad.m_pNewFPWidget = widget;
    return *widget;
}

template <class Pad>
void setAction(Pad &pad, int nActionID)
{
    const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
    shared::set(pad.m_nNewFPProcessActionID, nActionID);
}

template <class Place>
void end(Place &place)
{
    contained::run([&place] {
        place.Clear();
        place.Shutdown();
    });
}

/// Ends the newest place. Widgets that it replaced stay in their windows and keep their picture; places without a
/// window are freed, because nobody else can. In a forked child the newest widget stays in its window too: both belong
/// to the process that forked it.
template <class Pad>
void releasePlaces(Pad &pad)
{
    std::vector<CS310XFPWidget *> widgets;
    CS310XFPWidget *newest = nullptr;
    std::unique_ptr<FingerprintCanvas> canvas;
    {
        const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
        widgets.swap(pad.m_internals.widgets);
        newest = std::exchange(pad.m_pNewFPWidget, nullptr);
        canvas = std::move(pad.m_internals.canvas);
    }
    for (CS310XFPWidget *widget : widgets)
        widget->setOwner({});
    if (newest != nullptr)
        end(*newest);
    if (canvas != nullptr)
        end(*canvas);
    if constexpr (Pad::row.host == Host::Headless)
        qDeleteAll(widgets);
    else if (newest != nullptr && pad.m_internals.isOfThisProcess())
        widgetthread::hideAndDeleteLater(*newest);
}

/// The newest place's picture as text; null without a place.
template <class Pad>
char *imageText(Pad &pad, int nImageTypeID, bool bFPImageOnly)
{
    // Without memory the text is empty: else it would lack the fingerprint, and nobody would know.
    const bool isCurrent = contained::run([&pad] {
        if constexpr (Pad::row.host == Host::Widget) {
            owedmerge::makeUp(pad);
        } else if (shared::get(pad.m_nCurrentFPRawDataWithBestScore) > 0) {
            // The merge does not update a headless place.
            const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
            updatePlace(pad);
        }
    });
    if (!isCurrent)
        return base64text::newText(QByteArray());
    char *text = nullptr;
    const std::lock_guard<std::mutex> staying(pad.m_internals.pixelsLock);
    withPlace(pad, [&](auto &place) {
        text = place.EncodeBase64SignImage(shared::get(pad.m_bClipImage), shared::get(pad.m_nSaveImageClipMarginX),
            shared::get(pad.m_nSaveImageClipMarginY), bFPImageOnly, nImageTypeID);
    });
    return text;
}

template <class Pad>
void freeText(Pad &, char *pFPImageBase64Data)
{
    static constexpr logging::Key key{Pad::row.scope, "FreeFPImageBase64Data()"};
    KV_LOG(key, "<%ld>-enter, pFPImageBase64Data=%lx", logging::address(pFPImageBase64Data));
    if (pFPImageBase64Data != nullptr) {
        delete[] pFPImageBase64Data;
        KV_LOG(key, "<%ld>-after call delete[] pFPImageBase64Data !");
    }
    KV_LOG(key, "<%ld>-leave !");
}

} // namespace fingerprintplacement

#endif
