/// @file
/// Counts pixels of a picture.
#ifndef COUNTPIXELS_H
#define COUNTPIXELS_H

#include <QColor>
#include <QImage>

/// Number of pixels for which the condition, a function of QRgb, is true.
template <class Condition>
int countPixels(const QImage &image, Condition condition)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += condition(image.pixel(x, y)) ? 1 : 0;
    return count;
}

inline int countPixels(const QImage &image, const QColor &colour)
{
    return countPixels(image, [&](QRgb pixel) { return pixel == colour.rgba(); });
}

#endif
