/// @file
/// Waits until a signature is written and confirmed, and reports on the way.
#ifndef CAPTURE_H
#define CAPTURE_H

#include "openedpad.h"

#include <functional>

struct Failure;

struct CaptureState
{
    int points = 0;
    int strokes = 0;
    double seconds = 0; ///< since the pen first touched the pad
};

/// Called some ten times a second while the signature is written, and once at its end.
using CaptureObserver = std::function<void(const CaptureState &)>;

/// Returns after the tap on confirm, with what was captured. Throws Unplugged when the pad is gone, a Failure when
/// nothing comes.
CaptureState waitForConfirm(const OpenedPad &pad, const CaptureObserver &observer = {});

/// Processes events until the condition holds; throws the failure when it does not within the time.

void waitFor(const std::function<bool()> &condition, int milliseconds, const Failure &failure);

/// Processes events for that long.
void pause(int milliseconds);

#endif
