/// @file
/// Loading an image from a text that may come from anybody.
#ifndef IMAGELOADER_H
#define IMAGELOADER_H

#include <QByteArray>
#include <QImage>

namespace imageloader {

/// The image that Qt loads from the bytes in the format of the type: EBITI_BITMAP, EBITI_JPEG or EBITI_PNG. A JPEG or
/// BMP that is cut off loads too; the missing part of a BMP is black. Null when it does not load, and when decoding it
/// would cost more than any real picture does:
/// - more pixels than any canvas has, or more memory than the largest canvas;
/// - a JPEG file with more than 100 scans;
/// - a JPEG or BMP file with more than 16 million pixels and less than a byte for 1000 of them: a header of a few bytes
///   could claim them, and Qt would fill them in.
QImage loaded(const QByteArray &bytes, int nImageTypeID);

} // namespace imageloader

#endif
