#include "imagefiles.h"

#include "fastways/pngstream.h"
#include "imageresolution.h"
#include "painting.h"
#include "pixelformats.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QPdfWriter>

#include <algorithm>
#include <memory>
#include <utility>

namespace imagefiles {

namespace {

// Converts for Qt's writers, which would convert the whole image with Qt's thread pool. Only the JPEG writer does not:
// it converts row by row.
void prepare(QImage &image, const QByteArray &format)
{
    if (format == "png")
        pixelformats::prepareForPng(image);
    else if (format != "jpg" && format != "jpeg")
        pixelformats::convert(image, QImage::Format_ARGB32);
}

bool encodedByQt(QImage image, WhiteIs white, const QByteArray &format, QByteArray &bytes)
{
    if (white == WhiteIs::Transparent)
        inkbounds::makeWhiteTransparent(image);
    prepare(image, format);
    QBuffer buffer(&bytes);
    return !format.isEmpty() && buffer.open(QIODevice::WriteOnly) && QImageWriter(&buffer, format).write(image);
}

constexpr char kNoStream[] =
    "stream\n\nendstream"; // Qt writes this when it has no memory to compress a picture or page
constexpr int kAcross = sizeof kNoStream - 2; // at most this much of it ends the previous piece

/// Notices when Qt leaves something out for lack of memory. Qt itself only prints a warning.
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
    QByteArray m_end; ///< the last bytes written
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
    auto writer = std::make_unique<QPdfWriter>(&file);
    writer->setPageSize(QPageSize(QPageSize::A4));
    writer->setResolution(nDPI);
    writer->setPageMargins(QMarginsF(10, 10, 10, 10));
    const auto draw = [&](QPainter &painter) { painter.drawImage(0, 0, pixels); };
    if (!painting::drawOn(std::move(writer), draw) || !file.isWhole())
        return false;
    file.commit(); // a failure here is not reported: the earlier file stays
    return true;
}

} // namespace imagefiles
