#include "inkstatistics.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr size_t kMostGaps = 10;
constexpr int kPadWidthsPerDot = 100;

/// Ticks are unsigned, and those of a broken record can be anything, so the difference is limited to what fits.
qint64 apart(const POINTDATA &one, const POINTDATA &other)
{
    constexpr quint64 kMost = std::numeric_limits<qint64>::max();
    const quint64 forwards = other.ulTickCount - one.ulTickCount, back = one.ulTickCount - other.ulTickCount;
    return other.ulTickCount >= one.ulTickCount ? static_cast<qint64>(std::min(forwards, kMost))
                                                : -static_cast<qint64>(std::min(back, kMost));
}

qint64 sum(qint64 one, qint64 other)
{
    qint64 result = 0;
    return __builtin_add_overflow(one, other, &result) ? std::numeric_limits<qint64>::max() : result;
}

} // namespace

void InkStatistics::add(const POINTDATA &point)
{
    ++points;
    if (points == 1) {
        m_first = point;
        firstTime = point.pointTime;
    } else {
        addTime(point);
    }
    extent.add(point);
    if (!point.bStrokeEnd) {
        ++m_pressed;
        leastPressure = std::min<int>(leastPressure, point.nPressureValue);
        mostPressure = std::max<int>(mostPressure, point.nPressureValue);
        meanPressure += (point.nPressureValue - meanPressure) / static_cast<double>(m_pressed);
        if (m_inStroke)
            length += std::hypot(point.nX - m_last.nX, point.nY - m_last.nY);
        ++m_pointsOfStroke;
    }
    m_inStroke = !point.bStrokeEnd;
    m_last = point;
    if (point.bStrokeEnd)
        endStroke();
}

void InkStatistics::addTime(const POINTDATA &point)
{
    const qint64 between = apart(m_last, point);
    if (between < 0)
        ++backwards;
    else if (m_inStroke && between > m_gapMilliseconds)
        addGap(between);
    else if (!m_inStroke) {
        ++pauses;
        pauseMilliseconds = sum(pauseMilliseconds, between);
        if (between > longestPause.milliseconds)
            longestPause = {points, between};
    }
}

void InkStatistics::addGap(qint64 between)
{
    ++gaps;
    longestGaps.push_back({points, between});
    std::stable_sort(longestGaps.begin(), longestGaps.end(),
        [](const InkGap &one, const InkGap &other) { return one.milliseconds > other.milliseconds; });
    if (longestGaps.size() > kMostGaps)
        longestGaps.pop_back();
}

void InkStatistics::endStroke()
{
    ++strokes;
    taps += m_pointsOfStroke <= 1 ? 1 : 0;
    m_pointsOfStroke = 0;
}

void InkStatistics::finish()
{
    isClosed = !m_inStroke;
    if (m_inStroke)
        endStroke();
    milliseconds = std::max<qint64>(apart(m_first, m_last), 0);
    if (m_pressed == 0)
        leastPressure = mostPressure = 0;
}

bool InkStatistics::isOnlyADot() const
{
    const int most = extent.smallestPad().rawSpanX / kPadWidthsPerDot;
    return extent.right - extent.left <= most && extent.bottom - extent.top <= most;
}
