/// @file
/// Points of a file that does not tell all of what a record holds: what stands for the rest.
#ifndef FILLEDPOINTS_H
#define FILLEDPOINTS_H

#include "pointfields.h"

#include <algorithm>
#include <cmath>
#include <optional>

/// A middling pressure, with which the pen looks as a ballpoint.
inline constexpr short kUsualPressure = 512;

/// Between two points of most pads, in milliseconds.
inline constexpr double kUsualStep = 5;

class FilledPoints
{
public:
    /// The file has no such field: the pressure is a middling one, the tick counts on, from 0 at first, the time is
    /// that of the tick.
    void lacks(Field field) { m_lacks[static_cast<int>(field)] = true; }

    /// All fields are there again, in the file's next part.
    void forget() { std::fill(std::begin(m_lacks), std::end(m_lacks), false); }

    /// A copy of the last point closes a stroke that is open at the end.
    void setCloses(bool closes) { m_closes = closes; }

    /// The tick of the next point, where ticks are lacking; and milliseconds between two points.
    void setTick(double tick) { m_nextTick = std::clamp(tick, 0.0, kMost); }
    void setStep(double step) { m_step = std::clamp(step, 0.0, kMost); }

    /// Milliseconds since 1970 at tick 0, where times are lacking.
    void setZero(std::optional<double> zero) { m_zero = std::clamp(zero.value_or(0), -kMost, kMost); }

    /// Puts what is lacking into a point, the next one.
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

    /// A point that is not taken: time passes all the same.
    void pass() { m_nextTick = std::min(m_nextTick + m_step, kMost); }

    /// Whether a stroke has begun that is not closed.
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
    static constexpr double kMost = 9e15; // milliseconds, which doubles and integers hold to the last

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
