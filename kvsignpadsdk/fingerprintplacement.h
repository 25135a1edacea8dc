/// @file
/// The places that a fingerprint instance gives its fingerprint: making, updating, clearing and freeing them.
#ifndef FINGERPRINTPLACEMENT_H
#define FINGERPRINTPLACEMENT_H

#include "LogFileUtil.h"
#include "cs310xfpwidget.h"
#include "fingerprint.h"
#include "fingerprinthost.h"
#include "padmodels.h"
#include "sharedfields.h"

#include <QImage>

#include <mutex>

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

/// Ends and frees every place, those that a later one replaced too.
template <class Pad>
void releaseHosts(Pad &pad)
{
    std::vector<CS310XFPWidget *> widgets;
    {
        const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
        widgets.swap(pad.m_internals.widgets);
        pad.m_pNewFPWidget = nullptr;
        pad.m_internals.canvas.reset();
    }
    for (CS310XFPWidget *widget : widgets) {
        widget->setOwner({});
        widget->Clear();
        widget->Shutdown();
        if constexpr (Pad::row.host == Host::Widget) {
            widget->hide();
            widget->deleteLater();
        } else {
            delete widget;
        }
    }
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
