/// @file
/// Memory that cannot be had: the n-th allocation of a thread fails. Linked into a program, it stands before malloc for
/// all of its libraries.
#ifndef FAILINGMEMORY_H
#define FAILINGMEMORY_H

namespace failingmemory {

/// From now on this thread's n-th allocation fails, counted from 1; the others are had.
void failNth(long n);

/// All allocations are had again. Answers whether one has failed since failNth().
bool stop();

} // namespace failingmemory

#endif
