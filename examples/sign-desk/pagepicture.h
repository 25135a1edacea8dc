/// @file
/// A picture that is opened as a page. It may come from anybody: what it costs is bounded.
#ifndef PAGEPICTURE_H
#define PAGEPICTURE_H

#include <QImage>

namespace signdesk {

struct PageFile;

/// Turned as it asks to be. Throws a Trouble, also for a picture that would take more memory than the largest canvas,
/// or for a JPEG of more than a hundred scans, each of which costs time for the whole picture.
QImage readPicture(const PageFile &file);

/// How often a JPEG goes over its picture. Ends where Qt's reader does.
int scansOfJpeg(const QByteArray &jpeg);

} // namespace signdesk

#endif
