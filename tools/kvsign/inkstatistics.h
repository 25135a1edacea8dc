/// @file
/// Facts about a signature, collected while looking at each point once.
#ifndef INKSTATISTICS_H
#define INKSTATISTICS_H

#include "pictures/inkextent.h"

#include <QtGlobal>

#include <vector>

/// Time between two points.
struct InkGap
{
    qint64 point; ///< number of the point after it, from 1
    qint64 milliseconds;
};

class InkStatistics
{
public:
    /// @param gapMilliseconds a longer time between two points of a stroke counts as a gap
    explicit InkStatistics(int gapMilliseconds)
        : m_gapMilliseconds(gapMilliseconds)
    {
    }

    void add(const POINTDATA &point);

    /// Call it after the last point.
    void finish();

    qint64 points = 0;
    qint64 strokes = 0;
    qint64 taps = 0; ///< strokes that draw nothing: a pen put down and lifted
    qint64 milliseconds = 0; ///< from the first point to the last
    qint64 firstTime = 0; ///< seconds since the epoch
    double length = 0; ///< of all lines, in raw units
    InkExtent extent;
    int leastPressure = 32767; ///< both pressures without those of closing points
    int mostPressure = -32768;
    double meanPressure = 0;
    qint64 gaps = 0; ///< inside strokes
    qint64 pauses = 0; ///< between strokes
    qint64 pauseMilliseconds = 0;
    std::vector<InkGap> longestGaps; ///< the longest first, ten at most
    InkGap longestPause = {0, 0};
    qint64 backwards = 0; ///< points whose tick is before that of the point before
    bool isClosed = true; ///< whether the last stroke has its closing point

    /// Whether all ink lies within a hundredth of the pad's width.
    bool isOnlyADot() const;

private:
    void addTime(const POINTDATA &point);
    void addGap(qint64 apart);
    void endStroke();

    int m_gapMilliseconds;
    POINTDATA m_first = {};
    POINTDATA m_last = {};
    bool m_inStroke = false;
    qint64 m_pointsOfStroke = 0;
    qint64 m_pressed = 0; ///< points that do not close a stroke
};

#endif
