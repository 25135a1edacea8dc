/// @file
/// Captures a signature from a pad.
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

/// Opens the pad and waits until the signer confirms; throws a Failure when anything else happens. Uses the options for
/// the driver and the timeout.
/// @param model a name in modelrows.h, or auto
Captured captureRecord(const Arguments &arguments, const QString &model);

#endif
