/// @file
/// Whether a file that another part wrote came whole: neither the library's PDF and SVG files nor a printed PDF tell
/// when the room for them ran out.
#ifndef WHOLEFILES_H
#define WHOLEFILES_H

#include <QByteArray>

namespace signdesk {

/// Its table stands where its end says, so that no byte before it is missing either.
bool isWholePdf(const QByteArray &pdf);

/// How many lines an SVG picture of strokes draws; -1 when it is no whole SVG file.
int linesOfSvg(const QByteArray &svg);

} // namespace signdesk

#endif
