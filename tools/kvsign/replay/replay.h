/// @file
/// A signature in the time in which it was written: as numbers, as pictures, or in a window.
#ifndef REPLAY_H
#define REPLAY_H

#include "../ink/inkinput.h"
#include "../pictures/pictures.h"

#include <algorithm>

/// When each point is due. A time that goes backwards counts as no time.
class ReplayTimes
{
public:
    /// A speed of 0: everything at once.
    explicit ReplayTimes(double speed)
        : m_speed(speed)
    {
    }

    /// Milliseconds since the first point.
    double dueAt(const POINTDATA &point)
    {
        if (!m_begun)
            m_last = point.ulTickCount;
        m_begun = true;
        m_written += static_cast<double>(std::max<qint64>(static_cast<qint64>(point.ulTickCount - m_last), 0));
        m_last = point.ulTickCount;
        return m_speed > 0 ? std::min(m_written / m_speed, kLongest) : 0;
    }

    /// The same at the speed of the signer.
    double written() const { return m_written; }

private:
    static constexpr double kLongest = 1e15; // milliseconds, which integers hold; a broken clock's years

    double m_speed;
    bool m_begun = false;
    quint64 m_last = 0;
    double m_written = 0;
};

/// Prints a line for each point when it is due.
void replayAsNumbers(PointSource &points, double speed, bool asJson);

/// Writes frame-00001.png and so on; answers how many. When that fails, the ones that it wrote are gone again.
int replayAsFrames(
    InkInput &input, const PictureSettings &settings, double speed, double framesPerSecond, const QString &directory);

/// Returns when the window is closed; with closesAtEnd a moment after the last point.
void replayInWindow(InkInput &input, const PictureSettings &settings, double speed, bool closesAtEnd);

#endif
