/// @file
/// Replays a signature in the time in which it was written: as numbers, as pictures, or in a window.
#ifndef REPLAY_H
#define REPLAY_H

#include "../ink/inkinput.h"
#include "../pictures/pictures.h"

#include <algorithm>

/// Computes when each point is due. Where the clock goes backwards, no time passes.
class ReplayTimes
{
public:
    /// @param speed 1 as the signer wrote; 0: without waiting
    explicit ReplayTimes(double speed)
        : m_speed(speed)
    {
    }

    /// Milliseconds from the first point, at this speed.
    double dueAt(const POINTDATA &point)
    {
        if (!m_begun)
            m_last = point.ulTickCount;
        m_begun = true;
        m_written += static_cast<double>(std::max<qint64>(static_cast<qint64>(point.ulTickCount - m_last), 0));
        m_last = point.ulTickCount;
        return m_speed > 0 ? std::min(m_written / m_speed, kLongest) : 0;
    }

    /// Milliseconds from the first point to the last dueAt(), as the signer wrote.
    double written() const { return m_written; }

private:
    static constexpr double kLongest = 1e15; // milliseconds; fits into a 64-bit integer even with a broken clock

    double m_speed;
    bool m_begun = false;
    quint64 m_last = 0;
    double m_written = 0;
};

/// Prints a line for each point when it is due.
void replayAsNumbers(PointSource &points, double speed, bool asJson);

/// Writes frame-00001.png and so on and returns how many. On failure none of them stays.
int replayAsFrames(
    InkInput &input, const PictureSettings &settings, double speed, double framesPerSecond, const QString &directory);

/// Returns when the window is closed; with closesAtEnd it closes itself a moment after the last point.
void replayInWindow(InkInput &input, const PictureSettings &settings, double speed, bool closesAtEnd);

#endif
