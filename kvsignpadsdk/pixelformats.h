/// @file
/// Converts pixel formats in the calling thread. Qt uses its thread pool for larger images, and waits for ever when the
/// system cannot create a thread.
#ifndef PIXELFORMATS_H
#define PIXELFORMATS_H

#include <QImage>

namespace pixelformats {

/// The image in another format, with the pixels of QImage::convertToFormat() and the same resolution. Null for a null
/// image. Images of other than 32 bits a pixel still go through Qt's thread pool.
/// @throws std::bad_alloc
QImage converted(const QImage &image, QImage::Format format);

} // namespace pixelformats

#endif
