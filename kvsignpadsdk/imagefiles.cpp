#include "imagefiles.h"

#include "fastways/pngstream.h"
#include "imageresolution.h"
#include "pixelformats.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

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

constexpr char kNoStream[] = "stream\n\nendstream"; // where Qt had no memory to compress a picture, or a page
constexpr int kAcross = sizeof kNoStream - 2; // bytes of it that may stand in an earlier piece

/// Sees whether Qt leaves anything out, of which it only warns.
class PdfFile : public ReplacedFile
{
public:
    using ReplacedFile::ReplacedFile;

    bool isWhole() const { return m_whole; }

protected:
    qint64 writeData(const char *data, qint64 size) override
    {
        m_end.append(data, static_cast<int>(std::min<qint64>(size, kAcross)));
        const QByteArray piece = QByteArray::fromRawData(data, static_cast<int>(size));
        m_whole = m_whole && !m_end.contains(kNoStream) && !piece.contains(kNoStream);
        m_end = size < kAcross ? m_end.right(kAcross) : QByteArray(data + size - kAcross, kAcross);
        return ReplacedFile::writeData(data, size);
    }

private:
    QByteArray m_end; ///< of what has been written
    bool m_whole = true;
};

} // namespace

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
    imageresolution::set(image, nDPI);
    const QImage pixels = svgdrawing::asPixmapHolds(image);
    PdfFile file(path);
    if (!file.isOpen())
        return false;
    QPdfWriter writer(&file);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setResolution(nDPI);
    writer.setPageMargins(QMarginsF(10, 10, 10, 10));
    QPainter painter(&writer);
    painter.drawImage(0, 0, pixels);
    if (!painter.end() || !file.isWhole())
        return false;
    file.commit(); // one that failed is not told: the earlier file stands
    return true;
}

} // namespace imagefiles
