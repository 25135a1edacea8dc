/// @file
/// The largest canvas that can be had.
#ifndef LARGESTCANVAS_H
#define LARGESTCANVAS_H

#include <QtGlobal>

#include <limits>

namespace largestcanvas {

/// More than this no array of Qt holds, so nothing could be encoded from it; asking the system for it may even succeed
/// and end the process when it is filled.
constexpr qint64 kBytes = std::numeric_limits<int>::max();
constexpr qint64 kPixels = kBytes / 4; ///< just below 2^29

/// Whether an image of that size has pixels, and no more than that.
constexpr bool holds(qint64 width, qint64 height)
{
    return width > 0 && height > 0 && width <= kPixels && height <= kPixels && width * height <= kPixels;
}

} // namespace largestcanvas

#endif
