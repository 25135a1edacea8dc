/// @file
/// The Failure for a device that could not be written.
#ifndef UNWRITABLE_H
#define UNWRITABLE_H

#include "failure.h"

#include <QIODevice>

/// Whether the device has an error text. Qt sets none when only part of the bytes were written.
inline bool saysWhy(const QIODevice &device)
{
    return !device.errorString().isEmpty() && device.errorString() != "Unknown error";
}

/// Names the device by its object name, where it has one.
inline Failure unwritable(const QIODevice &device)
{
    const QString why = saysWhy(device) ? device.errorString() : QString("there is no room for all of it");
    return failed(device.objectName().isEmpty() ? why : QString("%1: %2").arg(device.objectName(), why));
}

#endif
