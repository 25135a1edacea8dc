/// @file
/// Ctrl-C and its like: noticed between two steps, so that everything that is open is closed and removed. A second one,
/// and every other signal that ends a process, removes what would be left behind and ends it at once.
#ifndef INTERRUPTION_H
#define INTERRUPTION_H

void noticeInterruptions();

bool isInterrupted();

/// Throws a Failure once a signal has come.
void throwIfInterrupted();

#endif
