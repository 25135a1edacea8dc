/// @file
/// Ctrl-C and the like take effect between two steps of work, so that all files are closed and removed properly. A
/// second one, and any other deadly signal, removes temporary files and ends the process at once.
#ifndef INTERRUPTION_H
#define INTERRUPTION_H

void noticeInterruptions();

bool isInterrupted();

/// Throws a Failure after a signal.
void throwIfInterrupted();

#endif
