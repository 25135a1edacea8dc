/// @file
/// Converts pixel formats in the calling thread. Qt uses its thread pool for larger images, and waits for ever when the
/// system cannot create a thread.
#ifndef PIXELFORMATS_H
#define PIXELFORMATS_H

#include <QImage>

namespace pixelformats {

/// Converts the image with the result of QImage::convertToFormat(), in place unless it shares its pixels with another
/// image. A null image stays null. An image with other than 32 bits a pixel may still be converted in Qt's threads.
/// @throws std::bad_alloc, and the image is useless then: its pixels are in two formats
void convert(QImage &image, QImage::Format format);

/// Returns a converted copy.
QImage converted(QImage image, QImage::Format format);

/// Call it before Qt's PNG writer, which converts premultiplied images row by row and does not notice when there is no
/// memory for a row. Converted here, the image gives the same file.
/// @throws std::bad_alloc
void prepareForPng(QImage &image);

} // namespace pixelformats

#endif
