/// @file
/// Questions to the pad, pen settings, and clearing.
#ifndef DEVICESETTINGS_H
#define DEVICESETTINGS_H

#include "LogFileUtil.h"
#include "inkpoints.h"
#include "modelrules.h"
#include "padmodels.h"
#include "padparts.h"
#include "sharedfields.h"
#include "signmapping.h"

#include <QColor>

#include <mutex>

namespace devicesettings {

struct State
{
    bool connected;
    int maxPressure;
};

/// Writes one item about the pad, or nothing for an unknown index.
void writeInfo(const ModelRow &model, const State &state, int nIndex, void *pOutput);

/// Passes a text query's buffer and size on to the driver, and returns its result with the leave line.
int askText(const logging::Key &key, int (*operation)(char *, int), char *pText, int nMaxCount);

template <class Pad>
int padId(Pad &pad, char *pPadID, int nMaxCount)
{
    static constexpr logging::Key key{Pad::row.scope, "GetDevicePadID()"};
    KV_LOG(key, "<%ld>-enter, pPadID=%lx, nMaxCount=%d", logging::address(pPadID), nMaxCount);
    return askText(key, pad.m_pfn_KVSPDAPI_GetDevicePadID, pPadID, nMaxCount);
}

template <class Pad>
int partsVersion(Pad &pad, char *pVersion, int nMaxCount)
{
    static constexpr logging::Key key{Pad::row.scope, "GetDevicePartsVersion()"};
    KV_LOG(key, "<%ld>-enter, pVersion=%lx, nMaxCount=%d", logging::address(pVersion), nMaxCount);
    return askText(key, pad.m_pfn_KVSPDAPI_GetDevicePartsVersion, pVersion, nMaxCount);
}

template <class Pad>
int penId(Pad &pad, char *pPenID, int nMaxCount)
{
    static constexpr logging::Key key{Pad::row.scope, "GetDevicePenID()"};
    KV_LOG(key, "<%ld>-enter, pPenID=%lx, nMaxCount=%d", logging::address(pPenID), nMaxCount);
    return askText(key, pad.m_pfn_KVSPDAPI_GetDevicePenID, pPenID, nMaxCount);
}

template <class Pad>
int secureId(Pad &pad, char *pSecureID, int nMaxCount)
{
    static constexpr logging::Key key{Pad::row.scope, "GetDeviceSecureID()"};
    KV_LOG(key, "<%ld>-enter, pSecureID=%lx, nMaxCount=%d", logging::address(pSecureID), nMaxCount);
    return askText(key, pad.m_pfn_KVSPDAPI_GetDeviceSecureID, pSecureID, nMaxCount);
}

template <class Pad>
int showVersion(Pad &pad, bool bOn)
{
    static constexpr logging::Key key{Pad::row.scope, "ShowVersionInfoOnDevice()"};
    KV_LOG(key, "<%ld>-enter, bOn=%d", bOn);
    const auto operation = pad.m_pfn_KVSPDAPI_ShowVersionInfoOnDevice;
    const int nResult = operation == nullptr ? ARI_FAIL : operation(bOn);
    KV_LOG(key, "<%ld>-leave with nResult=%d !", nResult);
    return nResult;
}

/// Switching the screen off empties the canvas too, whatever the driver answers.
template <class Pad>
int openLcd(Pad &pad, bool bOn)
{
    static constexpr logging::Key key{Pad::row.scope, "OpenDeviceLCD()"};
    KV_LOG(key, "<%ld>-enter, bOn=%d", bOn);
    int nResult = ARI_FAIL;
    if (pad.m_pfn_KVSPDAPI_OpenDeviceLCD != nullptr) {
        if (!bOn)
            pad.ClearSignCanvas();
        nResult = pad.m_pfn_KVSPDAPI_OpenDeviceLCD(bOn);
    }
    KV_LOG(key, "<%ld>-leave with nResult=%d !", nResult);
    return nResult;
}

/// On pads without a screen the driver's operation must be present for the setting to be taken, but is never called.
template <class Pad>
int setPenStyle(Pad &pad, bool bWithPressureValue)
{
    static constexpr logging::Key key{Pad::row.scope, "SetDevicePenStyle()"};
    KV_LOG(key, "<%ld>-enter, bWithPressureValue=%d", bWithPressureValue);
    int nResult = ARI_FAIL;
    if (pad.m_pfn_KVSPDAPI_SetDevicePenStyle != nullptr) {
        shared::set(pad.m_bWithPressureValue, bWithPressureValue);
        nResult = drawsInk(Pad::row.model) ? pad.m_pfn_KVSPDAPI_SetDevicePenStyle(bWithPressureValue) : ARI_SUCCESS;
    }
    KV_LOG(key, "<%ld>-leave with nResult=%d !", nResult);
    return nResult;
}

template <class Pad>
int setPenWidth(Pad &pad, int nPenWidth)
{
    static constexpr logging::Key key{Pad::row.scope, "SetDevicePenWidth()"};
    KV_LOG(key, "<%ld>-enter, nPenWidth=%d", nPenWidth);
    if (nPenWidth < 1 || nPenWidth > 10) {
        KV_LOG(key, "<%ld>-leave with ARI_INVALID_PARAMETERS since nPenWidth is out of range !");
        return ARI_INVALID_PARAMETERS;
    }
    shared::set(pad.m_nSignWidthLevel, nPenWidth);
    shared::set(pad.m_SignContext.dblSignPressureRatio,
        pressureRatio(Pad::row.model, nPenWidth, shared::get(pad.m_nMaxPressureValue)));
    KV_LOG(key, "<%ld>-leave with nResult=%d !", ARI_SUCCESS);
    return ARI_SUCCESS;
}

template <class Pad>
int setPenColor(Pad &pad, int nR, int nG, int nB)
{
    static constexpr logging::Key key{Pad::row.scope, "SetDevicePenColor"}; // without "()": existing logs have it so
    KV_LOG(key, "<%ld>-enter, nR=%d, nG=%d, nB=%d", nR, nG, nB);
    {
        const std::lock_guard<std::mutex> locked(pad.m_internals.colourLock);
        pad.m_drawColor.setRgb(nR, nG, nB);
    }
    KV_LOG(key, "<%ld>-leave with nResult=%d !", ARI_SUCCESS);
    return ARI_SUCCESS;
}

template <class Pad>
int info(Pad &pad, int nIndex, void *pOutput)
{
    static constexpr logging::Key key{Pad::row.scope, "GetDeviceInfo()"};
    KV_LOG(key, "<%ld>-enter, nIndex=%d, pOutput=%lx", nIndex, logging::address(pOutput));
    writeInfo(
        Pad::row.model, {shared::get(pad.m_bDeviceConnected), shared::get(pad.m_nMaxPressureValue)}, nIndex, pOutput);
    KV_LOG(key, "<%ld>-leave !");
    return ARI_SUCCESS;
}

/// A pad that has just cleared its own screen after a tap is not cleared again: only the mark is reset.
template <class Pad>
int clearPadScreen(Pad &pad, const logging::Key &key)
{
    if (__atomic_exchange_n(&padparts::tapMark(pad), false, __ATOMIC_ACQ_REL)) {
        if constexpr (Pad::row.tapMark == TapMark::ConfirmOrCancel)
            KV_LOG(key, "<%ld>-m_bPenDownOnDeviceConfirmOrCancelArea = false, only clear UI canvas !");
        else
            KV_LOG(key, "<%ld>-m_bPenDownOnCancelButton = false");
        return ARI_SUCCESS;
    }
    if constexpr (Pad::row.has(LogsScreenClear))
        KV_LOG(key, "<%ld>-b4 call m_pfn_KVSPDAPI_ClearDeviceContent()...");
    const int nResult = pad.m_pfn_KVSPDAPI_ClearDeviceContent();
    if constexpr (Pad::row.has(LogsScreenClear))
        KV_LOG(key, "<%ld>-after call m_pfn_KVSPDAPI_ClearDeviceContent()...");
    return nResult;
}

/// Empties pad, canvas and points, and switches clipping off. Without the driver's operation pad and canvas stay.
template <class Pad>
int clearContent(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "ClearDeviceContent()"};
    KV_LOG(key, "<%ld>-enter...");
    if constexpr (Pad::row.model.hasFingerprintSensor && Pad::row.has(ClearsFingerprintPlaceFirst))
        pad.clearFingerprintPlace();
    int nResult = ARI_FAIL;
    if (pad.m_pfn_KVSPDAPI_ClearDeviceContent != nullptr) {
        pad.ClearSignCanvas();
        nResult = clearPadScreen(pad, key);
    }
    shared::set(pad.m_bClipImage, false);
    inkpoints::clear(pad);
    if constexpr (Pad::row.model.hasFingerprintSensor && !Pad::row.has(ClearsFingerprintPlaceFirst))
        pad.clearFingerprintPlace();
    KV_LOG(key, "<%ld>-leave with nResult=%d !", nResult);
    return nResult;
}

} // namespace devicesettings

#endif
