#include "interruption.h"

#include "failure.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t g_interrupted = 0;

void remember(int)
{
    g_interrupted = 1;
}

} // namespace

void noticeInterruptions()
{
    struct sigaction action = {};
    action.sa_handler = remember;
    // The second one ends the process in the system's way, should a step never end.
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signal, &action, nullptr);
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
