/// @file
/// The bundled recordings as packets and as segments, for tests over real-looking ink.
#ifndef RECORDEDINK_H
#define RECORDEDINK_H

#include "openpad.h"
#include "plain.h"

#include <string>
#include <vector>

/// Names of the bundled pen recordings.
std::vector<std::string> recordingNames();

/// The pen packets of a recording, without taps, mapped to a model.
std::vector<KVSIM_PACKET> recordedPackets(const std::string &name, int deviceType);

/// The segments that packets draw on a canvas of the size.
std::vector<plain::Segment> segmentsOf(const std::vector<KVSIM_PACKET> &packets, int deviceType, const QSize &size);

/// Draws a segment in the plain way, with the round dot for a segment without length that Qt's line leaves out.
void drawSegmentOrDot(QImage &canvas, const plain::Segment &segment, const QColor &colour);

/// A white ARGB32 canvas.
QImage whiteCanvas(const QSize &size);

#endif
