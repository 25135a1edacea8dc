/// @file
/// The exported functions that turn the signature into files and texts, or read such a text back, written once for all
/// families.
#ifndef EXPORTEDIMAGES_H
#define EXPORTEDIMAGES_H

#include "frame.h"

namespace exported {

inline bool isTextType(int nImageTypeID)
{
    return (nImageTypeID >= EBITI_BITMAP && nImageTypeID <= EBITI_PNG) || nImageTypeID == EBITI_INK;
}

inline bool isPushType(int nImageTypeID)
{
    return nImageTypeID == EBITI_JPEG || nImageTypeID == EBITI_PNG;
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
int SaveDrawingImage(int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel)
{
    static constexpr logging::Key key{Family::prefix, "SaveDrawingImage()"};
    KV_LOG_WIDE(key, "<%ld>-Enter, nDeviceType=%d, nImageTypeID=%d, pImageFilePath=%x, nDPILevel=%d", nDeviceType,
        nImageTypeID, logging::shortAddress(pImageFilePath), nDPILevel);
    if (nDeviceType != Family::deviceType) {
        KV_LOG_WIDE(key, "<%ld>-leave with ARI_INVALID_PARAMETERS due to (nDeviceType != %s) !", Family::deviceName);
        return ARI_INVALID_PARAMETERS;
    }
    switch (nImageTypeID) {
    case ITI_BITMAP:
    case ITI_JPEG:
    case ITI_PNG:
    case ITI_PDF:
    case ITI_SVG:
        break;
    default:
        KV_LOG_WIDE(key, "<%ld>-leave with ARI_INVALID_PARAMETERS due to nImageTypeID out of range !");
        return ARI_INVALID_PARAMETERS;
    }
    const int nDPI = nDPILevel == IDLI_150DPI ? 150 : 300;
    const int nResult = forward<Family, int>(
        ARI_FAIL, ARI_INK_EMPTY, [=](auto &pad) { return pad.SaveDrawingImage(nImageTypeID, pImageFilePath, nDPI); });
    KV_LOG_WIDE(key, "<%ld>-leave with nResult=%d !", nResult);
    return nResult;
}

template <class Family>
char *Base64Encode(int nDeviceType, int nImageTypeID)
{
    static constexpr logging::Key key{Family::prefix, "Base64Encode()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, nImageTypeID=%d", nDeviceType, nImageTypeID);
    if (!isOurs<Family>(key, nDeviceType, "nullptr"))
        return nullptr;
    if (!isTextType(nImageTypeID)) {
        KV_LOG(key,
            "<%ld>-leave with nullptr due to (nImageTypeID < EBITI_BITMAP) || ((nImageTypeID > EBITI_PNG) && (nImageTypeID != EBITI_INK)) !");
        return nullptr;
    }
    return text<Family>(key, [=](auto &pad) { return pad.Base64Encode(nImageTypeID); });
}

template <class Family>
void Base64EncodeFree(int nDeviceType, char *pEncodedData)
{
    static constexpr logging::Key key{Family::prefix, "Base64EncodeFree()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, pEncodedData=%lx", nDeviceType, logging::address(pEncodedData));
    release<Family>(key, nDeviceType, [=](auto &pad) { pad.Base64EncodeFree(pEncodedData); });
}

template <class Family>
char *Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground)
{
    static constexpr logging::Key key{Family::prefix, "Base64EncodeEx()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, nImageTypeID=%d, bEnableTransparentBackground=%d", nDeviceType,
        nImageTypeID, bEnableTransparentBackground);
    if (!isOurs<Family>(key, nDeviceType, "nullptr"))
        return nullptr;
    if (!isTextType(nImageTypeID)) {
        KV_LOG(key,
            "<%ld>-leave with nullptr due to (nImageTypeID < EBITI_BITMAP) || ((nImageTypeID > EBITI_PNG) && (nImageTypeID != EBITI_INK)) !");
        return nullptr;
    }
    return text<Family>(key, [=](auto &pad) { return pad.Base64EncodeEx(nImageTypeID, bEnableTransparentBackground); });
}

template <class Family>
void Base64EncodeExFree(int nDeviceType, char *pEncodedData)
{
    static constexpr logging::Key key{Family::prefix, "Base64EncodeExFree()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, pEncodedData=%lx", nDeviceType, logging::address(pEncodedData));
    release<Family>(key, nDeviceType, [=](auto &pad) { pad.Base64EncodeExFree(pEncodedData); });
}

template <class Family>
char *GetSVGImageBase64Data(int nDeviceType)
{
    static constexpr logging::Key key{Family::prefix, "GetSVGImageBase64Data()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d", nDeviceType);
    if (!isOurs<Family>(key, nDeviceType, "nullptr"))
        return nullptr;
    return text<Family>(key, [](auto &pad) { return pad.GetSVGImageBase64Data(); });
}

template <class Family>
void FreeSVGImageBase64Data(int nDeviceType, char *pEncodedData)
{
    static constexpr logging::Key key{Family::prefix, "FreeSVGImageBase64Data()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, pEncodedData=%lx", nDeviceType, logging::address(pEncodedData));
    release<Family>(key, nDeviceType, [=](auto &pad) { pad.FreeSVGImageBase64Data(pEncodedData); });
}

template <class Family>
int Base64Decode(int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath)
{
    static constexpr logging::Key key{Family::prefix, "Base64Decode()"};
    KV_LOG_WIDE(key, "<%ld>-Enter, nDeviceType=%d, nImageTypeID=%d, pEncodedData=%lx, pImageFilePath=%x", nDeviceType,
        nImageTypeID, logging::address(pEncodedData), logging::shortAddress(pImageFilePath));
    if (nDeviceType != Family::deviceType) {
        KV_LOG_WIDE(key, "<%ld>-leave with ARI_INVALID_PARAMETERS due to (nDeviceType != %s) !", Family::deviceName);
        return ARI_INVALID_PARAMETERS;
    }
    if (!isTextType(nImageTypeID)) {
        KV_LOG_WIDE(key,
            "<%ld>-leave with ARI_INVALID_PARAMETERS due to (nImageTypeID < EBITI_BITMAP) || ((nImageTypeID > EBITI_PNG) && (nImageTypeID != EBITI_INK)) !");
        return ARI_INVALID_PARAMETERS;
    }
    if (pEncodedData == nullptr || *pEncodedData == '\0') {
        KV_LOG_WIDE(key, "<%ld>-leave with nullptr due to (pEncodedData : null or empty) !");
        return ARI_INVALID_PARAMETERS;
    }
    const int nResult = forward<Family, int>(ARI_FAIL, ARI_INK_EMPTY,
        [=](auto &pad) { return pad.Base64Decode(nImageTypeID, pEncodedData, pImageFilePath); });
    KV_LOG_WIDE(key, "<%ld>-leave with nResult=%d !", nResult);
    return nResult;
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

} // namespace exported

#endif
