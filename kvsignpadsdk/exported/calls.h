/// @file
/// The frames of all other exported functions, each once, template over the family.
#ifndef EXPORTEDCALLS_H
#define EXPORTEDCALLS_H

#include "frame.h"

namespace exported {

// --- frames by kind of result

/// Device type, instance, call, leave line, for functions that return int.
template <class Family, class Call>
int answer(const logging::Key &key, int nDeviceType, Call call, int withoutInstance = ARI_FAIL)
{
    if (!isOurs<Family>(key, nDeviceType, "ARI_INVALID_PARAMETERS"))
        return ARI_INVALID_PARAMETERS;
    const int nResult = forward<Family, int>(withoutInstance, call);
    KV_LOG(key, "<%ld>-leave with nResult=%d !", nResult);
    return nResult;
}

/// For functions that free a text.
template <class Family, class Call>
void release(const logging::Key &key, int nDeviceType, Call call)
{
    if (!isOurs<Family>(key, nDeviceType))
        return;
    forwardVoid<Family>(call);
    KV_LOG(key, "<%ld>-leave !");
}

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

template <class Family>
int GetTotalInkPointsNumber(int nDeviceType)
{
    static constexpr logging::Key key{Family::prefix, "GetTotalInkPointsNumber()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d", nDeviceType);
    if (!isOurs<Family>(key, nDeviceType, "ARI_INVALID_PARAMETERS"))
        return ARI_INVALID_PARAMETERS;
    const int nInkCount = forward<Family, int>(ARI_INK_EMPTY, [](auto &pad) { return pad.GetTotalInkPointsNumber(); });
    KV_LOG(key, "<%ld>-leave with nInkCount=%d !", nInkCount);
    return nInkCount;
}

/// The record is filled in place, although the parameter is declared const.
template <class Family>
int GetInkPointData(int nDeviceType, const INKPOINTDATA &currentInkPoint)
{
    static constexpr logging::Key key{Family::prefix, "GetInkPointData()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, currentInkPoint.nIndex=%d", nDeviceType, currentInkPoint.nIndex);
    return answer<Family>(
        key, nDeviceType, [&](auto &pad) { return pad.GetInkPointData(const_cast<INKPOINTDATA &>(currentInkPoint)); });
}

template <class Family>
char *GetInkPointDataTimeInfo(int nDeviceType, int nIndex)
{
    static constexpr logging::Key key{Family::prefix, "GetInkPointDataTimeInfo()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, nIndex=%d", nDeviceType, nIndex);
    if (!isOurs<Family>(key, nDeviceType, "nullptr"))
        return nullptr;
    char *pInkPointDataTimeInfo =
        forward<Family>(static_cast<char *>(nullptr), [=](auto &pad) { return pad.GetInkPointDataTimeInfo(nIndex); });
    KV_LOG(key, "<%ld>-leave with pInkPointDataTimeInfo=%lx !", logging::address(pInkPointDataTimeInfo));
    return pInkPointDataTimeInfo;
}

template <class Family>
void FreeInkPointDataTimeInfo(int nDeviceType, char *pInkPointDataTimeInfo)
{
    static constexpr logging::Key key{Family::prefix, "FreeInkPointDataTimeInfo()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, pInkPointDataTimeInfo=%lx", nDeviceType,
        logging::address(pInkPointDataTimeInfo));
    release<Family>(key, nDeviceType, [=](auto &pad) { pad.FreeInkPointDataTimeInfo(pInkPointDataTimeInfo); });
}

template <class Family>
int SetSaveClipImageMargin(int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY)
{
    static constexpr logging::Key key{Family::prefix, "SetSaveClipImageMargin()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, bClipImage=%d, nClipMarginX=%d, nClipMarginY=%d", nDeviceType, bClipImage,
        nClipMarginX, nClipMarginY);
    if (!isOurs<Family>(key, nDeviceType, "ARI_INVALID_PARAMETERS"))
        return ARI_INVALID_PARAMETERS;
    if (nClipMarginX < 0 || nClipMarginY < 0) {
        KV_LOG(key, "<%ld>-leave with ARI_INVALID_PARAMETERS due to (nClipMarginX < 0) || (nClipMarginY < 0) !");
        return ARI_INVALID_PARAMETERS;
    }
    return answer<Family>(key, nDeviceType,
        [=](auto &pad) { return pad.SetSaveClipImageMargin(bClipImage, nClipMarginX, nClipMarginY); });
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

} // namespace exported

#endif
