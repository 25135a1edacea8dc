/// @file
/// Ink points as comma-separated values, one point a line below a line of names.
#ifndef CSVFORMAT_H
#define CSVFORMAT_H

#include "pointstream.h"

#include <QString>

#include <memory>

class QIODevice;

/// Reads what spreadsheets write: columns in any order, between commas, semicolons or tabulators or what a line
/// "sep=" says, in quotation marks or not; names in capitals or shortened; decimals with a point or, where that is no
/// separator, a comma, and exponents; UTF-8 or UTF-16. x and y must be there; filledpoints.h says what stands for
/// others.
std::unique_ptr<PointSource> readCsv(QIODevice &device, const QString &name);

std::unique_ptr<PointSink> writeCsv(QIODevice &device);

#endif
