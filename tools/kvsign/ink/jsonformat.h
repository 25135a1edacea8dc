/// @file
/// Ink points as a JSON object: the names of the fields, and each point as an array in their order.
#ifndef JSONFORMAT_H
#define JSONFORMAT_H

#include "pointstream.h"

#include <QString>

#include <memory>

class QIODevice;

/// Accepts any layout, the fields in any order, and unknown members.
std::unique_ptr<PointSource> readJson(QIODevice &device, const QString &name);

std::unique_ptr<PointSink> writeJson(QIODevice &device);

#endif
