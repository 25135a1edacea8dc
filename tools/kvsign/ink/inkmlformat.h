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

/// Takes the channels in any order, values in full or as differences, and other channels, which it drops. Without S
/// each trace gets a closing point, without `clock` the times are those of T.
std::unique_ptr<PointSource> readInkml(QIODevice &device, const QString &name);

std::unique_ptr<PointSink> writeInkml(QIODevice &device);

#endif
