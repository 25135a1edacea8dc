/// @file
/// The frames of the exported functions that hand out images, texts and decoded points, once for all families.
#ifndef EXPORTEDOUTPUTS_H
#define EXPORTEDOUTPUTS_H

#include "calls.h"

namespace exported {

/// Calls a member that makes a text, with the leave line under the name that the function gives its text.
template <class Family, class Call>
char *text(const logging::Key &key, Call call)
{
    char *pEncodeBase64Image = forward<Family>(static_cast<char *>(nullptr), call);
    KV_LOG(key, "<%ld>-leave with pEncodeBase64Image=%lx !", logging::address(pEncodeBase64Image));
    return pEncodeBase64Image;
}

inline bool isTextType(int nImageTypeID)
{
    return (nImageTypeID >= EBITI_BITMAP && nImageTypeID <= EBITI_PNG) || nImageTypeID == EBITI_INK;
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
int GetTotalDecodeInkPointsNumber(int nDeviceType)
{
    static constexpr logging::Key key{Family::prefix, "GetTotalDecodeInkPointsNumber()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d", nDeviceType);
    if (!isOurs<Family>(key, nDeviceType, "ARI_INVALID_PARAMETERS"))
        return ARI_INVALID_PARAMETERS;
    const int nDecodedInkCount =
        forward<Family, int>(ARI_INK_EMPTY, [](auto &pad) { return pad.GetTotalDecodeInkPointsNumber(); });
    KV_LOG(key, "<%ld>-leave with nDecodedInkCount=%d !", nDecodedInkCount);
    return nDecodedInkCount;
}

template <class Family>
int GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID)
{
    static constexpr logging::Key key{Family::prefix, "GetDecodeInkPointData()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, nIndex=%d, nTypeID=%d", nDeviceType, nIndex, nTypeID);
    if (!isOurs<Family>(key, nDeviceType, "ARI_INVALID_PARAMETERS"))
        return ARI_INVALID_PARAMETERS;
    if (nTypeID < INKDATATYPE_X || nTypeID > INKDATATYPE_STROKEEND) {
        KV_LOG(key,
            "<%ld>-leave with ARI_INVALID_PARAMETERS due to (nTypeID < INKDATATYPE_X) || (nTypeID > INKDATATYPE_STROKEEND) !");
        return ARI_INVALID_PARAMETERS;
    }
    return answer<Family>(key, nDeviceType, [=](auto &pad) { return pad.GetDecodeInkPointData(nIndex, nTypeID); });
}

} // namespace exported

#endif
