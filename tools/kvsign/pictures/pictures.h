/// @file
/// Pictures of ink. Each is a sink that draws points as the library does on a canvas.
#ifndef PICTURES_H
#define PICTURES_H

#include "../ink/pointstream.h"
#include "modelrules.h"

#include <QColor>
#include <QRectF>
#include <QSize>

#include <memory>

class QIODevice;

/// Width of a canvas in pixels unless the caller says otherwise.
inline constexpr int kCanvasWidth = 800;

struct PictureSettings
{
    const ModelRow *model = nullptr;
    double scale = 1; ///< 1: the writing area is kCanvasWidth pixels wide
    int penWidth = 0; ///< width level, 1 to 10
    bool withPressure = true;
    QColor colour = Qt::black;
    QColor background; ///< invalid: transparent where the format can, else white
    int dpi = 300; ///< how many pixels fill an inch in print
    QRectF part; ///< what is shown of the canvas, in pixels

    QSize size() const { return part.size().toSize(); }
};

std::unique_ptr<PointSink> drawPng(QIODevice &device, const PictureSettings &settings);
std::unique_ptr<PointSink> drawJpeg(QIODevice &device, const PictureSettings &settings);
std::unique_ptr<PointSink> drawBmp(QIODevice &device, const PictureSettings &settings);
std::unique_ptr<PointSink> drawSvg(QIODevice &device, const PictureSettings &settings);
std::unique_ptr<PointSink> drawPdf(QIODevice &device, const PictureSettings &settings);

#endif
