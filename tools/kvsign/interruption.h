/// @file
/// Ctrl-C and its like: noticed between two steps, so that everything that is open is closed and removed.
#ifndef INTERRUPTION_H
#define INTERRUPTION_H

void noticeInterruptions();

bool isInterrupted();

/// Throws a Failure once a signal has come.
void throwIfInterrupted();

#endif
