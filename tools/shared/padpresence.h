/// @file
/// Finds out whether the open pad is still there. Nothing reports an unplugged pad: its packets just stop, as when the
/// signer pauses.
#ifndef PADPRESENCE_H
#define PADPRESENCE_H

#include <chrono>
#include <functional>

/// Asks the pad for its version text when it has been silent for a while. Runs on the caller's thread, which blocks as
/// long as the driver waits for the answer.
class PadPresence
{
public:
    /// @param answers asks the pad and returns whether it answered
    explicit PadPresence(std::function<bool()> answers);

    /// Call it repeatedly, with pauses of pause(). `points` is how many have come so far: a pad that sends points is
    /// there, and is not asked.
    void look(int points);

    /// How long to wait until the next look.
    std::chrono::milliseconds pause() const { return m_pause; }

    /// Asks at once, and a second time when the first answer is missing.
    void ask();

    /// The result of the last look.
    bool isAway() const { return m_isAway; }

private:
    bool answers();

    std::function<bool()> m_answers;
    std::chrono::milliseconds m_pause;
    int m_points = 0;
    int m_failures = 0; ///< in a row
    bool m_isAway = false;
};

#endif
