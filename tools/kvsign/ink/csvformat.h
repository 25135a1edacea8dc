/// @file
/// Ink points as comma-separated values, one point a line below a line of names.
#ifndef CSVFORMAT_H
#define CSVFORMAT_H

#include "pointstream.h"

#include <QString>

#include <memory>

class QIODevice;

/// Reads what spreadsheets write. Columns may be in any order, separated by commas, semicolons, tabulators or what a
/// line "sep=" says, with or without quotation marks. Names may be in capitals or shortened. Decimals have a point or,
/// where that is not the separator, a comma; exponents are read too. The text is UTF-8 or UTF-16. x and y are required;
/// filledpoints.h fills in the other fields.
std::unique_ptr<PointSource> readCsv(QIODevice &device, const QString &name);

std::unique_ptr<PointSink> writeCsv(QIODevice &device);

#endif
