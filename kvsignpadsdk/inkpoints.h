/// @file
/// The stored ink points: the list, its lock, the queries, a point's time as text.
#ifndef INKPOINTS_H
#define INKPOINTS_H

#include "LogFileUtil.h"

#include <cstddef>
#include <mutex>
#include <new>
#include <vector>

namespace inkpoints {

using List = std::vector<_POINTDATA>;

/// A point with the current time. All padding bytes are 0, because the ink record copies the memory as it is.
_POINTDATA pointNow(int nX, int nY, int nP, bool bStrokeEnd);

/// A new zero-terminated text (array new) with the point's local time.
char *newTimeText(const _POINTDATA &point);

/// Appends a point; without a list (pad not connected yet) nothing is stored.
template <class Pad>
void append(Pad &pad, int nX, int nY, int nP)
{
    const _POINTDATA point = pointNow(nX, nY, nP, false);
    const std::lock_guard<std::mutex> locked(pad.m_internals.inkLock);
    if (pad.m_pPointDataList != nullptr)
        pad.m_pPointDataList->push_back(point);
}

/// Closes the stroke with a copy of the last point. Does nothing without points.
template <class Pad>
void appendStrokeEnd(Pad &pad)
{
    const std::lock_guard<std::mutex> locked(pad.m_internals.inkLock);
    if (pad.m_pPointDataList == nullptr || pad.m_pPointDataList->empty())
        return;
    const _POINTDATA last = pad.m_pPointDataList->back();
    pad.m_pPointDataList->push_back(pointNow(last.nX, last.nY, last.nPressureValue, true));
}

/// Number of points; 0 without a list.
template <class Pad>
size_t count(Pad &pad)
{
    const std::lock_guard<std::mutex> locked(pad.m_internals.inkLock);
    return pad.m_pPointDataList == nullptr ? 0 : pad.m_pPointDataList->size();
}

/// A copy of all points.
template <class Pad>
List snapshot(Pad &pad)
{
    const std::lock_guard<std::mutex> locked(pad.m_internals.inkLock);
    return pad.m_pPointDataList == nullptr ? List() : *pad.m_pPointDataList;
}

/// Copies one point out. Returns false for an index out of range.
template <class Pad>
bool pointAt(Pad &pad, int nIndex, _POINTDATA &point)
{
    const std::lock_guard<std::mutex> locked(pad.m_internals.inkLock);
    if (pad.m_pPointDataList == nullptr || nIndex < 0 || static_cast<size_t>(nIndex) >= pad.m_pPointDataList->size())
        return false;
    point = (*pad.m_pPointDataList)[static_cast<size_t>(nIndex)];
    return true;
}

/// Empties the list and frees its memory.
template <class Pad>
void clear(Pad &pad)
{
    const std::lock_guard<std::mutex> locked(pad.m_internals.inkLock);
    if (pad.m_pPointDataList != nullptr)
        List().swap(*pad.m_pPointDataList);
}

/// Creates both lists, empty. Returns false when memory runs out.
template <class Pad>
bool createLists(Pad &pad)
{
    auto *decoded = new (std::nothrow) List;
    auto *points = new (std::nothrow) List;
    const std::lock_guard<std::mutex> locked(pad.m_internals.inkLock);
    pad.m_pPointDataList = points;
    pad.m_pDecodedPointDataList = decoded;
    return points != nullptr && decoded != nullptr;
}

template <class Pad>
void deleteLists(Pad &pad)
{
    const std::lock_guard<std::mutex> locked(pad.m_internals.inkLock);
    delete pad.m_pPointDataList;
    pad.m_pPointDataList = nullptr;
    delete pad.m_pDecodedPointDataList;
    pad.m_pDecodedPointDataList = nullptr;
}

template <class Pad>
int total(Pad &pad)
{
    static constexpr logging::Key enterKey{Pad::row.scope, "GetTotalInkPointsNumber()"};
    static constexpr logging::Key leaveKey{Pad::row.scope, Pad::row.inkCountLeaveKey};
    KV_LOG(enterKey, "<%ld>-enter...");
    const size_t points = count(pad);
    const int nInkCount = points == 0 ? ARI_INK_EMPTY : static_cast<int>(points);
    KV_LOG(leaveKey, "<%ld>-leave with nInkCount=%d", nInkCount);
    return nInkCount;
}

template <class Pad>
int get(Pad &pad, _INKPOINTDATA &nInkPointData)
{
    static constexpr logging::Key key{Pad::row.scope, "GetInkPointData()"};
    KV_LOG(key, "<%ld>-enter, nInkPointData.nIndex=%d", nInkPointData.nIndex);
    _POINTDATA point;
    int nResult = ARI_FAIL;
    if (pointAt(pad, nInkPointData.nIndex, point)) {
        nInkPointData.nX = point.nX;
        nInkPointData.nY = point.nY;
        nInkPointData.nPressureValue = point.nPressureValue;
        nInkPointData.bStrokeEnd = point.bStrokeEnd;
        nResult = ARI_SUCCESS;
    }
    KV_LOG(key, "<%ld>-leave with nResult=%d", nResult);
    return nResult;
}

template <class Pad>
char *timeInfo(Pad &pad, int nIndex)
{
    static constexpr logging::Key key{Pad::row.scope, "GetInkPointDataTimeInfo()"};
    KV_LOG(key, "<%ld>-enter, nIndex=%d", nIndex);
    _POINTDATA point;
    char *pInkPointDataTimeInfo = pointAt(pad, nIndex, point) ? newTimeText(point) : nullptr;
    KV_LOG(key, "<%ld>-leave with pInkPointDataTimeInfo=%lx !", logging::address(pInkPointDataTimeInfo));
    return pInkPointDataTimeInfo;
}

template <class Pad>
void freeTimeInfo(Pad &, char *pInkPointDataTimeInfo)
{
    static constexpr logging::Key key{Pad::row.scope, "FreeInkPointDataTimeInfo()"};
    KV_LOG(key, "<%ld>-enter, pInkPointDataTimeInfo=%lx", logging::address(pInkPointDataTimeInfo));
    if (pInkPointDataTimeInfo != nullptr) {
        delete[] pInkPointDataTimeInfo;
        KV_LOG(key, "<%ld>-after call delete[] pInkPointDataTimeInfo !");
    }
    KV_LOG(key, "<%ld>-leave !");
}

} // namespace inkpoints

#endif
