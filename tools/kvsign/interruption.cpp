#include "interruption.h"

#include "failure.h"
#include "leftovers.h"

#include <csignal>

namespace {

// What a person or the system ends programs with: it is noticed between two steps.
constexpr int kNoticed[] = {SIGINT, SIGTERM, SIGHUP};

// What ends a program at once: a quit from the keyboard, timers, crashes. SIGKILL cannot be noticed.
constexpr int kDeadly[] = {SIGQUIT, SIGILL, SIGTRAP, SIGABRT, SIGBUS, SIGFPE, SIGSEGV, SIGUSR1, SIGUSR2, SIGALRM,
    SIGSTKFLT, SIGXCPU, SIGVTALRM, SIGPROF, SIGIO, SIGPWR, SIGSYS};

// Writing says the same with EPIPE and EFBIG, and everything is closed and removed.
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
    // The second one ends the process, should a step never end.
    if (g_interrupted != 0)
        endAtOnce(signal);
    g_interrupted = 1;
}

/// What whoever started the command wants ignored, as nohup does, stays ignored; a sanitizer's handler stays too.
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
