/// @file
/// Whether a picture file is complete. For some files the library reports success although the disk was full.
#ifndef WHOLEPICTURE_H
#define WHOLEPICTURE_H

#include <QByteArray>

/// Reads the whole file, which the library has written as this IMAGE_TYPE_ID.
bool isWholePicture(int imageType, const QByteArray &content);

#endif
