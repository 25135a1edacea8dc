#include "svglines.h"

#include "strokes.h"
#include "svgblocks.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>

namespace svglines {

namespace {

constexpr size_t kFew = 32; // taking the blocks costs as much as these many lines
constexpr int kPiece = 1 << 16; // bytes written at a time

bool agrees(const Drawing &drawing)
{
    QByteArray plain;
    QByteArray quick;
    QBuffer plainBuffer(&plain);
    QBuffer quickBuffer(&quick);
    plainBuffer.open(QIODevice::WriteOnly);
    quickBuffer.open(QIODevice::WriteOnly);
    writePlainly(plainBuffer, drawing);
    return writeQuickly(quickBuffer, drawing) && plain == quick;
}

// Every kind of line, and numbers of every form.
bool agreesWithQt()
{
    const QPointF points[] = {{0, 0}, {1.0 / 3, 1e-7}, {123456.5, 99999.95}, {1234567.8, 0.1}, {-12.25, 1e9}, {7, 8}};
    const double widths[] = {4.5, 0, 1e-9, 20.0784, -3, 2.5};
    Drawing drawing{{400, 200}, 150, QColor(10, 20, 30, 77), {}, {}};
    for (int i = 0; i < 5; ++i) {
        drawing.lines.push_back({points[i], points[i + 1], widths[i]});
        drawing.lines.push_back({points[i], points[i], widths[i + 1]});
    }
    return agrees(drawing);
}

void drawLine(QPainter &painter, const Line &line, const QColor &colour)
{
    strokes::setHint(painter);
    painter.setPen(strokes::penFor(line.width, colour));
    painter.drawLine(QLineF(line.from, line.to));
}

} // namespace

void write(QIODevice &device, const Drawing &drawing)
{
    if (drawing.lines.size() > kFew) {
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
    for (const Line &line : drawing.lines)
        drawLine(painter, line, drawing.colour);
}

bool writeQuickly(QIODevice &device, const Drawing &drawing)
{
    SvgBlocks blocks;
    if (drawing.lines.empty() || !blocks.take(drawing))
        return false;
    // All up to the first line is Qt's own.
    QByteArray text;
    QBuffer buffer(&text);
    buffer.open(QIODevice::WriteOnly);
    writePlainly(buffer, {drawing.size, drawing.dpi, drawing.colour, drawing.below, {drawing.lines.front()}});
    if (!text.endsWith(blocks.end()))
        return false;
    text.chop(blocks.end().size());
    text.reserve(2 * kPiece);
    for (size_t i = 1; i < drawing.lines.size(); ++i) {
        blocks.append(text, drawing.lines[i]);
        if (text.size() > kPiece) {
            device.write(text);
            text.resize(0);
        }
    }
    device.write(text + blocks.end());
    return true;
}

} // namespace svglines
