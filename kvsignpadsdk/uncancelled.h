/// @file
/// For what must reach its end in a thread that may be cancelled, above all what a destructor may call: a cancellation
/// that leaves one ends the process.
#ifndef UNCANCELLED_H
#define UNCANCELLED_H

#include <pthread.h>

/// While it lives, a cancellation of its thread waits.
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
