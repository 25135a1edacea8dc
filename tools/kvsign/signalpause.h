/// @file
/// Holds signals back while several names change together.
#ifndef SIGNALPAUSE_H
#define SIGNALPAUSE_H

#include <csignal>

class SignalPause
{
public:
    SignalPause()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, &m_before);
    }
    ~SignalPause() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    SignalPause(const SignalPause &) = delete;
    SignalPause &operator=(const SignalPause &) = delete;

private:
    sigset_t m_before = {};
};

#endif
