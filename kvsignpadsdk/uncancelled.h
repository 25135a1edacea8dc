/// @file
/// Protects code that must not be left halfway when its thread is cancelled, above all code that destructors call: a
/// cancellation leaving a destructor terminates the process.
#ifndef UNCANCELLED_H
#define UNCANCELLED_H

#include <pthread.h>

/// Defers cancellation of the thread while it lives.
class Uncancelled
{
public:
    Uncancelled() { pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &m_before); }
    ~Uncancelled() { pthread_setcancelstate(m_before, nullptr); }
    Uncancelled(const Uncancelled &) = delete;
    Uncancelled &operator=(const Uncancelled &) = delete;

private:
    int m_before = PTHREAD_CANCEL_ENABLE;
};

#endif
