/// @file
/// Converts pixel formats in the calling thread. Qt uses its thread pool for larger images, and waits for ever when the
/// system cannot create a thread.
#ifndef PIXELFORMATS_H
#define PIXELFORMATS_H

#include <QImage>

namespace pixelformats {

/// Gives the image another format, pixel by pixel as QImage::convertToFormat does. An image that shares its pixels with
/// no other one is converted where it is. A null image stays null. Only images of 32 bits a pixel stay in the thread.
/// @throws std::bad_alloc and leaves part of the pixels in either format
void convert(QImage &image, QImage::Format format);

/// The same of a copy.
QImage converted(QImage image, QImage::Format format);

/// Gives the image a format that Qt's PNG writer takes as it is, so that it makes the same file. Of others it converts
/// row by row, and does not see when it got none.
/// @throws std::bad_alloc
void prepareForPng(QImage &image);

} // namespace pixelformats

#endif
