/// @file
/// What is put on a page: ink as lines, and a picture.
#ifndef DOCUMENTS_INK_H
#define DOCUMENTS_INK_H

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <vector>

namespace documents {

/// One segment of a stroke, with round ends.
struct InkLine
{
    QPointF from;
    QPointF to;
    double width;
};

/// A signature on its canvas. All places are in pixels of the canvas, y downwards.
struct Ink
{
    QSizeF canvas;
    std::vector<InkLine> lines;
    QColor colour = Qt::black;

    QImage picture; ///< a fingerprint, whose white is transparent; null for none
    QRectF picturePlace;
};

} // namespace documents

#endif
