#include "crashingchild.h"

#include "failingmemory.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <execinfo.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <poll.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <ucontext.h>
#include <unistd.h>
#include <unwind.h>
#include <utility>

namespace {

constexpr int kCrashed = 77;
constexpr int kLook = 10; ///< milliseconds between looks at a child
constexpr int kAloneForGood = 4; ///< looks: nobody else can wake an only thread
constexpr int kAsleepForGood = 30; ///< looks
constexpr long kSpins = 300'000'000; ///< nanoseconds of the main thread's own work in one step
ChildReport *report = nullptr;
timer_t spinning{};

// The crash is at hand and the process ends: what a signal handler may not call does no more harm than not to know.
void noteCrash(int, siginfo_t *, void *context)
{
    failingmemory::stop();
    report->crashed = true; // also where the stack cannot be followed
    if (!report->isTerminated)
        noteCrashAt(report->stack, *static_cast<const ucontext_t *>(context), 2); // of this function and the signal
    _exit(kCrashed);
}

void noteSpinning(int signal, siginfo_t *information, void *context)
{
    report->isHung = true;
    noteCrash(signal, information, context);
}

_Unwind_Exception unwinding{};
void *unwound = nullptr; ///< where the frame goes on that is to be left now

_Unwind_Reason_Code noteUnwinding(
    int, _Unwind_Action, _Unwind_Exception_Class, _Unwind_Exception *, _Unwind_Context *context, void *)
{
    unwound = reinterpret_cast<void *>(_Unwind_GetIP(context));
    return _URC_NO_REASON;
}

// An exception met a function that lets none out. Which one, the stack does not say: what throws is still innermost. It
// is unwound once more, frame by frame, until that function ends the process again.
[[noreturn]] void noteTermination()
{
    failingmemory::stop();
    if (!report->isTerminated) {
        report->isTerminated = true;
        noteStack(report->stack, 1);
        _Unwind_ForcedUnwind(&unwinding, noteUnwinding, nullptr);
    } else if (unwound != nullptr) {
        blame(report->stack, unwound);
    }
    std::abort();
}

void watch()
{
    static char stack[64 * 1024];
    stack_t own{};
    own.ss_sp = stack;
    own.ss_size = sizeof stack;
    sigaltstack(&own, nullptr);
    struct sigaction action
    {
    };
    action.sa_sigaction = noteCrash;
    action.sa_flags = static_cast<int>(SA_ONSTACK | SA_RESETHAND | SA_SIGINFO);
    for (const int signal : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL})
        sigaction(signal, &action, nullptr);
    action.sa_sigaction = noteSpinning;
    sigaction(SIGPROF, &action, nullptr);
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGPROF;
    timer_create(CLOCK_THREAD_CPUTIME_ID, &event, &spinning);
    std::set_terminate(noteTermination);
    void *frame = nullptr;
    backtrace(&frame, 1); // loads what it needs now
}

/// Looks at a process from time to time, and sees when its main thread waits for good. A busy machine makes nobody
/// sleep: looks count only while each other thread sleeps or gets on, as that of a pad's display does that looks for
/// its end, and start anew when the main thread has run in between.
class Sleep
{
public:
    explicit Sleep(pid_t process)
        : m_process(process)
    {
    }

    bool isForGood()
    {
        const std::map<pid_t, std::string> before = std::exchange(m_threads, {});
        const std::filesystem::path tasks = "/proc/" + std::to_string(m_process) + "/task";
        std::error_code gone;
        bool counts = true;
        for (const auto &task : std::filesystem::directory_iterator(tasks, gone)) {
            const pid_t thread = std::stoi(task.path().filename());
            const std::string now = m_threads[thread] = stateOf(task.path());
            const auto then = before.find(thread);
            const bool ran = then == before.end() || progressOf(then->second) != progressOf(now);
            if (thread == m_process && (ran || !sleeps(now)))
                m_looks = 0;
            counts &= ran || sleeps(now);
        }
        m_looks += counts;
        const int enough = m_threads.size() == 1 ? kAloneForGood : kAsleepForGood;
        return m_looks > 0 && m_looks % enough == 0;
    }

private:
    /// A thread that computes without a pause on an idle processor is never switched, but its time goes on.
    static std::string stateOf(const std::filesystem::path &thread)
    {
        std::ifstream file(thread / "status");
        std::string state;
        for (std::string line; std::getline(file, line);) {
            if (line.rfind("State:", 0) == 0 || line.find("_switches:") != std::string::npos)
                state += line + '\n';
        }
        std::string nanoseconds;
        std::ifstream(thread / "schedstat") >> nanoseconds;
        return state + nanoseconds;
    }

    static bool sleeps(const std::string &state) { return state.find("S (sleeping)") != std::string::npos; }

    static std::string progressOf(const std::string &state)
    {
        return state.substr(std::min(state.find('\n'), state.size()));
    }

    const pid_t m_process;
    std::map<pid_t, std::string> m_threads; ///< what they did at the last look
    int m_looks = 0;
};

/// Waits for the end; a child that waits for itself is told to say where.
int ended(pid_t child)
{
    int status = 0;
    Sleep sleep(child);
    pollfd end{static_cast<int>(syscall(SYS_pidfd_open, child, 0)), POLLIN, 0};
    while (poll(&end, 1, kLook) == 0) {
        if (sleep.isForGood()) {
            kill(child, report->isHung ? SIGKILL : SIGABRT); // it may wait while it tells where
            report->isHung = true;
        }
    }
    close(end.fd);
    waitpid(child, &status, 0);
    return status;
}

} // namespace

void nextStep(long part, long step)
{
    report->part = part;
    report->step = step;
    itimerspec limit{};
    limit.it_value.tv_nsec = kSpins;
    timer_settime(spinning, 0, &limit, nullptr);
}

ChildReport inChild(const std::function<void(ChildReport &)> &work)
{
    static auto *const shared = static_cast<ChildReport *>(
        mmap(nullptr, sizeof(ChildReport), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    *shared = {};
    report = shared;
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        watch();
        try {
            work(*shared);
        } catch (const std::exception &exception) {
            failingmemory::stop();
            std::snprintf(shared->failure, sizeof shared->failure, "an exception came out: %s", exception.what());
        }
        _exit(0);
    }
    const int status = ended(child);
    ChildReport told = *shared;
    takeSimpleName(told.stack);
    if (!told.crashed && WIFSIGNALED(status) && WTERMSIG(status) == SIGSEGV) {
        told.crashed = true; // the mask of signals that a jump takes from nowhere keeps the handler away
        std::snprintf(told.stack.entry, sizeof told.stack.entry, "a jump to nowhere");
    }
    if (!told.crashed && (!WIFEXITED(status) || WEXITSTATUS(status) != 0))
        std::snprintf(told.failure, sizeof told.failure, "the child ended with status %d", status);
    return told;
}
