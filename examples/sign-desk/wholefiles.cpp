#include "wholefiles.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

namespace signdesk {

bool isWholePdf(const QByteArray &pdf)
{
    static const QRegularExpression end(QStringLiteral("\\nstartxref\n(\\d+) *\n%%EOF\n$"));
    static const QRegularExpression begin(QStringLiteral("^xref\n0 (\\d+)\n"));
    constexpr int kRow = 20; // a line of the table
    const int table = end.match(QString::fromLatin1(pdf.right(64))).captured(1).toInt();
    const auto head = begin.match(QString::fromLatin1(pdf.mid(table, 64)));
    const qint64 rows = head.captured(1).toInt();
    const qint64 trailer = table + head.capturedLength() + rows * kRow;
    return rows > 0 && trailer < pdf.size() && pdf.mid(static_cast<int>(trailer), 8) == "trailer\n";
}

int linesOfSvg(const QByteArray &svg)
{
    QXmlStreamReader reader(svg);
    int lines = 0;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        // Qt draws a line without a length as a path.
        if (reader.name() == QLatin1String("polyline") || reader.name() == QLatin1String("path"))
            ++lines;
    }
    return reader.hasError() ? -1 : lines;
}

} // namespace signdesk
