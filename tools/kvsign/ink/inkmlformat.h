/// @file
/// Ink points as W3C InkML: a trace for each stroke, with force and time.
///
/// Channels: X, Y, F (force) and T (time) as the pad gave them, S (the pen's tip touches, which the point that closes a
/// stroke does not), and `clock`, the wall-clock second.
#ifndef INKMLFORMAT_H
#define INKMLFORMAT_H

#include "pointstream.h"

#include <QString>

#include <memory>

class QIODevice;

/// Reads everything that the standard allows: contexts, sources and groups, channels in any order and units,
/// differences, unknown and repeated values, traces that continue others, views of traces in definitions. Drops traces
/// of a pen in the air and other channels. X and Y are enough: filledpoints.h fills in the rest, and inkmlfit.h
/// converts the numbers.
std::unique_ptr<PointSource> readInkml(QIODevice &device, const QString &name);

std::unique_ptr<PointSink> writeInkml(QIODevice &device);

#endif
