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
    /// Transparent where the settings name no background and the format can. Throws when there is no such memory.
    RasterPicture(const PictureSettings &settings, bool canBeTransparent);

    /// Whether the point drew anything.
    bool put(const POINTDATA &point);

    const QImage &image() const { return m_image; }

private:
    Segments m_segments;
    QColor m_colour;
    QImage m_image;
    QPainter m_painter;
};

#endif
