/// @file
/// The pads, and the canvas that the demo gives each of them.
#ifndef PADS_H
#define PADS_H

#include "modelrules.h"
#include "padfamilies.h"

inline constexpr int kCanvasWidth = 800; ///< pixels; the height follows from the writing area's proportions

inline constexpr const PadFamily &kS310XPad = *familyOfName("S310X");
inline constexpr const PadFamily &kS210Pad = *familyOfName("S210");

#endif
