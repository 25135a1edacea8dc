/// @file
/// What the markers of a JPEG file say about the work of decoding it.
#ifndef JPEGMARKERS_H
#define JPEGMARKERS_H

#include <QByteArray>

namespace jpegmarkers {

struct Work
{
    int scans = 0; ///< up to the end of the image; each goes over all of it once
    int planes = 0; ///< colour components
    bool keepsCoefficients = false; ///< all scans must be read before there is a pixel
};

/// Follows the markers as libjpeg does. Bytes that are no JPEG file have no scan.
Work workOf(const QByteArray &bytes);

} // namespace jpegmarkers

#endif
