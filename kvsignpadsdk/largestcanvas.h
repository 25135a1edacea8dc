/// @file
/// The largest canvas.
#ifndef LARGESTCANVAS_H
#define LARGESTCANVAS_H

#include <QtGlobal>

#include <limits>

namespace largestcanvas {

/// As much as a QByteArray can hold. Do not even try to allocate a larger canvas: the system may grant the memory and
/// kill the process when it is filled.
constexpr qint64 kBytes = std::numeric_limits<int>::max();
constexpr qint64 kPixels = kBytes / 4; ///< just below 2^29

/// Whether an image of this size has pixels, and at most kPixels of them.
constexpr bool holds(qint64 width, qint64 height)
{
    return width > 0 && height > 0 && width <= kPixels && height <= kPixels && width * height <= kPixels;
}

} // namespace largestcanvas

#endif
