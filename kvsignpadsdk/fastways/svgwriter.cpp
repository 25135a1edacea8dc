#include "svgwriter.h"

#include "plainways.h"
#include "svgblocks.h"

#include <QBuffer>

namespace svgwriter {

using svglines::Drawing;
using svglines::Line;
using svglines::linesOf;

namespace {

constexpr size_t kFew = 32; // learning the blocks costs as much as writing this many lines with Qt
constexpr int kPiece = 1 << 16; // bytes written at a time

QByteArray plainText(const Drawing &drawing)
{
    QByteArray text;
    QBuffer buffer(&text);
    buffer.open(QIODevice::WriteOnly);
    svglines::writePlainly(buffer, drawing);
    return text;
}

// Compares with Qt on every kind of line, and on numbers in every form: whole, rounded, huge, tiny, negative.
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

void write(QIODevice &device, Drawing &drawing)
{
    if (!plainways::only && drawing.atMost > kFew) {
        static const bool quickIsRight = agreesWithQt();
        if (quickIsRight && writeQuickly(device, drawing))
            return;
    }
    svglines::writePlainly(device, drawing);
}

bool writeQuickly(QIODevice &device, Drawing &drawing)
{
    SvgBlocks blocks;
    Line first;
    if (!blocks.take(drawing) || !drawing.next(first))
        return false;
    // Qt itself writes everything up to the first line, which includes the fingerprint's picture.
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

} // namespace svgwriter
