/// @file
/// For tests that fork: a child has what the parent's threads work with and not those threads, so that the sanitizer
/// finds nobody who holds it. Leaks are looked for in the parent.
#ifndef FORKEDCHILD_H
#define FORKEDCHILD_H

#include <unistd.h>

inline const pid_t kTestProcess = getpid();

extern "C" __attribute__((visibility("default"), used)) inline int __lsan_is_turned_off()
{
    return getpid() != kTestProcess;
}

#endif
