/// @file
/// The Base64 ink record of the stored points, and decoding texts back to points or image files.
#ifndef INKRECORD_H
#define INKRECORD_H

#include "LogFileUtil.h"
#include "base64text.h"
#include "filepaths.h"
#include "inkpoints.h"

#include <cstddef>

namespace inkrecord {

/// The points of a record's Base64 text; characters outside the alphabet are skipped, an incomplete entry at the end
/// is left out.
inkpoints::List decodePoints(const char *text);

/// Decodes an image text in its forced format and writes it to the path in the same format. False when it does not
/// load, is larger than any canvas, or cannot be written.
bool decodeImage(const char *text, int nImageTypeID, const QString &path);

/// One field of a point; ARI_INK_EMPTY for an unknown field.
int field(const _POINTDATA &point, int nTypeID);

/// 24 bytes a point as stored, then one byte 0.
template <class Pad>
char *newText(Pad &pad, const logging::Key &key)
{
    inkpoints::List points = inkpoints::snapshot(pad);
    const size_t ulInkCount = points.size();
    const size_t ulTotalPtsDataSize = ulInkCount * sizeof(_POINTDATA) + 1;
    points.push_back({}); // its first byte is the terminator
    KV_LOG(key, "<%ld>-pTotalPtsData=%lx, ulInkCount=%ld, ulTotalPtsDataSize=%ld", logging::address(points.data()),
        static_cast<long>(ulInkCount), static_cast<long>(ulTotalPtsDataSize));
    size_t ulnBase64TotalPtsDataSize = 0;
    char *text = base64text::newText(points.data(), ulTotalPtsDataSize, ulnBase64TotalPtsDataSize);
    KV_LOG(key, "<%ld>-ulnBase64TotalPtsDataSize=%ld", static_cast<long>(ulnBase64TotalPtsDataSize));
    return text;
}

template <class Pad>
int decode(Pad &pad, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath)
{
    static constexpr logging::Key key{Pad::row.scope, "Base64Decode()"};
    KV_LOG_WIDE(
        key, "<%ld>-enter, nImageTypeID=%d, pImageFilePath=%x", nImageTypeID, logging::shortAddress(pImageFilePath));
    inkpoints::List().swap(*pad.m_pDecodedPointDataList);
    int nResult = ARI_INK_EMPTY;
    if (nImageTypeID == EBITI_INK) {
        *pad.m_pDecodedPointDataList = decodePoints(pEncodedData);
        nResult = ARI_SUCCESS;
    } else if (base64text::formatName(nImageTypeID) != nullptr
        && decodeImage(pEncodedData, nImageTypeID, filepaths::fromWide(pImageFilePath))) {
        nResult = ARI_SUCCESS;
    }
    KV_LOG_WIDE(key, "<%ld>-leave with nResult=%d !", nResult);
    return nResult;
}

template <class Pad>
size_t decodedCount(const Pad &pad)
{
    return pad.m_pDecodedPointDataList == nullptr ? 0 : pad.m_pDecodedPointDataList->size();
}

template <class Pad>
int totalDecoded(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "GetTotalDecodeInkPointsNumber()"};
    KV_LOG(key, "<%ld>-enter...");
    const size_t points = decodedCount(pad);
    const int nDecodedInkCount = points == 0 ? ARI_INK_EMPTY : static_cast<int>(points);
    KV_LOG(key, "<%ld>-leave with nDecodedInkCount=%d", nDecodedInkCount);
    return nDecodedInkCount;
}

template <class Pad>
int decodedData(Pad &pad, int nIndex, int nTypeID)
{
    static constexpr logging::Key key{Pad::row.scope, "GetDecodeInkPointData()"};
    KV_LOG(key, "<%ld>-enter, nIndex=%d, nTypeID=%d", nIndex, nTypeID);
    const size_t nDecodedInkCount = decodedCount(pad);
    int nInkPointData = ARI_INK_EMPTY;
    if (nDecodedInkCount > 0) {
        if (nIndex < 0 || static_cast<size_t>(nIndex) >= nDecodedInkCount) {
            KV_LOG(
                key, "<%ld>-leave with ARI_INVALID_PARAMETERS due to (nIndex < 0) || (nIndex >= nDecodedInkCount) !");
            return ARI_INVALID_PARAMETERS;
        }
        nInkPointData = field((*pad.m_pDecodedPointDataList)[static_cast<size_t>(nIndex)], nTypeID);
    }
    KV_LOG(key, "<%ld>-leave with nInkPointData=%d", nInkPointData);
    return nInkPointData;
}

} // namespace inkrecord

#endif
