/// @file
/// The frames of the exported functions that one family alone has: live push, office canvas, fingerprint.
#ifndef EXPORTEDEXTRAS_H
#define EXPORTEDEXTRAS_H

#include "outputs.h"

namespace exported {

inline bool isPushType(int nImageTypeID)
{
    return nImageTypeID == EBITI_JPEG || nImageTypeID == EBITI_PNG;
}

template <class Family>
bool SetRealTimeSignBase64DataCallback(
    int nDeviceType, int nType, SIGNPAD_SIGN_BASE64_DATA_CALLBACK pfnSignBase64DataCallback)
{
    static constexpr logging::Key key{Family::prefix, "SetRealTimeSignBase64DataCallback()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, nType=%d, pfnSignBase64DataCallback=%lx", nDeviceType, nType,
        logging::address(pfnSignBase64DataCallback));
    if (nDeviceType != Family::deviceType || pfnSignBase64DataCallback == nullptr) {
        KV_LOG(key, "<%ld>-leave false due to (nDeviceType != %s) || (pfnSignBase64DataCallback == nullptr) !",
            Family::deviceName);
        return false;
    }
    if (!isPushType(nType)) {
        KV_LOG(key, "<%ld>-leave false due to (nType != EBITI_JPEG) && (nImageTypeID != EBITI_PNG) !");
        return false;
    }
    const bool bRet = forward<Family>(
        false, [=](auto &pad) { return pad.SetRealTimeSignBase64DataCallback(nType, pfnSignBase64DataCallback); });
    KV_LOG(key, "<%ld>-leave with bRet=%d !", bRet);
    return bRet;
}

template <class Family>
bool InitialWPSSignCanvas(int nDeviceType, int nWidth, int nHeight)
{
    static constexpr logging::Key key{Family::prefix, "InitialWPSSignCanvas()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, nWidth=%d, nHeight=%d", nDeviceType, nWidth, nHeight);
    if (nDeviceType != Family::deviceType) {
        KV_LOG(key, "<%ld>-leave false due to (nDeviceType != %s) !", Family::deviceName);
        return false;
    }
    if (nWidth == 0 || nHeight == 0) {
        KV_LOG(key, "<%ld>-leave false due to (nWidth == 0) || (nHeight == 0) !");
        return false;
    }
    const bool bRet =
        forwardHeadless<Family>(false, [=](auto &pad) { return pad.InitialWPSSignCanvas(nWidth, nHeight); });
    KV_LOG(key, "<%ld>-leave with bRet=%d !", bRet);
    return bRet;
}

template <class Family>
char *WPSBase64Encode(int nDeviceType, int nImageTypeID)
{
    static constexpr logging::Key key{Family::prefix, "WPSBase64Encode()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, nImageTypeID=%d", nDeviceType, nImageTypeID);
    if (!isOurs<Family>(key, nDeviceType, "nullptr"))
        return nullptr;
    if (!isPushType(nImageTypeID)) {
        KV_LOG(key, "<%ld>-leave nullptr due to (nType != EBITI_JPEG) && (nImageTypeID != EBITI_PNG) !");
        return nullptr;
    }
    char *pEncodeBase64Image = forwardHeadless<Family>(
        static_cast<char *>(nullptr), [=](auto &pad) { return pad.WPSBase64Encode(nImageTypeID); });
    KV_LOG(key, "<%ld>-leave with pEncodeBase64Image=%lx !", logging::address(pEncodeBase64Image));
    return pEncodeBase64Image;
}

template <class Family>
void WPSBase64EncodeFree(int nDeviceType, char *pEncodedData)
{
    static constexpr logging::Key key{Family::prefix, "WPSBase64EncodeFree()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, pEncodedData=%lx", nDeviceType, logging::address(pEncodedData));
    if (!isOurs<Family>(key, nDeviceType))
        return;
    forwardHeadless<Family>(0, [=](auto &pad) {
        pad.WPSBase64EncodeFree(pEncodedData);
        return 0;
    });
    KV_LOG(key, "<%ld>-leave !");
}

template <class Family>
int SetDisplayedFPImageAt(int nDeviceType, QWidget *pParentWidget, int nCanvasWidth, int nCanvasHeight, int nFPLeft,
    int nFPTop, int nFPWidth, int nFPHeight)
{
    static constexpr logging::Key key{Family::prefix, "SetDisplayedFPImageAt()"};
    KV_LOG(key,
        "<%ld>-Enter, nDeviceType=%d, pParentWidget=%lx, nCanvasWidth=%d, nCanvasHeight=%d, nFPLeft=%d, nFPTop=%d, nFPWidth=%d, nFPHeight=%d",
        nDeviceType, logging::address(pParentWidget), nCanvasWidth, nCanvasHeight, nFPLeft, nFPTop, nFPWidth,
        nFPHeight);
    return answer<Family>(key, nDeviceType, [=](auto &pad) {
        if constexpr (std::decay_t<decltype(pad)>::row.host == Host::Headless)
            return pad.SetDisplayedFPImageAt(nCanvasWidth, nCanvasHeight, nFPLeft, nFPTop, nFPWidth, nFPHeight);
        else
            return pad.SetDisplayedFPImageAt(pParentWidget, nFPLeft, nFPTop, nFPWidth, nFPHeight);
    });
}

template <class Family>
char *GetFPImageBase64Data(int nDeviceType, int nImageTypeID, bool bFPImageOnly)
{
    static constexpr logging::Key key{Family::prefix, "GetFPImageBase64Data()"};
    KV_LOG(
        key, "<%ld>-Enter, nDeviceType=%d, nImageTypeID=%d, bFPImageOnly=%d", nDeviceType, nImageTypeID, bFPImageOnly);
    if (!isOurs<Family>(key, nDeviceType, "nullptr"))
        return nullptr;
    if (nImageTypeID < EBITI_BITMAP || nImageTypeID > EBITI_PNG) {
        KV_LOG(key, "<%ld>-leave with nullptr due to (nImageTypeID < EBITI_BITMAP) || (nImageTypeID > EBITI_PNG) !");
        return nullptr;
    }
    return text<Family>(key, [=](auto &pad) { return pad.GetFPImageBase64Data(nImageTypeID, bFPImageOnly); });
}

template <class Family>
void FreeFPImageBase64Data(int nDeviceType, char *pFPImageBase64Data)
{
    static constexpr logging::Key key{Family::prefix, "FreeFPImageBase64Data()"};
    KV_LOG(
        key, "<%ld>-Enter, nDeviceType=%d, pFPImageBase64Data=%lx", nDeviceType, logging::address(pFPImageBase64Data));
    release<Family>(key, nDeviceType, [=](auto &pad) { pad.FreeFPImageBase64Data(pFPImageBase64Data); });
}

} // namespace exported

#endif
