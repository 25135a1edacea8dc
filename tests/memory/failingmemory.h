/// @file
/// Makes the n-th allocation of a thread fail. Linked into a program, it replaces malloc for all its libraries.
#ifndef FAILINGMEMORY_H
#define FAILINGMEMORY_H

namespace failingmemory {

/// From now on this thread's n-th allocation fails, counted from 1. All others succeed. `noticed` is called where it
/// fails, and may ask for memory no more than a signal's handler.
void failNth(long n, void (*noticed)());

/// Lets all allocations succeed again. Returns whether one has failed since failNth().
bool stop();

} // namespace failingmemory

#endif
