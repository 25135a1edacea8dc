#include "imagefiles.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>

namespace imagefiles {

void setResolution(QImage &image, int nDPI)
{
    const int dotsPerMetre = static_cast<int>(nDPI / 0.0254);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
}

bool saveBySuffix(const QImage &image, const QString &path)
{
    const QByteArray format = QFileInfo(path).suffix().toLower().toLatin1();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (format.isEmpty() || !buffer.open(QIODevice::WriteOnly) || !QImageWriter(&buffer, format).write(image))
        return false;
    return filepaths::write(path, bytes);
}

bool savePdf(QImage image, const QString &path, int nDPI)
{
    QFile file;
    if (!filepaths::openForWriting(file, path))
        return false;
    QPdfWriter writer(&file);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setResolution(nDPI);
    writer.setPageMargins(QMarginsF(10, 10, 10, 10));
    QPainter painter(&writer);
    setResolution(image, nDPI);
    painter.drawImage(0, 0, svgdrawing::asPixmapHolds(image));
    painter.end();
    file.close();
    return true;
}

} // namespace imagefiles
