/// @file
/// The lines of an SVG file, read back by the test, and a file of given lines written by a plain generator.
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

/// Compares to the precision that an SVG text has.
void expectLines(const SvgLines &actual, const SvgLines &expected);

void writeSvg(const QString &path, const QSize &size, int dotsPerInch, const SvgLines &lines);

#endif
