/// @file
/// The plain way to do each piece of work, by Qt's own calls. The library's speed and results are compared with it.
#ifndef PLAIN_H
#define PLAIN_H

#include "kvsignpadsdk_global.h"

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRect>

#include <vector>

class QWidget;

namespace plain {

struct Segment
{
    QPointF from;
    QPointF to;
    double width;
};

/// Draws a segment with a painter and a pen of its own.
void drawSegment(QImage &canvas, const Segment &segment, const QColor &colour);

/// Makes the shown canvas from both layers: copies the ink, scales the fingerprint to the target and ANDs it in.
void merge(QImage &canvas, const QImage &ink, const QImage &fingerprintLayer, const QRectF &target);

/// Paints the canvas on the widget as a pixmap.
void paint(QWidget &widget, const QImage &canvas);

void makeWhiteTransparent(QImage &image);

/// Encodes with Qt's writer and toBase64, and copies the text into a new array.
char *imageText(QImage image, const char *format, bool transparent);

/// Saves at 150 dots an inch, with Qt's writer for the path's suffix.
bool saveImage(QImage image, const char *path, bool transparent);

/// Looks at every pixel once, row by row.
QRect boundingBox(const QImage &canvas);

/// Lets QSvgGenerator write a file, and reads it back as a text.
char *svgText(const std::vector<Segment> &lines, const QColor &colour, const QSize &size);

/// Packs the points into an array, encodes it with toBase64 and copies the text.
char *inkText(const std::vector<_POINTDATA> &points);

std::vector<_POINTDATA> decodedInk(const char *text);

} // namespace plain

#endif
