#include "svglines.h"

#include "inkpen.h"
#include "painting.h"

#include <QSvgGenerator>

#include <memory>

namespace svglines {

namespace {

void drawLine(QPainter &painter, const Line &line, const QColor &colour)
{
    inkpen::setHint(painter);
    painter.setPen(inkpen::penFor(line.width, colour));
    painter.drawLine(QLineF(line.from, line.to));
}

} // namespace

Source linesOf(std::vector<Line> lines)
{
    return [lines = std::move(lines), next = size_t{0}](Line &line) mutable {
        if (next == lines.size())
            return false;
        line = lines[next++];
        return true;
    };
}

void writePlainly(QIODevice &device, const Drawing &drawing)
{
    auto generator = std::make_unique<QSvgGenerator>();
    generator->setOutputDevice(&device);
    generator->setSize(drawing.size);
    generator->setViewBox(QRect(QPoint(0, 0), drawing.size));
    generator->setResolution(drawing.dpi);
    painting::drawOn(std::move(generator), [&](QPainter &painter) {
        if (drawing.below)
            drawing.below(painter);
        for (Line line; drawing.next(line);)
            drawLine(painter, line, drawing.colour);
    });
}

} // namespace svglines
