/// @file
/// Whether a picture file is whole. The library answers success for some that a full disk has cut.
#ifndef WHOLEPICTURE_H
#define WHOLEPICTURE_H

#include <QByteArray>

/// Looks at all of a picture of IMAGE_TYPE_ID, as the library writes it.
bool isWholePicture(int imageType, const QByteArray &content);

#endif
