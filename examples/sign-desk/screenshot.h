/// @file
/// A picture of the window after a signature, for documents and for looking at.
#ifndef SCREENSHOT_H
#define SCREENSHOT_H

#include "deskwindow.h"

namespace signdesk {

/// Starts signing, waits for the confirmation on the pad, writes the picture and ends the program: with 0 when all of
/// that came to be.
void takeScreenshotAndQuit(DeskWindow &window, const QString &path);

} // namespace signdesk

#endif
