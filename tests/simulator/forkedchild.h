/// @file
/// For tests that fork. A child inherits the memory that the parent's threads own, but not the threads, and the
/// sanitizer would call that a leak. So leaks are checked in the parent only.
#ifndef FORKEDCHILD_H
#define FORKEDCHILD_H

#include <unistd.h>

inline const pid_t kTestProcess = getpid();

extern "C" __attribute__((visibility("default"), used)) inline int __lsan_is_turned_off()
{
    return getpid() != kTestProcess;
}

#endif
