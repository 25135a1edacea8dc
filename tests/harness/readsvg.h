/// @file
/// Reads the lines of an SVG file back, and writes given lines with a plain QSvgGenerator.
#ifndef READSVG_H
#define READSVG_H

#include <QByteArray>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <vector>

struct SvgLine
{
    QPointF from;
    QPointF to;
    double width;
    QString colour; ///< "#rrggbb"
};
using SvgLines = std::vector<SvgLine>;

/// A picture in the file.
struct SvgPicture
{
    QRectF place;
    QImage image;
};

struct SvgFile
{
    double widthMm = 0;
    double heightMm = 0;
    QRectF viewBox;
    SvgLines lines;
    std::vector<SvgPicture> pictures;
};

SvgFile readSvg(const QByteArray &text);

/// Compares with the precision of the numbers in an SVG file.
void expectLines(const SvgLines &actual, const SvgLines &expected);

void writeSvg(const QString &path, const QSize &size, int dotsPerInch, const SvgLines &lines);

#endif
