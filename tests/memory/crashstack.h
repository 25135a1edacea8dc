/// @file
/// Whose code a process was in when it came to its end.
#ifndef CRASHSTACK_H
#define CRASHSTACK_H

#include <ucontext.h>

/// As it lies in memory that processes share.
struct CrashStack
{
    char module[128]; ///< the library whose code it was, or that called what was, in the C and C++ run time
    char entry[256]; ///< the function by which the library under test, or the test, left its own code
    char where[4096]; ///< the functions, innermost first
};

/// Notes where the caller is, without its innermost functions. It asks for no memory.
void noteStack(CrashStack &stack, int without);

/// The same of a crash, as a signal's handler has it. Where the stack is none, as after a jump to a mark that was never
/// set, the entry is "a jump to nowhere".
void noteCrashAt(CrashStack &stack, const ucontext_t &crashed, int without);

/// It was the function that goes on at this address.
void blame(CrashStack &stack, void *address);

/// "QImageReader::size() const" is "QImageReader::size" then.
void takeSimpleName(CrashStack &stack);

#endif
