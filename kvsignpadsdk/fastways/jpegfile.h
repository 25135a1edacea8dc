/// @file
/// A JPEG file of the canvas, byte by byte as Qt's writer makes it, without Qt's copy of every row.
#ifndef JPEGFILE_H
#define JPEGFILE_H

#include <QByteArray>
#include <QImage>

namespace jpegfile {

/// The file's bytes at Qt's default quality. Empty for an image that is not a plain ARGB32 canvas or too large for
/// JPEG, and when this Qt's files differ from ours.
QByteArray encoded(const QImage &image);

} // namespace jpegfile

#endif
