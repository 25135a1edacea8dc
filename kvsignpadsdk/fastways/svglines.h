/// @file
/// Many lines, and how QSvgGenerator writes them.
#ifndef SVGLINES_H
#define SVGLINES_H

#include <QColor>
#include <QPointF>
#include <QSize>

#include <functional>
#include <vector>

class QIODevice;
class QPainter;

namespace svglines {

struct Line
{
    QPointF from;
    QPointF to;
    double width;
};

/// Hands out one line after the other, so that a long signature's lines need not be in memory together. Returns false
/// after the last.
using Source = std::function<bool(Line &)>;

/// The lines of a list.
Source linesOf(std::vector<Line> lines);

struct Drawing
{
    QSize size; ///< drawing area and view box
    int dpi;
    QColor colour;
    std::function<void(QPainter &)> below; ///< draws what is below the lines; may be empty
    Source next;
    size_t atMost; ///< upper limit of the lines that `next` hands out
};

/// Writes the drawing to an open device with QSvgGenerator, using up its lines.
void writePlainly(QIODevice &device, const Drawing &drawing);

} // namespace svglines

#endif
