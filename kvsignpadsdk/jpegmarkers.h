/// @file
/// What the markers of a JPEG file say about the work of decoding it.
#ifndef JPEGMARKERS_H
#define JPEGMARKERS_H

#include <QByteArray>

namespace jpegmarkers {

struct Work
{
    int scans = 0; ///< passes over the whole image
    int planes = 0; ///< colour components
    bool keepsCoefficients = false; ///< libjpeg needs all scans in memory before the first pixel
};

/// Follows the markers as libjpeg does. Finds no scan in bytes that are not a JPEG file.
Work workOf(const QByteArray &bytes);

} // namespace jpegmarkers

#endif
