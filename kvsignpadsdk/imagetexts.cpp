#include "imagetexts.h"

#include "fastways/bitmapfile.h"
#include "fastways/jpegfile.h"
#include "pixelformats.h"

#include <QBuffer>

#include <memory>

namespace imagetexts {

namespace {

// Empty when Qt's own writer must do it.
QByteArray fastFileOf(const QImage &image, int nImageTypeID, bool transparent, PngStream *kept)
{
    if (nImageTypeID == EBITI_BITMAP)
        return bitmapfile::encoded(image);
    if (nImageTypeID == EBITI_JPEG)
        return jpegfile::encoded(image);
    if (nImageTypeID != EBITI_PNG)
        return {};
    if (transparent && kept != nullptr)
        return kept->encoded(image);
    const WhiteIs white = transparent ? WhiteIs::Transparent : WhiteIs::Opaque;
    return PngStream(PngStream::Memory::None, white).encoded(image);
}

} // namespace

QByteArray fileOf(QImage image, int nImageTypeID, bool transparent, PngStream *kept)
{
    const char *format = base64text::formatName(nImageTypeID);
    if (format == nullptr)
        return {};
    QByteArray bytes = fastFileOf(image, nImageTypeID, transparent, kept);
    if (!bytes.isEmpty())
        return bytes;
    if (nImageTypeID == EBITI_PNG && transparent)
        inkbounds::makeWhiteTransparent(image);
    if (nImageTypeID == EBITI_PNG)
        pixelformats::prepareForPng(image);
    QBuffer buffer(&bytes);
    if (!image.save(&buffer, format)) // which opens it
        bytes.clear();
    return bytes;
}

char *publishedText(PrivateFile &file, size_t &size, size_t &length)
{
    size = file.size();
    std::unique_ptr<char[]> text(base64text::newText(
        size, [&](char *to) { return file.read(to); }, length));
    if (text != nullptr && file.publish())
        return text.release();
    size = 0;
    length = 0;
    return new char[1]();
}

} // namespace imagetexts
