#include "plain.h"

#include "modelrows.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgGenerator>
#include <QWidget>

#include <algorithm>
#include <cstring>

namespace plain {

namespace {

QPen penFor(double width, const QColor &colour)
{
    QPen pen(QBrush(Qt::black, Qt::SolidPattern), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    pen.setColor(colour);
    return pen;
}

void setStrokeHint(QPainter &painter)
{
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    painter.setRenderHint(QPainter::HighQualityAntialiasing);
#pragma GCC diagnostic pop
}

char *newText(const QByteArray &bytes)
{
    const QByteArray base64 = bytes.toBase64();
    char *text = new char[static_cast<size_t>(base64.size()) + 1];
    std::memcpy(text, base64.constData(), static_cast<size_t>(base64.size()));
    text[base64.size()] = '\0';
    return text;
}

} // namespace

void drawSegment(QImage &canvas, const Segment &segment, const QColor &colour)
{
    QPainter painter(&canvas);
    setStrokeHint(painter);
    painter.setPen(penFor(segment.width, colour));
    painter.drawLine(QLineF(segment.from, segment.to));
}

void merge(QImage &canvas, const QImage &ink, const QImage &fingerprintLayer, const QRectF &target)
{
    QImage work(kFingerprintWidth, kFingerprintHeight, QImage::Format_ARGB32);
    work.fill(Qt::white);
    work = fingerprintLayer;
    canvas = ink.copy();
    QPainter painter(&canvas);
    painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
    painter.drawImage(target, work, QRectF(0, 0, kFingerprintWidth, kFingerprintHeight));
}

void paint(QWidget &widget, const QImage &canvas)
{
    QPainter painter(&widget);
    painter.drawPixmap(0, 0, QPixmap::fromImage(canvas));
}

void makeWhiteTransparent(QImage &image)
{
    image.setAlphaChannel(image.createMaskFromColor(QColor(Qt::white).rgb(), Qt::MaskOutColor));
}

char *imageText(QImage image, const char *format, bool transparent)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (transparent)
        makeWhiteTransparent(image);
    image.save(&buffer, format);
    buffer.close();
    return newText(bytes);
}

bool saveImage(QImage image, const char *path, bool transparent)
{
    image.setDotsPerMeterX(5905);
    image.setDotsPerMeterY(5905);
    if (transparent)
        makeWhiteTransparent(image);
    return image.save(QString::fromLatin1(path));
}

QRect boundingBox(const QImage &canvas)
{
    int left = 99999;
    int top = 99999;
    int right = -1;
    int bottom = -1;
    for (int y = 0; y < canvas.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(canvas.constScanLine(y));
        for (int x = 0; x < canvas.width(); ++x) {
            if (qRed(row[x]) == 255 && qGreen(row[x]) == 255 && qBlue(row[x]) == 255)
                continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    return {QPoint(left, top), QPoint(right, bottom)};
}

char *svgText(const std::vector<Segment> &lines, const QColor &colour, const QSize &size)
{
    const QString path = QStringLiteral("./plain.svg");
    {
        QSvgGenerator generator;
        generator.setFileName(path);
        generator.setSize(size);
        generator.setViewBox(QRect(QPoint(0, 0), size));
        generator.setResolution(150);
        QPainter painter(&generator);
        for (const Segment &line : lines) {
            setStrokeHint(painter);
            painter.setPen(penFor(line.width, colour));
            painter.drawLine(QLineF(line.from, line.to));
        }
    }
    QFile file(path);
    file.open(QIODevice::ReadOnly | QIODevice::Text);
    return newText(file.readAll());
}

char *inkText(const std::vector<_POINTDATA> &points)
{
    const size_t size = points.size() * sizeof(_POINTDATA) + 1;
    char *record = new char[size];
    for (size_t i = 0; i < points.size(); ++i)
        std::memcpy(record + i * sizeof(_POINTDATA), &points.at(i), sizeof(_POINTDATA));
    record[size - 1] = '\0';
    char *text = newText(QByteArray(record, static_cast<int>(size)));
    delete[] record;
    return text;
}

std::vector<_POINTDATA> decodedInk(const char *text)
{
    const QByteArray bytes = QByteArray::fromBase64(QByteArray(text));
    std::vector<_POINTDATA> points;
    for (int i = 0; i + 24 <= bytes.size(); i += 24) {
        _POINTDATA point;
        std::memcpy(&point, bytes.constData() + i, sizeof point);
        points.push_back(point);
    }
    return points;
}

} // namespace plain
