/// @file
/// A model of how a hand writes: strokes with lognormal speed that overlap in time (the sigma-lognormal model).
#ifndef HANDWRITING_H
#define HANDWRITING_H

#include <vector>

namespace kvsim {

/// Where a stroke leads, and by how many degrees it turns on its way (positive: clockwise, y pointing down).
struct Target
{
    double x;
    double y;
    double bend = 0;
};

/// What is written without lifting the pen. The first target is where the pen is put down.
using PenPath = std::vector<Target>;

/// How somebody writes.
struct Manner
{
    double slant = 12; ///< degrees to the right
    double rise = 3; ///< degrees by which the line climbs
    double tempo = 1; ///< above 1: faster
    double unrest = 1; ///< 0: every stroke exactly as planned
    double pressure = 0.30; ///< mean share of the pad's maximum
};

struct Sample
{
    double timeMs;
    double x;
    double y;
    double pressure; ///< 0 to 1
    enum State
    {
        Down,
        Move,
        Up
    } state;
};

/// The pen's samples while it touches, about 220 a second. The same seed gives the same samples.
std::vector<Sample> writeByHand(const std::vector<PenPath> &paths, const Manner &manner, unsigned seed);

} // namespace kvsim

#endif
