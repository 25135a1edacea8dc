/// @file
/// Ink points as comma-separated values, one point a line below a line of names.
#ifndef CSVFORMAT_H
#define CSVFORMAT_H

#include "pointstream.h"

#include <QString>

#include <memory>

class QIODevice;

/// Takes the columns in any order, between commas, semicolons or tabulators, in quotation marks or not.
std::unique_ptr<PointSource> readCsv(QIODevice &device, const QString &name);

std::unique_ptr<PointSink> writeCsv(QIODevice &device);

#endif
