#include "imagefiles.h"

#include "pixelformats.h"
#include "pngstream.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>

namespace imagefiles {

namespace {

// Their writers convert an image row by row; those of other formats do it at once, in threads.
bool isWrittenByRows(const QByteArray &format)
{
    return format == "png" || format == "jpg" || format == "jpeg";
}

bool encodedByQt(QImage image, WhiteIs white, const QByteArray &format, QByteArray &bytes)
{
    if (white == WhiteIs::Transparent)
        inkbounds::makeWhiteTransparent(image);
    if (!isWrittenByRows(format))
        image = pixelformats::converted(image, QImage::Format_ARGB32);
    QBuffer buffer(&bytes);
    return !format.isEmpty() && buffer.open(QIODevice::WriteOnly) && QImageWriter(&buffer, format).write(image);
}

} // namespace

void setResolution(QImage &image, int nDPI)
{
    const int dotsPerMetre = static_cast<int>(nDPI / 0.0254);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
}

bool saveBySuffix(QImage image, WhiteIs white, const QString &path)
{
    const QByteArray format = QFileInfo(path).suffix().toLower().toLatin1();
    QByteArray bytes = format == "png" ? PngStream(PngStream::Memory::None, white).encoded(image) : QByteArray();
    if (bytes.isEmpty() && !encodedByQt(std::move(image), white, format, bytes))
        return false;
    ReplacedFile file(path);
    return file.isOpen() && file.write(bytes) == bytes.size() && file.commit();
}

bool savePdf(QImage image, const QString &path, int nDPI)
{
    setResolution(image, nDPI);
    const QImage pixels = svgdrawing::asPixmapHolds(image);
    ReplacedFile file(path);
    if (!file.isOpen())
        return false;
    QPdfWriter writer(&file);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setResolution(nDPI);
    writer.setPageMargins(QMarginsF(10, 10, 10, 10));
    QPainter painter(&writer);
    painter.drawImage(0, 0, pixels);
    painter.end();
    file.commit(); // one that failed is not told: the earlier file stands
    return true;
}

} // namespace imagefiles
