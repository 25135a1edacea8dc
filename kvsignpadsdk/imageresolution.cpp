#include "imageresolution.h"

#include <new>

namespace imageresolution {

void set(QImage &image, int nDPI)
{
    if (image.isNull())
        return;
    const int dotsPerMetre = static_cast<int>(nDPI / 0.0254);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    if (image.isNull()) // there was no memory to detach it
        throw std::bad_alloc();
}

} // namespace imageresolution
