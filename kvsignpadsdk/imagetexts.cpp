#include "imagetexts.h"

#include <QBuffer>

namespace imagetexts {

QByteArray encoded(QImage image, int nImageTypeID, bool transparent)
{
    const char *format = base64text::formatName(nImageTypeID);
    QByteArray bytes;
    if (format == nullptr)
        return bytes;
    if (nImageTypeID == EBITI_PNG && transparent)
        inkbounds::makeWhiteTransparent(image);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format))
        bytes.clear();
    return bytes;
}

} // namespace imagetexts
