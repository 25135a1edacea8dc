/// @file
/// The plain way of each piece of work, with Qt's own calls: what the library is measured against and compared with.
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

/// One painter, one pen, one line.
void drawSegment(QImage &canvas, const Segment &segment, const QColor &colour);

/// The shown canvas anew from both layers: a copy of the ink, and the fingerprint anded in, scaled to the target.
void merge(QImage &canvas, const QImage &ink, const QImage &fingerprintLayer, const QRectF &target);

/// A pixmap of the canvas on the widget.
void paint(QWidget &widget, const QImage &canvas);

void makeWhiteTransparent(QImage &image);

/// Qt's writer, toBase64, and a copy into a new array.
char *imageText(QImage image, const char *format, bool transparent);

/// At 150 dots an inch, by Qt's writer for the path's suffix.
bool saveImage(QImage image, const char *path, bool transparent);

/// Every pixel once, row by row.
QRect boundingBox(const QImage &canvas);

/// QSvgGenerator into a file, read back, as text.
char *svgText(const std::vector<Segment> &lines, const QColor &colour, const QSize &size);

/// The points into an array, toBase64, a copy.
char *inkText(const std::vector<_POINTDATA> &points);

std::vector<_POINTDATA> decodedInk(const char *text);

} // namespace plain

#endif
