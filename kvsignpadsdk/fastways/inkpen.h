/// @file
/// How a segment looks: its pen, and how QPainter draws with it.
#ifndef INKPEN_H
#define INKPEN_H

#include <QColor>
#include <QImage>
#include <QPen>
#include <QPointF>

class QPainter;

namespace inkpen {

/// The pen of a segment: solid, with round caps and joins. Any width, negative ones too.
QPen penFor(double width, const QColor &colour);

/// Switches on the antialiasing that strokes have.
void setHint(QPainter &painter);

/// Draws with the painter's pen, which has the width: a line, or a round dot where both ends are the same point.
void drawWith(QPainter &painter, const QPointF &from, const QPointF &to, double width);

/// Draws a segment with a painter of its own. A null canvas stays as it is.
void drawSegment(QImage &canvas, const QPointF &from, const QPointF &to, const QPen &pen);

} // namespace inkpen

#endif
