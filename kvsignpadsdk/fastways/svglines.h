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

/// Hands out one line after the other, so that a long signature needs no memory for all of them; false behind the last.
using Source = std::function<bool(Line &)>;

/// The lines of a list.
Source linesOf(std::vector<Line> lines);

struct Drawing
{
    QSize size; ///< drawing area and view box
    int dpi;
    QColor colour;
    std::function<void(QPainter &)> below; ///< draws what stands under the lines; may be empty
    Source next;
    size_t atMost; ///< lines that `next` may hand out
};

/// Writes the drawing, and takes its lines, to an open device with QSvgGenerator.
void writePlainly(QIODevice &device, const Drawing &drawing);

} // namespace svglines

#endif
