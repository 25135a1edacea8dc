#include "imageloader.h"

#include "fastways/base64text.h"
#include "jpegmarkers.h"
#include "kvsignpadsdk_global.h"
#include "largestcanvas.h"

#include <QBuffer>
#include <QImageReader>
#include <QPixelFormat>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace imageloader {

namespace {

constexpr int kMostScans = 100;

// What Qt writes has far more bytes than this, blank pictures too: a byte for at most 256 pixels in a JPEG, for 8 in a
// BMP. Of whole pictures, only nearly blank ones in arithmetic coding, or in runs that end early, are refused.
constexpr qint64 kPixelsForAByte = 1024;
constexpr qint64 kPixelsForNothing = qint64{1} << 24;

// Qt fills in the rest of a JPEG or BMP that is cut off, so a few bytes could claim a huge picture. A PNG that is cut
// off does not load.
bool canBeThere(qint64 pixels, const QByteArray &bytes, int nImageTypeID)
{
    return nImageTypeID == EBITI_PNG || pixels <= std::max(kPixelsForNothing, kPixelsForAByte * bytes.size());
}

qint64 bitsForAPixel(QImage::Format format)
{
    return format == QImage::Format_Invalid ? 0 : QImage::toPixelFormat(format).bitsPerPixel();
}

bool isAffordable(const QByteArray &bytes, int nImageTypeID, const QSize &size, QImage::Format format)
{
    const qint64 width = std::llabs(size.width()); // negative in some BMP files
    const qint64 height = std::llabs(size.height());
    if (!largestcanvas::holds(width, height) || !canBeThere(width * height, bytes, nImageTypeID))
        return false;
    qint64 bits = bitsForAPixel(format);
    if (nImageTypeID == EBITI_JPEG) {
        const jpegmarkers::Work work = jpegmarkers::workOf(bytes);
        if (work.scans > kMostScans)
            return false;
        if (work.keepsCoefficients)
            bits += work.planes * 16;
    }
    return width * height * bits / 8 <= largestcanvas::kBytes;
}

/// Reads bytes with Qt in a forced format.
class Reader
{
public:
    Reader(QByteArray bytes, int nImageTypeID)
        : m_bytes(std::move(bytes))
        , m_buffer(&m_bytes)
        , m_reader(&m_buffer, base64text::formatName(nImageTypeID))
    {
        m_buffer.open(QIODevice::ReadOnly);
        m_reader.setAutoDetectImageFormat(false);
    }
    QSize size() const { return m_reader.size(); }

    /// Qt returns an arbitrary number for bytes that do not load.
    QImage::Format format() const
    {
        const int format = m_reader.imageFormat();
        const bool isFormat = format > QImage::Format_Invalid && format < QImage::NImageFormats;
        return isFormat ? static_cast<QImage::Format>(format) : QImage::Format_Invalid;
    }
    bool read(QImage &image) { return m_reader.read(&image); }

private:
    QByteArray m_bytes;
    QBuffer m_buffer;
    QImageReader m_reader;
};

// Qt reads a BMP into the given image if size and format fit, and does not write the pixels that a cut-off file lacks.
// They stay black then, instead of showing old memory.
bool readIntoBlack(const QByteArray &bytes, const QSize &size, QImage::Format format, QImage &image)
{
    image = QImage(std::abs(size.width()), std::abs(size.height()), format);
    image.fill(0);
    return Reader(bytes, EBITI_BITMAP).read(image);
}

bool readBitmap(const QByteArray &bytes, const QSize &size, QImage::Format format, QImage &image)
{
    if (!readIntoBlack(bytes, size, format, image))
        return false;
    // Qt may decode to another format than it derived from the header; then read again into that.
    return image.format() == format || readIntoBlack(bytes, size, image.format(), image);
}

} // namespace

QImage loaded(const QByteArray &bytes, int nImageTypeID)
{
    Reader reader(bytes, nImageTypeID);
    const QSize size = reader.size();
    const QImage::Format format = reader.format();
    if (!isAffordable(bytes, nImageTypeID, size, format))
        return {};
    QImage image;
    const bool read = nImageTypeID == EBITI_BITMAP ? readBitmap(bytes, size, format, image) : reader.read(image);
    return read ? image : QImage();
}

} // namespace imageloader
