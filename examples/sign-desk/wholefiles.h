/// @file
/// Whether a written file is complete. Neither the library, for PDF and SVG, nor Qt's printing to PDF report that the
/// disk was full.
#ifndef WHOLEFILES_H
#define WHOLEFILES_H

#include <QByteArray>

namespace signdesk {

/// Whether the cross-reference table is where the end of the file says. Then no byte before it is missing.
bool isWholePdf(const QByteArray &pdf);

/// How many lines an SVG picture of strokes draws; -1 when it is not a complete SVG file.
int linesOfSvg(const QByteArray &svg);

} // namespace signdesk

#endif
