/// @file
/// Loading an image from a text that anybody may have made.
#ifndef IMAGELOADER_H
#define IMAGELOADER_H

#include <QByteArray>
#include <QImage>

namespace imageloader {

/// The image that Qt's loader makes of the bytes in the forced format of the type, EBITI_BITMAP, EBITI_JPEG or
/// EBITI_PNG: of a JPEG or BMP file that is cut off too, where what is missing of a BMP is black. Null when it does not
/// load, and for one whose decoding would cost more than pictures do:
/// - more pixels than any canvas has, or more memory than the largest canvas;
/// - a JPEG file of more than 100 scans;
/// - a JPEG or BMP file of more than 16 million pixels with less than a byte for 1000 of them, so that little but its
///   header can be there: Qt would fill in all the rest.
QImage loaded(const QByteArray &bytes, int nImageTypeID);

} // namespace imageloader

#endif
