/// @file
/// The Base64 ink record.
#ifndef RECORDFORMAT_H
#define RECORDFORMAT_H

#include "pointstream.h"

#include <QString>

#include <memory>

class QIODevice;

/// Accepts white space between the characters, but nothing else that does not belong to the record.
std::unique_ptr<PointSource> readRecord(QIODevice &device, const QString &name);

std::unique_ptr<PointSink> writeRecord(QIODevice &device);

#endif
