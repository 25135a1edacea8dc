#include "svglines.h"

#include "plainways.h"
#include "strokes.h"
#include "svgblocks.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>

namespace svglines {

namespace {

constexpr size_t kFew = 32; // taking the blocks costs as much as these many lines
constexpr int kPiece = 1 << 16; // bytes written at a time

QByteArray plainText(const Drawing &drawing)
{
    QByteArray text;
    QBuffer buffer(&text);
    buffer.open(QIODevice::WriteOnly);
    writePlainly(buffer, drawing);
    return text;
}

// Every kind of line, and numbers of every form.
bool agreesWithQt()
{
    const QPointF points[] = {{0, 0}, {1.0 / 3, 1e-7}, {123456.5, 99999.95}, {1234567.8, 0.1}, {-12.25, 1e9}, {7, 8}};
    const double widths[] = {4.5, 0, 1e-9, 20.0784, -3, 2.5};
    std::vector<Line> lines;
    for (int i = 0; i < 5; ++i) {
        lines.push_back({points[i], points[i + 1], widths[i]});
        lines.push_back({points[i], points[i], widths[i + 1]});
    }
    const auto drawing = [&]() -> Drawing {
        return {{400, 200}, 150, QColor(10, 20, 30, 77), {}, linesOf(lines), lines.size()};
    };
    QByteArray quick;
    QBuffer buffer(&quick);
    buffer.open(QIODevice::WriteOnly);
    Drawing again = drawing();
    return writeQuickly(buffer, again) && plainText(drawing()) == quick;
}

void drawLine(QPainter &painter, const Line &line, const QColor &colour)
{
    strokes::setHint(painter);
    painter.setPen(strokes::penFor(line.width, colour));
    painter.drawLine(QLineF(line.from, line.to));
}

void putBack(Drawing &drawing, const Line &first)
{
    drawing.next = [first, isTaken = false, rest = std::move(drawing.next)](Line &line) mutable {
        if (isTaken)
            return rest(line);
        line = first;
        isTaken = true;
        return true;
    };
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

void write(QIODevice &device, Drawing &drawing)
{
    if (!plainways::only && drawing.atMost > kFew) {
        static const bool quickIsRight = agreesWithQt();
        if (quickIsRight && writeQuickly(device, drawing))
            return;
    }
    writePlainly(device, drawing);
}

void writePlainly(QIODevice &device, const Drawing &drawing)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setSize(drawing.size);
    generator.setViewBox(QRect(QPoint(0, 0), drawing.size));
    generator.setResolution(drawing.dpi);
    QPainter painter(&generator);
    if (drawing.below)
        drawing.below(painter);
    for (Line line; drawing.next(line);)
        drawLine(painter, line, drawing.colour);
}

bool writeQuickly(QIODevice &device, Drawing &drawing)
{
    SvgBlocks blocks;
    Line first;
    if (!blocks.take(drawing) || !drawing.next(first))
        return false;
    // All up to the first line is Qt's own.
    QByteArray text = plainText({drawing.size, drawing.dpi, drawing.colour, drawing.below, linesOf({first}), 1});
    if (!text.endsWith(blocks.end())) {
        putBack(drawing, first);
        return false;
    }
    text.chop(blocks.end().size());
    text.reserve(2 * kPiece);
    for (Line line; drawing.next(line);) {
        blocks.append(text, line);
        if (text.size() > kPiece) {
            device.write(text);
            text.resize(0);
        }
    }
    device.write(text + blocks.end());
    return true;
}

} // namespace svglines
