/// @file
/// Opens a picture as a page. It may come from anybody, so time and memory are bounded.
#ifndef PAGEPICTURE_H
#define PAGEPICTURE_H

#include <QImage>

namespace signdesk {

struct PageFile;

/// The picture, turned as its metadata says. Throws a Trouble, also for a picture that would take more memory than the
/// largest canvas, or for a JPEG of more than a hundred scans, each of which costs time for the whole picture.
QImage readPicture(const PageFile &file);

/// The number of scans of a JPEG, up to where Qt's reader stops.
int scansOfJpeg(const QByteArray &jpeg);

} // namespace signdesk

#endif
