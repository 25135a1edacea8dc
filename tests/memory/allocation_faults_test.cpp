// Running out of memory: whichever allocation of a call fails, alone or with all that follow it, the call returns a
// documented answer, the program goes on, and the pad works afterwards. Every exported function, on all pads.
//
// Where Qt ends the process within itself, the next allocation is tried in a new one; these ends are counted and told.
#include "crashingchild.h"
#include "failingmemory.h"
#include "memorycalls.h"
#include "memoryendings.h"

#include "exportedcalls_table.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <sstream>
#include <sys/mman.h>
#include <unistd.h>

namespace {

/// All allocations of all calls: minutes of it.
bool isThorough()
{
    static const bool thorough = std::getenv("KV_EVERY_ALLOCATION") != nullptr;
    return thorough;
}

/// The next allocation to fail, n or one behind it. Plainly each pad fails the first two, which often copy a picture,
/// and a share of the others, not the same as other pads.
long drawnFrom(long n, size_t pad)
{
    const auto isDrawn = [pad](long one) {
        const size_t share = one <= 40 ? 10 : 100;
        return one <= 2 || static_cast<size_t>(one) % share == pad % share;
    };
    while (!isThorough() && !isDrawn(n))
        ++n;
    return n;
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

ChildReport *telling = nullptr; ///< the child's own

void noteFailedAllocation()
{
    static CrashStack failed;
    failed = {};
    noteStack(failed, 2); // without this function and fails()
    telling->isSpoilt = telling->isSpoilt || memoryendings::isHalfMade(failed);
}

/// One call on the pad, and what both should be like.
class Trial
{
public:
    Trial(QuietPad &pad, const MemoryCall &call, ChildReport &report)
        : m_pad(pad)
        , m_call(call)
        , m_report(report)
    {
        m_pad.open();
        m_pad.signAnew();
        m_picture = m_pad.picture();
        m_points = m_pad->GetTotalInkPointsNumber(m_pad.type());
        m_call.prepare(m_pad);
        m_good = told(m_pad, m_call, m_call.call(m_pad));
        work();
    }

    /// Answers whether there was an n-th allocation.
    bool fail(long n, failingmemory::Which which)
    {
        m_call.prepare(m_pad);
        failingmemory::failNth(n, which, noteFailedAllocation);
        const Answer answer = m_call.call(m_pad);
        const bool failed = failingmemory::stop();
        const std::string words = told(m_pad, m_call, answer);
        if (words != m_good && !isOneOf(words, m_call.failures))
            say("answered " + words + ", with memory " + m_good);
        if (!m_report.isSpoilt)
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

    QuietPad &m_pad;
    const MemoryCall &m_call;
    ChildReport &m_report;
    std::string m_good;
    std::string m_picture;
    int m_points = 0;
};

/// A pad by its place among all, and what fails.
struct Row
{
    size_t pad;
    failingmemory::Which which;
};

/// Plainly memory stays short on two pads alone, one of each host.
std::vector<Row> rows()
{
    std::vector<Row> rows;
    for (size_t pad = 0; pad < allPads().size(); ++pad) {
        rows.push_back({pad, failingmemory::Which::OneAlone});
        const PadCase one = allPads()[pad];
        const bool isDrawn = one.family->type == (one.headless ? KVS300_DEVICE : KVS310X_DEVICE);
        if (isThorough() || isDrawn)
            rows.push_back({pad, failingmemory::Which::AllFromIt});
    }
    return rows;
}

/// A place in the work: a call and one of its allocations.
struct Place
{
    size_t call;
    long allocation;
};

/// How many allocations of each call have been failed, by children too.
long *newCounts(size_t calls)
{
    void *const memory = mmap(nullptr, calls * sizeof(long), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return static_cast<long *>(memory);
}

class AllocationFaults : public testing::TestWithParam<Row>
{
protected:
    static void SetUpTestSuite() { ASSERT_EQ(chdir(KV_QUIET_DRIVER_DIRECTORY), 0); }

    AllocationFaults()
    {
        for (const MemoryCall &call : memoryCalls()) {
            if (call.isFor(m_case))
                m_calls.push_back(&call);
        }
        m_failed = newCounts(m_calls.size());
    }
    ~AllocationFaults() override { munmap(m_failed, m_calls.size() * sizeof(long)); }

    long first() const { return drawnFrom(1, m_pad); }

    /// All that is left from a place on, in a child. Ends early when something is wrong.
    void workOn(const Place &from, ChildReport &report) const
    {
        telling = &report;
        nextStep(static_cast<long>(from.call), 0);
        QuietPad pad(m_case);
        for (size_t i = from.call; i < m_calls.size(); ++i) {
            nextStep(static_cast<long>(i), 0);
            Trial trial(pad, *m_calls[i], report);
            bool isThere = true;
            for (long n = i == from.call ? from.allocation : first(); isThere && report.failure[0] == '\0';
                 n = drawnFrom(n + 1, m_pad)) {
                nextStep(static_cast<long>(i), n);
                isThere = trial.fail(n, GetParam().which);
                m_failed[i] += isThere;
                if (report.isSpoilt)
                    _exit(0); // nothing is painted or closed: that is where the heap may break
            }
            if (report.failure[0] != '\0')
                return;
        }
    }

    /// Sets the next place; false when there is none, or something is wrong.
    bool goOn(Place &place, const ChildReport &report)
    {
        const MemoryCall &call = *m_calls[static_cast<size_t>(report.part)];
        EXPECT_STREQ(report.failure, "") << call.name;
        if (report.failure[0] != '\0' || (!report.crashed && !report.isSpoilt))
            return false;
        EXPECT_TRUE(!report.crashed || memoryendings::isOfQt(call.name, report))
            << call.name << ", allocation " << report.step << ' ' << memoryendings::inWords(report) << " in "
            << report.stack.module << '\n'
            << report.stack.where;
        const Place ended{static_cast<size_t>(report.part), report.step};
        const bool isBroken = ended.call == place.call && ended.allocation == 0;
        EXPECT_FALSE(isBroken) << call.name << " does not work with memory";
        // What Qt left behind of an earlier allocation may be to blame, a lock for one: again then, in a new child.
        const bool isFirst = ended.call == place.call && ended.allocation == place.allocation;
        if (report.crashed)
            ++m_endings[call.name][memoryendings::inWords(report) + (isFirst ? "" : " in a later call")];
        m_spoilt[call.name] += report.isSpoilt;
        const bool isDone = isFirst || report.isSpoilt;
        place = {ended.call, drawnFrom(std::max(ended.allocation + isDone, 1L), m_pad)};
        return !isBroken;
    }

    void tell() const
    {
        for (size_t i = 0; i < m_calls.size(); ++i) {
            if (m_failed[i] == 0 && m_endings.count(m_calls[i]->name) == 0)
                continue;
            std::cout << m_calls[i]->name << ": " << m_failed[i] << " allocations failed";
            if (const auto spoilt = m_spoilt.find(m_calls[i]->name); spoilt != m_spoilt.end() && spoilt->second > 0)
                std::cout << ", " << spoilt->second << " of them without a look at the pad afterwards";
            if (const auto endings = m_endings.find(m_calls[i]->name); endings != m_endings.end()) {
                for (const auto &[how, times] : endings->second)
                    std::cout << "; " << times << " more: " << how;
            }
            std::cout << '\n';
        }
    }

    const size_t m_pad = GetParam().pad;
    const PadCase m_case = allPads()[m_pad];
    std::vector<const MemoryCall *> m_calls;
    long *m_failed = nullptr;
    std::map<std::string, std::map<std::string, int>> m_endings; ///< by call
    std::map<std::string, int> m_spoilt; ///< by call: failures after which Qt keeps a half made widget
};

} // namespace

TEST_P(AllocationFaults, HaveAnAnswer)
{
    Place place{0, first()};
    ChildReport report{};
    do
        report = inChild([&](ChildReport &told) { workOn(place, told); });
    while (goOn(place, report));
    tell();
}

INSTANTIATE_TEST_SUITE_P(Pads, AllocationFaults, testing::ValuesIn(rows()), [](const auto &row) {
    const bool isAlone = row.param.which == failingmemory::Which::OneAlone;
    return allPads()[row.param.pad].className() + std::string(isAlone ? "" : "AllFromIt");
});

TEST(MemoryCalls, HaveEachExportedFunction)
{
    for (const PadCase &pad : allPads()) {
        std::set<std::string> functions;
        for (const MemoryCall &call : memoryCalls()) {
            if (call.isFor(pad))
                functions.insert(call.name.substr(0, call.name.find(' ')));
        }
        EXPECT_EQ(functions.count("AboutBox"), 1u);
        for (const ExportedCall &exported : exportedCalls(*pad.family))
            EXPECT_EQ(functions.count(exported.function), 1u) << pad.className() << ' ' << exported.function;
    }
}
