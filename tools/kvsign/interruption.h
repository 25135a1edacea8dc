/// @file
/// Ctrl-C and the like are noticed between two steps of work, so that all files are closed and removed properly. A
/// second one, and any other signal that ends a process, removes temporary files and ends it at once.
#ifndef INTERRUPTION_H
#define INTERRUPTION_H

void noticeInterruptions();

bool isInterrupted();

/// Throws a Failure after a signal.
void throwIfInterrupted();

#endif
