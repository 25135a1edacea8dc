#include "inkformats.h"

#include "../pictures/pictures.h"
#include "csvformat.h"
#include "inkmlformat.h"
#include "jsonformat.h"
#include "recordformat.h"
#include "textlines.h"

#include <QFileInfo>

namespace {

constexpr InkFormat kFormats[] = {
    {"ink", "ink b64 txt", "Base64 ink record", readRecord, writeRecord, nullptr, 0},
    {"csv", "csv", "comma-separated values", readCsv, writeCsv, nullptr, 0},
    {"json", "json", "JSON", readJson, writeJson, nullptr, 0},
    {"inkml", "inkml xml", "W3C InkML", readInkml, writeInkml, nullptr, 0},
    {"png", "png", "PNG picture", nullptr, nullptr, drawPng, ITI_PNG},
    {"jpg", "jpg jpeg", "JPEG picture", nullptr, nullptr, drawJpeg, ITI_JPEG},
    {"bmp", "bmp", "BMP picture", nullptr, nullptr, drawBmp, ITI_BITMAP},
    {"svg", "svg", "SVG drawing", nullptr, nullptr, drawSvg, ITI_SVG},
    {"pdf", "pdf", "PDF page", nullptr, nullptr, drawPdf, ITI_PDF},
};

constexpr const InkFormat &kRecord = kFormats[0];
constexpr const InkFormat &kCsv = kFormats[1];
constexpr const InkFormat &kJson = kFormats[2];
constexpr const InkFormat &kInkml = kFormats[3];

} // namespace

const InkFormat *formatOfName(const QString &name)
{
    for (const InkFormat &format : kFormats) {
        if (name == format.name)
            return &format;
    }
    return nullptr;
}

const InkFormat *formatOfPath(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    for (const InkFormat &format : kFormats) {
        if (QString(format.suffixes).split(' ').contains(suffix))
            return &format;
    }
    return nullptr;
}

const InkFormat &formatOfContent(const QByteArray &begin)
{
    const QByteArray text = decodedBegin(begin).trimmed();
    const int end = text.indexOf('\n');
    const QByteArray line = end < 0 ? text : text.left(end);
    if (text.startsWith('{'))
        return kJson;
    if (text.startsWith('<'))
        return kInkml;
    const bool hasSeparator = line.contains(',') || line.contains(';') || line.contains('\t');
    return hasSeparator ? kCsv : kRecord; // Base64 has no separators
}

QStringList formatNames()
{
    QStringList names;
    for (const InkFormat &format : kFormats)
        names += format.name;
    return names;
}

QStringList readableFormatNames()
{
    QStringList names;
    for (const InkFormat &format : kFormats) {
        if (format.read != nullptr)
            names += format.name;
    }
    return names;
}
