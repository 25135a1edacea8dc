/// @file
/// Draws ink as lines, as the saved page has it.
#ifndef INKPAINTING_H
#define INKPAINTING_H

#include <documents/ink.h>

class QPainter;

namespace signdesk {

/// The largest rectangle of the canvas's proportions in the middle of this one.
QRectF canvasIn(const QRectF &place, const QSizeF &canvas);

/// Draws the lines from the `first` on, so that the whole canvas fills the rectangle.
void paintLines(QPainter &painter, const documents::Ink &ink, const QRectF &canvas, size_t first = 0);

/// Draws the fingerprint, which lies below the lines.
void paintPicture(QPainter &painter, const documents::Ink &ink, const QRectF &canvas);

} // namespace signdesk

#endif
