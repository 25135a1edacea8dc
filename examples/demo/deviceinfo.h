/// @file
/// What a pad tells about itself, and whether its ink record comes back as it was.
#ifndef DEVICEINFO_H
#define DEVICEINFO_H

#include "openedpad.h"

#include <QStringList>

/// A row of the table of pads: everything that GetDeviceInfo, GetHWPadID and GetHWVersion answer.
QStringList deviceRow(const OpenedPad &pad);
QStringList deviceTitles();

/// A row of the table of ink records: its size, and how many of its points decode to those that are stored.
QStringList inkRecordRow(const OpenedPad &pad);
QStringList inkRecordTitles();

#endif
