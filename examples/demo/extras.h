/// @file
/// What only some models can do. Shown quickly, after the captures.
#ifndef EXTRAS_H
#define EXTRAS_H

#include "outputs.h"
#include "settings.h"

/// The S210's signature stretched to the size of an office document's signature field. Throws a Failure.
void showOfficeCanvas(SimulatorSettings &settings, OutputDirectory &output);

#endif
