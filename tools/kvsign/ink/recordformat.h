/// @file
/// The Base64 ink record.
#ifndef RECORDFORMAT_H
#define RECORDFORMAT_H

#include "pointstream.h"

#include <QString>

#include <memory>

class QIODevice;

/// Takes white space between the characters, and nothing else that is not of the record.
std::unique_ptr<PointSource> readRecord(QIODevice &device, const QString &name);

std::unique_ptr<PointSink> writeRecord(QIODevice &device);

#endif
