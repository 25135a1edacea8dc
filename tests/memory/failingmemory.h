/// @file
/// Makes allocations fail. Linked into a program, it replaces malloc for all its libraries.
#ifndef FAILINGMEMORY_H
#define FAILINGMEMORY_H

#include <cstddef>

namespace failingmemory {

/// From now on each allocation fails for which the rule returns true; null: none. The rule is asked in all threads, and
/// may ask for no memory itself.
void refuse(bool (*rule)(std::size_t bytes));

/// How many allocations a rule has refused in this process.
int refusals();

enum class Which
{
    OneAlone,
    AllFromIt
};

/// From now on this thread's n-th allocation fails, counted from 1, and with AllFromIt all that follow it. `noticed` is
/// called where one fails, and may ask for memory no more than a signal's handler.
void failNth(long n, Which which, void (*noticed)());

/// Lets all allocations succeed again. Returns whether one has failed since failNth().
bool stop();

} // namespace failingmemory

#endif
