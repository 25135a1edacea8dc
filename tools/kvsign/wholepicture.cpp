#include "wholepicture.h"

#include <kvsignpadsdk_global.h>

#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QtEndian>

#include <zlib.h>

namespace {

/// The file's size follows its first two letters.
bool isWholeBitmap(const QByteArray &content)
{
    return content.size() > 6
        && qFromLittleEndian<quint32>(content.constData() + 2) == static_cast<quint32>(content.size());
}

/// Decoders also accept a JPEG that was cut off; only the end marker, its last two bytes, shows that it is complete.
bool isWholeJpeg(const QByteArray &content)
{
    return content.startsWith("\xff\xd8") && content.endsWith("\xff\xd9");
}

/// After the signature come chunks: a size, four letters, so many bytes, and the checksum of the letters and the
/// bytes.
bool isWholePng(const QByteArray &content)
{
    constexpr qint64 kSignature = 8, kAround = 12;
    qint64 place = kSignature;
    QByteArray letters;
    while (letters != "IEND") {
        if (content.size() - place < kAround)
            return false;
        const char *const chunk = content.constData() + place;
        const qint64 size = qFromBigEndian<quint32>(chunk);
        if (content.size() - place - kAround < size)
            return false;
        const auto *const checked = reinterpret_cast<const unsigned char *>(chunk + 4);
        if (crc32(0, checked, static_cast<unsigned>(size + 4)) != qFromBigEndian<quint32>(chunk + 8 + size))
            return false;
        letters = QByteArray(chunk + 4, 4);
        place += size + kAround;
    }
    return place == content.size();
}

bool isWholeSvg(const QByteArray &content)
{
    QXmlStreamReader xml(content);
    while (!xml.atEnd())
        xml.readNext();
    return !xml.hasError();
}

/// One line of the table: ten digits of an offset, five of a generation, and whether the object is in use.
bool isObjectWhereTheTableSays(const QByteArray &content, int number, const QByteArray &line)
{
    const int offset = line.left(10).toInt();
    const QByteArray begin = QByteArray::number(number) + " 0 obj";
    return content.mid(offset, begin.size()) == begin;
}

/// The end of the file gives the offset of the table, and the table the offsets of all objects. A byte that is missing
/// anywhere shifts them.
bool isWholePdf(const QByteArray &content)
{
    static const QRegularExpression end("startxref\\s+(\\d+)\\s+%%EOF\\s*$");
    const QRegularExpressionMatch match = end.match(QString::fromLatin1(content.right(64)));
    const QList<QByteArray> table = content.mid(match.captured(1).toInt()).split('\n');
    if (!content.startsWith("%PDF-") || !match.hasMatch() || table.size() < 3 || table[0] != "xref")
        return false;
    const int count = table[1].split(' ').last().trimmed().toInt();
    for (int number = 1; number < count; ++number) {
        const QByteArray line = table.value(2 + number);
        if (line.trimmed().endsWith('n') && !isObjectWhereTheTableSays(content, number, line))
            return false;
    }
    return count > 1;
}

} // namespace

bool isWholePicture(int imageType, const QByteArray &content)
{
    switch (imageType) {
    case ITI_BITMAP:
        return isWholeBitmap(content);
    case ITI_JPEG:
        return isWholeJpeg(content);
    case ITI_PNG:
        return isWholePng(content);
    case ITI_SVG:
        return isWholeSvg(content);
    case ITI_PDF:
        return isWholePdf(content);
    default:
        return false;
    }
}
