/// @file
/// Whether the pad in use is still there. A pad that was pulled out says nothing of it: no packet comes any more, as
/// when the signer pauses.
#ifndef PADPRESENCE_H
#define PADPRESENCE_H

#include <chrono>
#include <functional>

/// Asks the pad for its version text when it has been silent for a while. All on the caller's thread, which stands
/// still as long as the driver takes for its answer.
class PadPresence
{
public:
    /// `answers`: whether the pad answers a question now.
    explicit PadPresence(std::function<bool()> answers);

    /// To be called again and again, at times that pause() says. `points`: how many have come so far; a pad that sends
    /// is there, and is not disturbed with questions.
    void look(int points);

    /// How long to wait after a look.
    std::chrono::milliseconds pause() const { return m_pause; }

    /// Asks at once, twice if it must.
    void ask();

    /// As far as is known.
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
