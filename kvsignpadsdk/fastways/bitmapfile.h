/// @file
/// A BMP file of an opaque canvas, byte by byte as Qt's writer makes it.
#ifndef BITMAPFILE_H
#define BITMAPFILE_H

#include <QByteArray>
#include <QImage>

namespace bitmapfile {

/// The file's bytes; empty for an image that is not ARGB32, or when Qt's writer makes other files than this one.
QByteArray encoded(const QImage &image);

} // namespace bitmapfile

#endif
