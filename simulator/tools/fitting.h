/// @file
/// Lays pen samples in free units into a pad's writing area.
#ifndef FITTING_H
#define FITTING_H

#include "handwriting.h"
#include "modelrows.h"
#include "recording.h"

namespace kvsim {

/// Pen events in the pad's raw units, with one scale for both axes: the samples fill at most these shares of the
/// area's width and height and stand in its middle. Pressure 1 becomes the pad's maximum.
std::vector<Event> fitIntoPad(const std::vector<Sample> &samples, const ModelRow &pad, double width, double height);

} // namespace kvsim

#endif
