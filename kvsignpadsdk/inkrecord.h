/// @file
/// The Base64 ink record of the stored points, and decoding texts back to points or image files.
#ifndef INKRECORD_H
#define INKRECORD_H

#include "LogFileUtil.h"
#include "fastways/base64text.h"
#include "filepaths.h"
#include "inkpoints.h"

#include <cstddef>
#include <mutex>

namespace inkrecord {

/// A new zero-terminated text (array new) of the points and the record's terminator, and its length.
char *textOf(const void *points, size_t count, size_t &length);

/// The points of a record's Base64 text. Skips characters outside the alphabet and drops an incomplete last entry.
inkpoints::List decodePoints(const char *text);

/// Decodes an image text in the type's format and writes it to the path in the same format. Returns false when
/// imageloader refuses it or it cannot be written.
bool decodeImage(const char *text, int nImageTypeID, const QString &path);

/// One field of a point; ARI_INK_EMPTY for an unknown field.
int field(const _POINTDATA &point, int nTypeID);

/// The record's text: 24 bytes a point straight from the store, then one byte 0. Holds the store's lock meanwhile.
template <class Pad>
char *newText(Pad &pad, const logging::Key &key)
{
    const std::lock_guard<std::mutex> locked(pad.m_internals.inkLock);
    const void *pTotalPtsData = pad.m_pPointDataList->data();
    const size_t ulInkCount = pad.m_pPointDataList->size();
    const size_t ulTotalPtsDataSize = ulInkCount * sizeof(_POINTDATA) + 1;
    KV_LOG(key, "<%ld>-pTotalPtsData=%lx, ulInkCount=%ld, ulTotalPtsDataSize=%ld", logging::address(pTotalPtsData),
        static_cast<long>(ulInkCount), static_cast<long>(ulTotalPtsDataSize));
    size_t ulnBase64TotalPtsDataSize = 0;
    char *text = textOf(pTotalPtsData, ulInkCount, ulnBase64TotalPtsDataSize);
    KV_LOG(key, "<%ld>-ulnBase64TotalPtsDataSize=%ld", static_cast<long>(ulnBase64TotalPtsDataSize));
    return text;
}

/// Decoded points need inkLock as well, because a receiver may ask for them on the driver's thread. Without a list (pad
/// not connected) they are dropped.
template <class Pad>
void setDecoded(Pad &pad, inkpoints::List points)
{
    const std::lock_guard<std::mutex> locked(pad.m_internals.inkLock);
    if (pad.m_pDecodedPointDataList != nullptr)
        pad.m_pDecodedPointDataList->swap(points);
}

template <class Pad>
int decode(Pad &pad, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath)
{
    static constexpr logging::Key key{Pad::row.scope, "Base64Decode()"};
    KV_LOG_WIDE(
        key, "<%ld>-enter, nImageTypeID=%d, pImageFilePath=%x", nImageTypeID, logging::shortAddress(pImageFilePath));
    setDecoded(pad, {});
    int nResult = ARI_INK_EMPTY;
    if (nImageTypeID == EBITI_INK) {
        setDecoded(pad, decodePoints(pEncodedData));
        nResult = ARI_SUCCESS;
    } else if (base64text::formatName(nImageTypeID) != nullptr
        && decodeImage(pEncodedData, nImageTypeID, filepaths::fromWide(pImageFilePath))) {
        nResult = ARI_SUCCESS;
    }
    KV_LOG_WIDE(key, "<%ld>-leave with nResult=%d !", nResult);
    return nResult;
}

/// Returns the number of decoded points, and copies out the one at the index if it exists.
template <class Pad>
size_t decodedAt(Pad &pad, int nIndex, _POINTDATA &point)
{
    const std::lock_guard<std::mutex> locked(pad.m_internals.inkLock);
    const inkpoints::List *list = pad.m_pDecodedPointDataList;
    const size_t count = list == nullptr ? 0 : list->size();
    if (nIndex >= 0 && static_cast<size_t>(nIndex) < count)
        point = (*list)[static_cast<size_t>(nIndex)];
    return count;
}

template <class Pad>
int totalDecoded(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "GetTotalDecodeInkPointsNumber()"};
    KV_LOG(key, "<%ld>-enter...");
    _POINTDATA unused{};
    const size_t points = decodedAt(pad, -1, unused);
    const int nDecodedInkCount = points == 0 ? ARI_INK_EMPTY : static_cast<int>(points);
    KV_LOG(key, "<%ld>-leave with nDecodedInkCount=%d", nDecodedInkCount);
    return nDecodedInkCount;
}

template <class Pad>
int decodedData(Pad &pad, int nIndex, int nTypeID)
{
    static constexpr logging::Key key{Pad::row.scope, "GetDecodeInkPointData()"};
    KV_LOG(key, "<%ld>-enter, nIndex=%d, nTypeID=%d", nIndex, nTypeID);
    _POINTDATA point{};
    const size_t nDecodedInkCount = decodedAt(pad, nIndex, point);
    int nInkPointData = ARI_INK_EMPTY;
    if (nDecodedInkCount > 0) {
        if (nIndex < 0 || static_cast<size_t>(nIndex) >= nDecodedInkCount) {
            KV_LOG(
                key, "<%ld>-leave with ARI_INVALID_PARAMETERS due to (nIndex < 0) || (nIndex >= nDecodedInkCount) !");
            return ARI_INVALID_PARAMETERS;
        }
        nInkPointData = field(point, nTypeID);
    }
    KV_LOG(key, "<%ld>-leave with nInkPointData=%d", nInkPointData);
    return nInkPointData;
}

} // namespace inkrecord

#endif
