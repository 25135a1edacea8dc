/// @file
/// The places that a fingerprint instance gives its fingerprint: making, updating, clearing and freeing them.
#ifndef FINGERPRINTPLACEMENT_H
#define FINGERPRINTPLACEMENT_H

#include "LogFileUtil.h"
#include "contained.h"
#include "cs310xfpwidget.h"
#include "fingerprint.h"
#include "fingerprinthost.h"
#include "padmodels.h"
#include "sharedfields.h"
#include "widgetthread.h"

#include <QImage>

#include <memory>
#include <mutex>
#include <utility>

namespace fingerprintplacement {

/// Visits the newest place, widget or canvas; false when there is none.
template <class Pad, class Visit>
bool withHost(Pad &pad, Visit visit)
{
    if (pad.m_pNewFPWidget != nullptr)
        visit(*pad.m_pNewFPWidget);
    else if (pad.m_internals.canvas != nullptr)
        visit(*pad.m_internals.canvas);
    else
        return false;
    return true;
}

template <class Pad>
QImage layer(Pad &pad)
{
    const std::lock_guard<std::mutex> reading(pad.m_internals.pixelsLock);
    return pad.m_FPOnlyCanvas.copy();
}

/// The caller holds pixelsLock.
template <class Pad>
void updateHost(Pad &pad, const QImage &layer)
{
    withHost(pad, [&](auto &host) { host.UpdateFPImage(layer); });
}

template <class Pad>
void clearHost(Pad &pad)
{
    const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
    withHost(pad, [](auto &host) { host.Clear(); });
}

/// A new widget becomes the instance's newest place; it leaves the instance when its parent destroys it.
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

template <class FPHost>
void end(FPHost &host)
{
    contained::run([&host] {
        host.Clear();
        host.Shutdown();
    });
}

/// Ends the newest place. Widgets that it replaced stay in their windows, with their picture; headless ones, which
/// nobody else can free, are freed.
template <class Pad>
void releaseHosts(Pad &pad)
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
    else if (newest != nullptr)
        widgetthread::hideAndDeleteLater(*newest);
}

/// The newest place's picture as text; null without a place.
template <class Pad>
char *encodeHost(Pad &pad, int nImageTypeID, bool bFPImageOnly)
{
    char *text = nullptr;
    const std::lock_guard<std::mutex> staying(pad.m_internals.pixelsLock);
    withHost(pad, [&](auto &host) {
        text = host.EncodeBase64SignImage(shared::get(pad.m_bClipImage), shared::get(pad.m_nSaveImageClipMarginX),
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
