/// @file
/// The resolution that an image carries into files.
#ifndef IMAGERESOLUTION_H
#define IMAGERESOLUTION_H

#include <QImage>

namespace imageresolution {

/// Sets it on both axes, in dots an inch. A null image stays null.
/// @throws std::bad_alloc
void set(QImage &image, int nDPI);

} // namespace imageresolution

#endif
