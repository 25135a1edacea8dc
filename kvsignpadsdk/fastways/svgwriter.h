/// @file
/// Many lines as SVG, character by character as QSvgGenerator writes them, at less cost.
#ifndef SVGWRITER_H
#define SVGWRITER_H

#include "svglines.h"

namespace svgwriter {

/// Writes the drawing, and takes its lines, to an open device, the quick way where it pays and agrees with Qt.
void write(QIODevice &device, svglines::Drawing &drawing);

/// Writes it with Qt's own blocks, taken from small drawings, and the numbers put in; false, nothing written and every
/// line still there, where Qt's blocks are not as they are known to be.
bool writeQuickly(QIODevice &device, svglines::Drawing &drawing);

} // namespace svgwriter

#endif
