/// @file
/// Many lines as SVG, character by character as QSvgGenerator writes them, at less cost.
#ifndef SVGWRITER_H
#define SVGWRITER_H

#include "svglines.h"

namespace svgwriter {

/// Writes the drawing to an open device, using up its lines. Takes the quick way when it pays and agrees with Qt.
void write(QIODevice &device, svglines::Drawing &drawing);

/// Learns Qt's text of each kind of line from small drawings and fills in the numbers. Returns false with nothing
/// written and no line used up when Qt's texts are not as expected.
bool writeQuickly(QIODevice &device, svglines::Drawing &drawing);

} // namespace svgwriter

#endif
