/// @file
/// Turns stored points into the lines that the library draws for them.
#ifndef SEGMENTS_H
#define SEGMENTS_H

#include "pictures.h"

#include <QLineF>

#include <optional>

class QPainter;

struct Segment
{
    QLineF line; ///< in pixels of the part that is shown
    double width;
};

class Segments
{
public:
    explicit Segments(const PictureSettings &settings);

    /// The line that this point draws. There is none for a stroke's first point and for the one that closes it.
    std::optional<Segment> take(const POINTDATA &point);

    /// Where a raw position lies, in pixels.
    QPointF placeOf(const POINTDATA &point) const;
    double widthOf(const POINTDATA &point) const;

private:
    const PictureSettings &m_settings;
    double m_pixelsPerUnitX;
    double m_pixelsPerUnitY;
    bool m_inStroke = false;
    QPointF m_last;
};

void drawSegment(QPainter &painter, const Segment &segment, const QColor &colour);

#endif
