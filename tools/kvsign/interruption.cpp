#include "interruption.h"

#include "failure.h"
#include "leftovers.h"

#include <csignal>

namespace {

// Sent by people or the system to end a program. The handler only notes them; throwIfInterrupted() looks between two
// steps of work.
constexpr int kNoticed[] = {SIGINT, SIGTERM, SIGHUP};

// These end the program at once, after cleaning up: a quit from the keyboard, timers, crashes. So do all real-time
// signals, whose numbers are only known at run time. SIGKILL cannot be caught.
constexpr int kDeadly[] = {SIGQUIT, SIGILL, SIGTRAP, SIGABRT, SIGBUS, SIGFPE, SIGSEGV, SIGUSR1, SIGUSR2, SIGALRM,
    SIGSTKFLT, SIGXCPU, SIGVTALRM, SIGPROF, SIGIO, SIGPWR, SIGSYS};

// Ignored, because write() then fails with EPIPE or EFBIG, and everything is closed and removed as after any error.
constexpr int kSaidByWriting[] = {SIGPIPE, SIGXFSZ};

volatile std::sig_atomic_t g_interrupted = 0;

void endAtOnce(int signal)
{
    Leftover::cleanAll();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void remember(int signal)
{
    // The second signal ends the process at once, in case a step hangs.
    if (g_interrupted != 0)
        endAtOnce(signal);
    g_interrupted = 1;
}

/// Leaves signals alone that were ignored at the start (nohup) or have a handler already (sanitizers).
void handle(int signal, void (*handler)(int))
{
    struct sigaction before = {}, action = {};
    action.sa_handler = handler;
    if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_DFL)
        sigaction(signal, &action, nullptr);
}

} // namespace

void noticeInterruptions()
{
    for (const int signal : kNoticed)
        handle(signal, remember);
    for (const int signal : kDeadly)
        handle(signal, endAtOnce);
    for (int signal = SIGRTMIN; signal <= SIGRTMAX; ++signal)
        handle(signal, endAtOnce);
    for (const int signal : kSaidByWriting)
        handle(signal, SIG_IGN);
}

bool isInterrupted()
{
    return g_interrupted != 0;
}

void throwIfInterrupted()
{
    if (isInterrupted())
        throw Failure{kCancelled, "interrupted"};
}
