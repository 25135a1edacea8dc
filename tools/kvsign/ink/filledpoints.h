/// @file
/// Completes the points of files that lack some of a record's fields.
#ifndef FILLEDPOINTS_H
#define FILLEDPOINTS_H

#include "pointfields.h"

#include <algorithm>
#include <cmath>
#include <optional>

/// A medium pressure, at which the pen looks like a ballpoint.
inline constexpr short kUsualPressure = 512;

/// Milliseconds between two points of most pads.
inline constexpr double kUsualStep = 5;

class FilledPoints
{
public:
    /// Says that the file lacks this field. A missing pressure becomes the medium one, missing ticks count up from 0,
    /// and a missing time is computed from the tick.
    void lacks(Field field) { m_lacks[static_cast<int>(field)] = true; }

    /// Says that the next part of the file has all fields again.
    void forget() { std::fill(std::begin(m_lacks), std::end(m_lacks), false); }

    /// Strokes that are open at the end are closed by a copy of their last point.
    void setCloses(bool closes) { m_closes = closes; }

    /// For missing ticks: the tick of the next point, and the milliseconds between two points.
    void setTick(double tick) { m_nextTick = std::clamp(tick, 0.0, kMost); }
    void setStep(double step) { m_step = std::clamp(step, 0.0, kMost); }

    /// For missing times: milliseconds since 1970 at tick 0.
    void setZero(std::optional<double> zero) { m_zero = std::clamp(zero.value_or(0), -kMost, kMost); }

    /// Fills the missing fields of the next point.
    void fill(POINTDATA &point)
    {
        if (isLacking(Field::Pressure))
            point.nPressureValue = kUsualPressure;
        if (isLacking(Field::Tick))
            point.ulTickCount = static_cast<quint64>(std::round(m_nextTick));
        else
            m_nextTick = std::min(static_cast<double>(point.ulTickCount), kMost);
        pass();
        if (isLacking(Field::Time))
            point.pointTime = timeOf(point.ulTickCount);
        m_isOpen = !point.bStrokeEnd;
        m_last = point;
    }

    /// Skips a point that is dropped. The tick counts on.
    void pass() { m_nextTick = std::min(m_nextTick + m_step, kMost); }

    /// Whether a stroke is open.
    bool isOpen() const { return m_isOpen; }

    /// The copy of the last point that closes its stroke; false when none is due.
    bool close(POINTDATA &point)
    {
        if (!m_isOpen || !m_closes)
            return false;
        m_isOpen = false;
        m_last.bStrokeEnd = true;
        point = m_last;
        return true;
    }

private:
    static constexpr double kMost = 9e15; // milliseconds; up to here doubles hold every integer

    bool isLacking(Field field) const { return m_lacks[static_cast<int>(field)]; }

    time_t timeOf(quint64 tick) const
    {
        constexpr qint64 kMilliseconds = 1000;
        if (m_zero == 0 || tick > static_cast<quint64>(kMost))
            return static_cast<time_t>(tick / kMilliseconds);
        return static_cast<time_t>(std::floor((m_zero + static_cast<double>(tick)) / kMilliseconds));
    }

    bool m_lacks[kFieldCount] = {};
    bool m_closes = false;
    bool m_isOpen = false;
    double m_nextTick = 0;
    double m_step = kUsualStep;
    double m_zero = 0;
    POINTDATA m_last = {};
};

#endif
