/// @file
/// Work done in a child of the process, which may crash or hang: the parent learns how far it came, and whose code it
/// was in.
#ifndef CRASHINGCHILD_H
#define CRASHINGCHILD_H

#include "crashstack.h"

#include <functional>
#include <string>

/// What a child tells its parent, in memory that both see.
struct ChildReport
{
    long part; ///< the work's last, see nextStep()
    long step;
    char failure[512]; ///< set by the work when something is wrong; empty: nothing is
    bool crashed;
    bool isTerminated; ///< by an exception that nobody could catch
    bool isHung; ///< it waited for itself, or worked on and on
    bool isSpoilt; ///< set by the work when the child is of no more use, whatever becomes of it
    CrashStack stack; ///< its end
};

/// For the work: says how far it is. A step should not need a third of a second of its thread's time.
void nextStep(long part, long step);

/// Does the work in a child and waits for its end.
ChildReport inChild(const std::function<void(ChildReport &)> &work);

#endif
