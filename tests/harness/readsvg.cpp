#include "readsvg.h"

#include <QPainter>
#include <QRegularExpression>
#include <QSvgGenerator>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace {

std::vector<double> numbersIn(const QString &text)
{
    static const QRegularExpression kNumber("-?\\d+(\\.\\d+)?(e[-+]?\\d+)?");
    std::vector<double> numbers;
    for (QRegularExpressionMatchIterator at = kNumber.globalMatch(text); at.hasNext();)
        numbers.push_back(at.next().captured().toDouble());
    return numbers;
}

QRectF rectOf(const std::vector<double> &numbers)
{
    return numbers.size() == 4 ? QRectF(numbers[0], numbers[1], numbers[2], numbers[3]) : QRectF();
}

// A group's attributes hold for the lines inside. The only matrix in these files is the identity.
struct Group
{
    double width = 0;
    QString colour;
    bool round = false;
};

void readRoot(SvgFile &file, const QXmlStreamAttributes &attributes)
{
    EXPECT_TRUE(attributes.value("width").endsWith("mm"));
    file.widthMm = numbersIn(attributes.value("width").toString()).at(0);
    file.heightMm = numbersIn(attributes.value("height").toString()).at(0);
    file.viewBox = rectOf(numbersIn(attributes.value("viewBox").toString()));
}

void readGroup(Group &group, const QXmlStreamAttributes &attributes)
{
    if (attributes.hasAttribute("stroke-width"))
        group.width = attributes.value("stroke-width").toDouble();
    if (attributes.hasAttribute("stroke"))
        group.colour = attributes.value("stroke").toString();
    if (attributes.hasAttribute("transform")) {
        EXPECT_EQ(attributes.value("transform"), "matrix(1,0,0,1,0,0)");
    }
    group.round = attributes.value("stroke-linecap") == QLatin1String("round")
        && attributes.value("stroke-linejoin") == QLatin1String("round");
}

void readPicture(SvgFile &file, const QXmlStreamAttributes &attributes)
{
    const auto number = [&](const char *name) { return attributes.value(name).toDouble(); };
    const QByteArray data = attributes.value("xlink:href").toLatin1();
    file.pictures.push_back({QRectF(number("x"), number("y"), number("width"), number("height")),
        QImage::fromData(QByteArray::fromBase64(data.mid(data.indexOf(',') + 1)))});
}

} // namespace

SvgFile readSvg(const QByteArray &text)
{
    SvgFile file;
    Group group;
    QXmlStreamReader reader(text);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        if (reader.name() == QLatin1String("svg")) {
            readRoot(file, attributes);
        } else if (reader.name() == QLatin1String("g")) {
            readGroup(group, attributes);
        } else if (reader.name() == QLatin1String("image")) {
            readPicture(file, attributes);
        } else if (reader.name() == QLatin1String("polyline") || reader.name() == QLatin1String("path")) {
            const auto at = numbersIn(attributes.value(attributes.hasAttribute("d") ? "d" : "points").toString());
            EXPECT_EQ(at.size(), 4u) << "a line has two ends";
            EXPECT_TRUE(group.round);
            if (at.size() == 4)
                file.lines.push_back({{at[0], at[1]}, {at[2], at[3]}, group.width, group.colour});
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return file;
}

void expectLines(const SvgLines &actual, const SvgLines &expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t i = 0; i < actual.size(); ++i) {
        SCOPED_TRACE(testing::Message() << "line " << i);
        EXPECT_NEAR(actual[i].from.x(), expected[i].from.x(), 0.002);
        EXPECT_NEAR(actual[i].from.y(), expected[i].from.y(), 0.002);
        EXPECT_NEAR(actual[i].to.x(), expected[i].to.x(), 0.002);
        EXPECT_NEAR(actual[i].to.y(), expected[i].to.y(), 0.002);
        EXPECT_NEAR(actual[i].width, expected[i].width, 0.0002);
        EXPECT_EQ(actual[i].colour, expected[i].colour);
    }
}

void writeSvg(const QString &path, const QSize &size, int dotsPerInch, const SvgLines &lines)
{
    QSvgGenerator generator;
    generator.setFileName(path);
    generator.setSize(size);
    generator.setViewBox(QRect(0, 0, size.width(), size.height()));
    generator.setResolution(dotsPerInch);
    QPainter painter(&generator);
    for (const SvgLine &line : lines) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
        painter.setRenderHint(QPainter::HighQualityAntialiasing);
#pragma GCC diagnostic pop
        QPen pen(QBrush(Qt::black, Qt::SolidPattern), line.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        pen.setColor(QColor(line.colour));
        painter.setPen(pen);
        painter.drawLine(QLineF(line.from, line.to));
    }
}
