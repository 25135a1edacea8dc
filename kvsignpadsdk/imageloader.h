/// @file
/// Loading an image from a text that may come from anybody.
#ifndef IMAGELOADER_H
#define IMAGELOADER_H

#include <QByteArray>
#include <QImage>

namespace imageloader {

/// The image that Qt loads from the bytes in the format of the type: EBITI_BITMAP, EBITI_JPEG or EBITI_PNG. A JPEG or
/// BMP that is cut off loads too; what a BMP lacks is black. Null when it does not load, and when decoding would cost
/// more than any real picture:
/// - more pixels than any canvas has, or more memory than the largest canvas;
/// - a JPEG file of more than 100 scans;
/// - a JPEG or BMP file of more than 16 million pixels with less than a byte for 1000 of them: little more than a
/// header,
///   from which Qt would fill in everything else.
QImage loaded(const QByteArray &bytes, int nImageTypeID);

} // namespace imageloader

#endif
