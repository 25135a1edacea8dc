// Running out of memory: whichever allocation of a call fails, the call returns a documented answer, the program goes
// on, and the pad works afterwards. Every exported function, on all pads.
//
// Qt and the system's libraries may crash or hang for lack of memory; that is not ours to mend. The next allocation is
// then tried in a new process.
#include "crashingchild.h"
#include "failingmemory.h"
#include "memorycalls.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <sstream>
#include <unistd.h>

namespace {

constexpr long kMostCrashes = 300;
constexpr long kPlainly = 40; ///< allocations of a call that the plain run fails

/// All allocations of all calls, on all pads: minutes of it.
bool isThorough()
{
    return std::getenv("KV_EVERY_PAD") != nullptr;
}

bool isOneOf(const std::string &word, const std::string &words)
{
    std::istringstream all(words);
    for (std::string one; all >> one;) {
        if (one == word)
            return true;
    }
    return false;
}

/// One pad and what it should be like.
class Trial
{
public:
    Trial(const PadCase &pad, const MemoryCall &call, ChildReport &report)
        : m_call(call)
        , m_report(report)
        , m_pad(pad)
    {
    }

    void begin()
    {
        m_pad.open();
        m_pad.signAnew();
        m_picture = m_pad.picture();
        m_points = m_pad->GetTotalInkPointsNumber(m_pad.type());
        m_call.prepare(m_pad);
        m_good = told(m_pad, m_call, m_call.call(m_pad));
        settle();
        work();
    }

    /// Answers whether there was an n-th allocation.
    bool fail(long n)
    {
        nextStep(n);
        m_call.prepare(m_pad);
        failingmemory::failNth(n);
        const Answer answer = m_call.call(m_pad);
        const bool failed = failingmemory::stop();
        const std::string words = told(m_pad, m_call, answer);
        if (words != m_good && !isOneOf(words, m_call.failures))
            say("answered " + words + ", with memory " + m_good);
        work();
        return failed;
    }

private:
    void say(const std::string &what)
    {
        if (m_report.failure[0] == '\0')
            std::snprintf(m_report.failure, sizeof m_report.failure, "allocation %ld: %s", m_report.step, what.c_str());
    }

    /// Signs and looks at it. Opening is tried from the start: a canvas that could not be had stays away until then.
    void work()
    {
        settle();
        if (m_call.name == "InitialDevice")
            m_pad.close();
        if (!m_pad.open())
            return say("the pad cannot be opened any more");
        m_pad.signAnew();
        if (m_pad->GetTotalInkPointsNumber(m_pad.type()) != m_points)
            return say("points are missing");
        if (m_pad.picture() != m_picture)
            say("the canvas is another");
    }

    const MemoryCall &m_call;
    ChildReport &m_report;
    QuietPad m_pad;
    std::string m_good;
    std::string m_picture;
    int m_points = 0;
};

class AllocationFaults : public testing::TestWithParam<PadCase>
{
protected:
    static void SetUpTestSuite() { ASSERT_EQ(chdir(KV_QUIET_DRIVER_DIRECTORY), 0); }

    /// Fails one allocation after the other; after a crash the next one in a new process.
    static void tryAll(const MemoryCall &call)
    {
        const long last = isThorough() ? std::numeric_limits<long>::max() : kPlainly;
        long crashes = 0, next = 1;
        for (bool atEnd = false; !atEnd;) {
            const ChildReport report = inChild([&](ChildReport &told) {
                Trial trial(GetParam(), call, told);
                trial.begin();
                for (long n = next; told.failure[0] == '\0' && n <= last && trial.fail(n); ++n) { }
            });
            ASSERT_STREQ(report.failure, "") << call.name;
            ASSERT_FALSE(report.crashed && isOurs(report)) << call.name << ", allocation " << report.step << '\n'
                                                           << report.where;
            crashes += report.crashed;
            ASSERT_LT(crashes, kMostCrashes) << call.name << '\n' << report.where;
            atEnd = !report.crashed || report.step >= last;
            next = report.step + 1;
        }
        std::cout << call.name << ": " << std::min(next - 2, last) << " allocations failed, " << crashes
                  << " of them ended in Qt\n";
    }

    static bool isOurs(const ChildReport &report)
    {
        return std::string(report.module).find("kvsignpadsdk") != std::string::npos;
    }
};

} // namespace

TEST_P(AllocationFaults, HaveAnAnswer)
{
    for (const MemoryCall &call : memoryCalls()) {
        if (!call.isFor(GetParam()))
            continue;
        tryAll(call);
        if (HasFatalFailure())
            return;
    }
}

// KV_EVERY_PAD asks for all ten, and for all allocations of a call.
INSTANTIATE_TEST_SUITE_P(Pads, AllocationFaults,
    testing::ValuesIn(isThorough() ? allPads() : std::vector<PadCase>{{&kS210Family, true}}), padCaseName);
