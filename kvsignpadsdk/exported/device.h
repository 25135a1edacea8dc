/// @file
/// The exported functions about the pad itself, written once for all families: screen, identifiers, pen settings, keys.
#ifndef EXPORTEDDEVICE_H
#define EXPORTEDDEVICE_H

#include "frame.h"

namespace exported {

template <class Family>
int OpenLCD(int nDeviceType, bool bOn)
{
    static constexpr logging::Key key{Family::prefix, "OpenLCD()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, bOn=%d", nDeviceType, bOn);
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.OpenDeviceLCD(bOn); });
}

template <class Family>
int Clear(int nDeviceType)
{
    static constexpr logging::Key key{Family::prefix, "Clear()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d", nDeviceType);
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.ClearDeviceContent(); });
}

template <class Family>
int GetHWPenID(int nDeviceType, char *pPenID, int nMaxCount)
{
    static constexpr logging::Key key{Family::prefix, "GetHWPenID()"};
    KV_LOG(
        key, "<%ld>-Enter, nDeviceType=%d, pPenID=%lx, nMaxCount=%d", nDeviceType, logging::address(pPenID), nMaxCount);
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.GetDevicePenID(pPenID, nMaxCount); });
}

template <class Family>
int GetHWPadID(int nDeviceType, char *pPadID, int nMaxCount)
{
    static constexpr logging::Key key{Family::prefix, "GetHWPadID()"};
    KV_LOG(
        key, "<%ld>-Enter, nDeviceType=%d, pPadID=%lx, nMaxCount=%d", nDeviceType, logging::address(pPadID), nMaxCount);
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.GetDevicePadID(pPadID, nMaxCount); });
}

template <class Family>
int GetHWVersion(int nDeviceType, char *pVersion, int nMaxCount)
{
    static constexpr logging::Key key{Family::prefix, "GetHWVersion()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, pVersion=%lx, nMaxCount=%d", nDeviceType, logging::address(pVersion),
        nMaxCount);
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.GetDevicePartsVersion(pVersion, nMaxCount); });
}

template <class Family>
int DisplayHWVersion(int nDeviceType, bool bOn)
{
    static constexpr logging::Key key{Family::prefix, "DisplayHWVersion()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, bOn=%d", nDeviceType, bOn);
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.ShowVersionInfoOnDevice(bOn); });
}

template <class Family>
int GetDeviceInfo(int nDeviceType, int nIndex, void *pOutput)
{
    static constexpr logging::Key key{Family::prefix, "GetDeviceInfo()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, nIndex=%d, pOutput=%lx", nDeviceType, nIndex, logging::address(pOutput));
    if (!isOurs<Family>(key, nDeviceType, "ARI_INVALID_PARAMETERS"))
        return ARI_INVALID_PARAMETERS;
    if (nIndex < DIID_GET_STATUS || nIndex > DIID_GET_DRV_VER || pOutput == nullptr) {
        KV_LOG(key,
            "<%ld>-leave with ARI_INVALID_PARAMETERS due to (nIndex < DIID_GET_STATUS) || (nIndex > DIID_GET_DRV_VER) || (pOutput == nullptr) !");
        return ARI_INVALID_PARAMETERS;
    }
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.GetDeviceInfo(nIndex, pOutput); });
}

template <class Family>
int SetPenStyle(int nDeviceType, bool bPressureOn)
{
    static constexpr logging::Key key{Family::prefix, "SetPenStyle()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, bPressureOn=%d", nDeviceType, bPressureOn);
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.SetDevicePenStyle(bPressureOn); });
}

template <class Family>
int SetPenWidth(int nDeviceType, int nPenWidth)
{
    static constexpr logging::Key key{Family::prefix, "SetPenWidth()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, nPenWidth=%d", nDeviceType, nPenWidth);
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.SetDevicePenWidth(nPenWidth); });
}

template <class Family>
int SetPenColor(int nDeviceType, int nR, int nG, int nB)
{
    static constexpr logging::Key key{Family::prefix, "SetPenColor()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, nR=%d, nG=%d, nB=%d", nDeviceType, nR, nG, nB);
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.SetDevicePenColor(nR, nG, nB); });
}

template <class Family>
int SignPadEventCallback(int nDeviceType, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback)
{
    static constexpr logging::Key key{Family::prefix, "SignPadEventCallback()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, pfnSignPadEventCallback=%lx", nDeviceType,
        logging::address(pfnSignPadEventCallback));
    return answer<Family>(
        key, nDeviceType, [=](auto &pad) { return pad.SetSignPadEventCallback(pfnSignPadEventCallback); });
}

template <class Family>
int GetDeviceConfirmOrCancelKeyStatus(int nDeviceType)
{
    static constexpr logging::Key key{Family::prefix, "GetDeviceConfirmOrCancelKeyStatus()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d", nDeviceType);
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.GetDeviceConfirmOrCancelKeyStatus(); });
}

} // namespace exported

#endif
