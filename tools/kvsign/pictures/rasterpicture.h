/// @file
/// A canvas of pixels that ink is drawn on.
#ifndef RASTERPICTURE_H
#define RASTERPICTURE_H

#include "segments.h"

#include <QImage>
#include <QPainter>

class RasterPicture
{
public:
    /// Without a background in the settings the picture is transparent, where the format can be. Throws when there is
    /// not enough memory.
    RasterPicture(const PictureSettings &settings, bool canBeTransparent);

    /// Returns whether the point has drawn anything.
    bool put(const POINTDATA &point);

    const QImage &image() const { return m_image; }

private:
    Segments m_segments;
    QColor m_colour;
    QImage m_image;
    QPainter m_painter;
};

#endif
