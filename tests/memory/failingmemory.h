/// @file
/// Makes the n-th allocation of a thread fail. Linked into a program, it replaces malloc for all its libraries.
#ifndef FAILINGMEMORY_H
#define FAILINGMEMORY_H

namespace failingmemory {

/// From now on this thread's n-th allocation fails, counted from 1. All others succeed.
void failNth(long n);

/// Lets all allocations succeed again. Returns whether one has failed since failNth().
bool stop();

} // namespace failingmemory

#endif
