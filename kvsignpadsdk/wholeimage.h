/// @file
/// Whether the bytes of an image file reach its end. Qt's readers fill in what is missing of a cut one.
#ifndef WHOLEIMAGE_H
#define WHOLEIMAGE_H

#include <QByteArray>

namespace wholeimage {

/// False for a file of the type that is cut somewhere. Other faults are left to the reader.
bool isWhole(const QByteArray &bytes, int nImageTypeID);

} // namespace wholeimage

#endif
