/// @file
/// A signature that is written on a pad now.
#ifndef CAPTURED_H
#define CAPTURED_H

#include "commandline.h"

#include <QByteArray>

inline constexpr Option kTimeoutOption{
    "timeout t", "SECONDS", "How long to wait for confirm or cancel; 0 means for ever.", "60", nullptr};

struct Captured
{
    QString model;
    QByteArray record; ///< the library's text of the ink
};

/// Waits for confirm on a pad; everything else throws. Reads the options of the driver and the timeout.
/// @param model one of the five, or auto
Captured captureRecord(const Arguments &arguments, const QString &model);

#endif
