/// @file
/// Changes of an image's pixel format that stay in the calling thread. Qt spreads those of larger images over a pool of
/// threads and waits for them for ever where no thread can be made.
#ifndef PIXELFORMATS_H
#define PIXELFORMATS_H

#include <QImage>

namespace pixelformats {

/// The image in another format, pixel by pixel as QImage::convertToFormat makes it, with the same resolution. Null for
/// a null image. Only images of 32 bits a pixel stay in the thread.
/// @throws std::bad_alloc
QImage converted(const QImage &image, QImage::Format format);

} // namespace pixelformats

#endif
