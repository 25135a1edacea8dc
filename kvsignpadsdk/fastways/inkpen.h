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

/// Draws a line with the painter's pen, or a round dot when both ends are the same point. `width` is that pen's width.
void drawWith(QPainter &painter, const QPointF &from, const QPointF &to, double width);

/// Draws a segment with a painter of its own. A null canvas stays as it is.
void drawSegment(QImage &canvas, const QPointF &from, const QPointF &to, const QPen &pen);

} // namespace inkpen

#endif
