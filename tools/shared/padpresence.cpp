#include "padpresence.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

constexpr milliseconds kWhileWriting{500};
constexpr milliseconds kWhileSilent{1000};

// A pad may be busy, with a picture for its screen for instance, and answer once with an error. It is away when it
// fails twice in a row, this far apart.
constexpr milliseconds kSecondTry{300};
constexpr int kFailuresOfAPadThatIsAway = 2;

// A slow driver is asked less often: the caller waits for it at most a tenth of the time.
constexpr int kPausesPerAnswer = 9;

} // namespace

PadPresence::PadPresence(std::function<bool()> answers)
    : m_answers(std::move(answers))
    , m_pause(kWhileSilent)
{
}

void PadPresence::look(int points)
{
    const bool hasSent = points > m_points;
    m_points = points; // fewer after a clear
    if (hasSent) {
        m_failures = 0;
        m_isAway = false;
        m_pause = kWhileWriting;
        return;
    }
    const auto begin = Clock::now();
    const bool isThere = answers();
    const bool isSure = isThere || m_failures >= kFailuresOfAPadThatIsAway;
    if (isSure)
        m_isAway = !isThere;
    const auto duration = std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
    m_pause = std::max(isSure ? kWhileSilent : kSecondTry, kPausesPerAnswer * duration);
}

void PadPresence::ask()
{
    bool isThere = answers();
    if (!isThere && m_failures < kFailuresOfAPadThatIsAway) {
        std::this_thread::sleep_for(kSecondTry);
        isThere = answers();
    }
    m_isAway = !isThere;
}

bool PadPresence::answers()
{
    const bool isThere = m_answers();
    m_failures = isThere ? 0 : m_failures + 1;
    return isThere;
}
