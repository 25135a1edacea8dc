/// @file
/// A BMP file of an opaque canvas, byte by byte as Qt's writer makes it.
#ifndef BITMAPFILE_H
#define BITMAPFILE_H

#include <QByteArray>
#include <QImage>

namespace bitmapfile {

/// The file's bytes. Empty for an image that is not ARGB32, and when this Qt's files differ from ours.
QByteArray encoded(const QImage &image);

} // namespace bitmapfile

#endif
