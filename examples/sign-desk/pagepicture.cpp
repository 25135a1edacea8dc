#include "pagepicture.h"

#include "pagefile.h"
#include "trouble.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>
#include <QXmlStreamReader>
#include <QtEndian>

#include <algorithm>

namespace signdesk {

namespace {

struct PictureWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::Pages)
};

// The library's largest canvas takes 2^31 bytes. A picture takes at most 16 for a pixel while it is read: four of two
// bytes each in a deep picture, or in a JPEG before its last scan, and as much again when it is converted or turned.
constexpr qint64 kMostPixels = (qint64{1} << 31) / 16;
constexpr int kMostScans = 100;

/// The second byte of a JPEG's markers, after FF.
enum Marker : quint8
{
    FirstSegment = 0xc0,
    FirstRestart = 0xd0,
    StartOfImage = 0xd8,
    EndOfImage = 0xd9,
    StartOfScan = 0xda,
    FillByte = 0xff
};

/// A marker without a length, or one that a decoder skips while it searches for the next restart: the length of the
/// latter must not be trusted, or scans could hide behind it.
bool standsAlone(quint8 marker)
{
    return marker < FirstSegment || (marker >= FirstRestart && marker <= StartOfImage);
}

} // namespace

int scansOfJpeg(const QByteArray &jpeg)
{
    int scans = 0;
    int at = jpeg.indexOf('\xff');
    while (at >= 0 && at + 3 < jpeg.size()) {
        const auto marker = static_cast<quint8>(jpeg[at + 1]);
        if (marker == EndOfImage)
            break;
        scans += marker == StartOfScan ? 1 : 0;
        if (marker == FillByte)
            ++at;
        else if (standsAlone(marker))
            at += 2;
        else
            at += 2 + std::max<int>(2, qFromBigEndian<quint16>(jpeg.constData() + at + 2));
        at = jpeg.indexOf('\xff', at);
    }
    return scans;
}

bool svgLoadsMore(const QByteArray &svg)
{
    QXmlStreamReader reader(svg);
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement && reader.name() == QLatin1String("image"))
            return true;
        if (token == QXmlStreamReader::ProcessingInstruction
            && reader.processingInstructionTarget() == QLatin1String("xml-stylesheet"))
            return true;
    }
    return false;
}

QImage readPicture(const PageFile &file)
{
    QBuffer buffer;
    buffer.setData(file.content);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QByteArray format = reader.format();
    // Qt's SVG reader loads what is in a drawing as soon as it is asked for the size.
    if (format == "svg" && svgLoadsMore(file.content))
        throw unreadable(
            file.path, PictureWords::tr("it is an SVG with pictures or style sheets; make a PDF of it first."));
    const bool isPacked = file.content.startsWith("\x1f\x8b"); // it may hold far more than it seems to
    const QSize size = isPacked ? QSize() : reader.size();
    if (qint64{size.width()} * size.height() > kMostPixels)
        throw unreadable(file.path, PictureWords::tr("it has more pixels than there is memory for."));
    if (format == "jpeg" && scansOfJpeg(file.content) > kMostScans)
        throw unreadable(file.path, PictureWords::tr("it is a JPEG of too many scans."));
    const QImage picture = size.isValid() ? reader.read() : QImage();
    if (picture.isNull())
        throw unreadable(file.path, PictureWords::tr("it is neither a PDF nor a picture."));
    return picture;
}

} // namespace signdesk
