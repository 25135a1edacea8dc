/// @file
/// The exported functions that hand out points, of the signature or of a decoded record, written once for all families.
#ifndef EXPORTEDINK_H
#define EXPORTEDINK_H

#include "frame.h"

namespace exported {

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

/// Callers expect their point to be filled in, although the published signature declares the parameter const.
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
