/// @file
/// Shows the fingerprint of an S310X in every possible place.
#ifndef FINGERPRINTS_H
#define FINGERPRINTS_H

#include "outputs.h"
#include "settings.h"

/// At the centre of the signature, in a rectangle beside it, in a window of its own (a screenshot of each), and on a
/// headless canvas. Throws a Failure.
void showFingerprints(SimulatorSettings &settings, OutputDirectory &output);

#endif
