/// @file
/// Takes a picture of the window after a signature, for documentation and review.
#ifndef SCREENSHOT_H
#define SCREENSHOT_H

#include "deskwindow.h"

namespace signdesk {

/// Waits for the confirmation on the pad, writes the picture and ends the program: with 0 when all of that has worked.
/// Call it before the page is opened, and start signing after that.
void takeScreenshotAndQuit(DeskWindow &window, const QString &path);

} // namespace signdesk

#endif
